#include "library/scanFolder.h"
#include "logs/FlySightFile.h"
#include "logs/probeLogDates.h"
#include "platform/Files.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <span>
#include <string>
#include <string_view>

namespace ospra {
namespace {

/// The greatest memory that this process has had at a time, in KiB. The kernel's count for the parent of a process
/// begins before the program does, so the process asks for its own.
long peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::strtol(line.c_str() + std::string_view("VmHWM:").size(), nullptr, 10);
    return 0;
}

/// @return how many samples or dated logs there were
std::ptrdiff_t work(std::string_view what, const char* path)
{
    if (what == "scan") {
        std::ptrdiff_t dated = 0;
        for (const JumpFileEntry& entry : scanFolder(makeJumper(path, 0)))
            dated += entry.freefallDate.has_value() ? 1 : 0;
        return dated;
    }
    FileReader reader;
    const auto bytes = reader.read(path);
    if (!bytes)
        return 0;
    if (what == "date")
        return probeLogDates(*bytes).freefallDate.has_value() ? 1 : 0;
    return std::ssize(FlySightFile::parse(*bytes, path).dataPoints);
}

} // namespace
} // namespace ospra

/// Reads or dates one log, or scans a folder of logs, as a program of its own that can be set beside other programs.
/// Says how many samples or dated logs there were, and its peak of memory in KiB.
int main(int argc, char** argv)
{
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (argc != 3) {
        std::fputs("usage: logs-program read|date LOG\n       logs-program scan FOLDER\n", stderr);
        return 2;
    }
    try {
        const std::ptrdiff_t count = ospra::work(arguments[1], arguments[2]);
        std::printf("%td %ld\n", count, ospra::peakMemory());
        return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "logs-program: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
