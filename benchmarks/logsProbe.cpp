#include "logs/probeLogDates.h"
#include "platform/Files.h"
#include "tests/support/LogText.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace ospra {

namespace {

namespace fs = std::filesystem;

constexpr std::ptrdiff_t jumpRows = 14'700; // 1.6 MB

void BM_ProbeLog(benchmark::State& state)
{
    const auto version = state.range(0) == 1 ? LogVersion::version1 : LogVersion::version2;
    const double exitAt = static_cast<double>(state.range(1)) / 100.0;
    const std::string text = makeFlightLog({.version = version, .rows = jumpRows, .exitAt = exitAt});
    for (auto _ : state)
        benchmark::DoNotOptimize(probeLogDates(text));
    state.SetBytesProcessed(state.iterations() * std::ssize(text));
}
BENCHMARK(BM_ProbeLog)->ArgNames({"version", "exit%"})->ArgsProduct({{1, 2}, {60, 200}});

/// A folder of logs of 1.6 MB, which goes again with the object.
class LogFolder {
public:
    explicit LogFolder(int count) : m_path(fs::temp_directory_path() / "ospra-logs-benchmark")
    {
        fs::create_directories(m_path);
        const std::string text = makeFlightLog({.rows = jumpRows});
        for (int i = 0; i < count; ++i) {
            m_files.push_back(m_path / (std::to_string(i) + ".csv"));
            std::ofstream(m_files.back(), std::ios::binary) << text;
        }
    }
    ~LogFolder() { fs::remove_all(m_path); }
    LogFolder(const LogFolder&) = delete;
    LogFolder& operator=(const LogFolder&) = delete;

    [[nodiscard]] const std::vector<fs::path>& files() const { return m_files; }
    [[nodiscard]] const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
    std::vector<fs::path> m_files;
};

constexpr int fileCount = 500;

/// Made at the first use; it goes at the end of the program.
const LogFolder& logFolder()
{
    static const LogFolder folder(fileCount);
    return folder;
}

void BM_ProbeFiles(benchmark::State& state)
{
    const LogFolder& folder = logFolder();
    FileReader reader;
    for (auto _ : state) {
        for (const fs::path& file : folder.files()) {
            if (const auto bytes = reader.read(file))
                benchmark::DoNotOptimize(probeLogDates(*bytes));
        }
    }
    state.SetItemsProcessed(state.iterations() * fileCount);
}
BENCHMARK(BM_ProbeFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The yardstick of the above.
void BM_CatFiles(benchmark::State& state)
{
    const LogFolder& folder = logFolder();
    const std::string command = "cat " + folder.path().string() + "/*.csv > /dev/null";
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0) { // NOLINT(bugprone-command-processor): the yardstick is that command
            state.SkipWithError("there is no cat");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * fileCount);
}
BENCHMARK(BM_CatFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

} // namespace ospra
