#include "library/scanFolder.h"

#include "library/logFileName.h"
#include "logs/probeLogDates.h"
#include "platform/Files.h"

#include <algorithm>

namespace ospra {

namespace {

/// Everything that is named like a log, whatever it is: a folder of such a name is listed too, and cannot be loaded.
std::vector<std::filesystem::path> findLogs(const std::filesystem::path& folder, const std::stop_token& stop)
{
    std::vector<std::filesystem::path> paths = walkFolder(folder, stop);
    std::erase_if(paths, [](const std::filesystem::path& path) { return !isLogFileName(path.filename().native()); });
    // The order of a walk differs from disk to disk; with this one equal folders give equal lists.
    std::sort(paths.begin(), paths.end(),
              [](const std::filesystem::path& a, const std::filesystem::path& b) { return a.native() < b.native(); });
    return paths;
}

} // namespace

std::vector<JumpFileEntry> scanFolder(const Jumper& jumper, const std::stop_token& stop)
{
    std::vector<JumpFileEntry> entries;
    FileReader reader;
    for (const std::filesystem::path& path : findLogs(jumper.directoryURL, stop)) {
        if (stop.stop_requested())
            break;
        const std::optional<std::string_view> bytes = reader.read(path);
        const LogDates dates = bytes ? probeLogDates(*bytes) : LogDates{};
        entries.push_back({.url = path,
                           .name = logName(path),
                           .jumpDate = dates.jumpDate,
                           .freefallDate = dates.freefallDate,
                           .jumperID = jumper.id});
    }
    return entries;
}

} // namespace ospra
