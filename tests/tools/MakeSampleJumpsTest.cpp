#include "tools/make-sample-jumps/Options.h"
#include "tools/make-sample-jumps/OutputFolder.h"
#include "tools/make-sample-jumps/Season.h"
#include "tools/make-sample-jumps/makeSamples.h"
#include "tools/make-sample-jumps/portableMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::map<std::string, std::string> contentsBelow(const fs::path& root)
{
    std::map<std::string, std::string> contents;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file())
            contents[entry.path().lexically_relative(root).generic_string()] = contentOf(entry.path());
    return contents;
}

/// What the tests need of a log, read by means of their own.
struct ReadLog {
    std::size_t rows = 0;
    std::optional<double> freefall; ///< s of the day at which the sink rate first passes 20 m/s
    double highest = -1e9;          ///< m
    double fastestSink = 0.0;       ///< m/s
    std::string fault;              ///< the first line that is not of the format
};

ReadLog readLog(const std::string& text)
{
    const bool isTwo = text.starts_with("$FLYS,1\n");
    // Both kinds of rows, from the time to the sink rate; what follows is told apart by the number of fields.
    static const std::regex row(
        R"((\$GNSS,)?\d{4}-\d\d-\d\dT(\d\d):(\d\d):(\d\d\.\d\d\d?)Z,-?\d+\.\d{7},-?\d+\.\d{7},)"
        R"((-?\d+\.\d{3}),-?\d+\.\d\d,-?\d+\.\d\d,(-?\d+\.\d\d),\d+\.\d{3},\d+\.\d{3},\d+\.\d\d)"
        R"((,\d+|,\d+\.\d{5},\d+\.\d{5},[23],\d+)\r?)");
    ReadLog log;
    std::istringstream lines(text);
    bool inRows = !isTwo;
    std::size_t lineNumber = 0;
    for (std::string line; std::getline(lines, line); ++lineNumber) {
        if (!inRows || (!isTwo && lineNumber < 2)) {
            inRows = inRows || line == "$DATA";
            continue;
        }
        std::smatch match;
        if (!std::regex_match(line, match, row) || match[1].matched != isTwo) {
            log.fault = log.fault.empty() ? line : log.fault;
            continue;
        }
        ++log.rows;
        const double sink = std::stod(match[6]);
        log.highest = std::fmax(log.highest, std::stod(match[5]));
        log.fastestSink = std::fmax(log.fastestSink, sink);
        if (sink > 20.0 && !log.freefall)
            log.freefall = std::stod(match[2]) * 3600.0 + std::stod(match[3]) * 60.0 + std::stod(match[4]);
    }
    return log;
}

class MakeSampleJumps : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(m_root); }
    void TearDown() override { fs::remove_all(m_root); }

    void make(const fs::path& folder, const std::vector<std::string_view>& more)
    {
        const std::string name = folder.string();
        std::vector<std::string_view> arguments{name};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Options options = parseOptions(arguments);
        OutputFolder output(options.folder);
        if (options.files > 0)
            makeBenchmarkLogs(options, output);
        else
            makeSeason(options, output);
    }

    fs::path m_root = fs::path(testing::TempDir()) / (std::string("make-sample-jumps-") +
                                                      testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(MakeSampleJumps, writesTheSameBytesAgainAndOthersForAnotherSeed)
{
    make(m_root / "a", {"--small"});
    make(m_root / "b", {"--small"});
    make(m_root / "c", {"--small", "--seed", "2"});
    const auto a = contentsBelow(m_root / "a");
    EXPECT_GT(a.size(), 15U);
    EXPECT_EQ(a, contentsBelow(m_root / "b"));
    EXPECT_NE(a, contentsBelow(m_root / "c"));
}

TEST_F(MakeSampleJumps, writesLogsOfBothFormatsThatHoldJumps)
{
    make(m_root / "season", {"--small"});
    int ones = 0;
    int twos = 0;
    int fullJumps = 0;
    for (const auto& [name, text] : contentsBelow(m_root / "season")) {
        if (!name.ends_with(".CSV") || name.ends_with("SENSOR.CSV"))
            continue;
        SCOPED_TRACE(name);
        const ReadLog log = readLog(text);
        EXPECT_EQ(log.fault, "");
        EXPECT_GT(log.rows, 3U);
        EXPECT_LT(log.fastestSink, 70.0);
        ++(text.starts_with("$FLYS") ? twos : ones);
        if (log.freefall && log.highest > 3500.0 && log.fastestSink > 45.0)
            ++fullJumps;
    }
    EXPECT_GE(ones, 2);
    EXPECT_GE(twos, 5);
    EXPECT_GE(fullJumps, 5);
}

TEST_F(MakeSampleJumps, letsTheNewestJumpBeAFormationThatLeavesTogether)
{
    make(m_root / "season", {"--small", "--end", "2025-05-04"});
    // The last log of the day in the logbook; for each companion the log nearest to it.
    std::optional<double> newest;
    std::map<std::string, std::vector<double>> companions;
    for (const auto& [name, text] : contentsBelow(m_root / "season")) {
        if (!name.ends_with(".CSV") || name.ends_with("SENSOR.CSV") || name.find("/2025-05-04") == std::string::npos)
            continue;
        const ReadLog log = readLog(text);
        if (!log.freefall)
            continue;
        const std::string owner = name.substr(0, name.find('/'));
        if (owner == "Logbook")
            newest = std::fmax(newest.value_or(0.0), *log.freefall);
        else
            companions[owner].push_back(*log.freefall);
    }
    ASSERT_TRUE(newest);
    ASSERT_EQ(companions.size(), 2U);
    for (const auto& [owner, freefalls] : companions) {
        SCOPED_TRACE(owner);
        double nearest = 1e9;
        for (const double freefall : freefalls)
            nearest = std::fmin(nearest, std::fabs(freefall - *newest));
        EXPECT_LT(nearest, 20.0); // logs of one jump are matched within 45 s
        EXPECT_GT(nearest, 0.1);
    }
}

TEST_F(MakeSampleJumps, writesBenchmarkLogsOfTheRowsAskedFor)
{
    for (const std::string_view rows : {"1", "400", "20000"}) {
        make(m_root / rows, {"--files", "2", "--rows", rows});
        const auto contents = contentsBelow(m_root / rows);
        EXPECT_EQ(contents.size(), 3U); // with the list
        for (const char* name : {"jump-00001.CSV", "jump-00002.CSV"}) {
            const ReadLog log = readLog(contents.at(name));
            EXPECT_EQ(log.fault, "");
            EXPECT_EQ(std::to_string(log.rows), rows);
        }
    }
}

TEST_F(MakeSampleJumps, replacesItsOwnFilesAndLeavesOthersAlone)
{
    const fs::path folder = m_root / "samples";
    make(folder, {"--files", "3", "--rows", "5"});
    std::ofstream(folder / "mine.txt") << "keep";
    make(folder, {"--files", "1", "--rows", "5"});
    EXPECT_EQ(contentOf(folder / "mine.txt"), "keep");
    EXPECT_TRUE(fs::exists(folder / "jump-00001.CSV"));
    EXPECT_FALSE(fs::exists(folder / "jump-00002.CSV"));

    // A file of somebody else in the way of a sample stops the run.
    std::ofstream(folder / "jump-00002.CSV") << "mine too";
    EXPECT_THROW(make(folder, {"--files", "2", "--rows", "5"}), OutputError);
    EXPECT_EQ(contentOf(folder / "jump-00002.CSV"), "mine too");

    fs::create_directories(m_root / "foreign");
    std::ofstream(m_root / "foreign" / "jump.csv") << "a real one";
    EXPECT_THROW(make(m_root / "foreign", {"--small"}), OutputError);
    EXPECT_EQ(contentsBelow(m_root / "foreign").size(), 1U);
}

TEST_F(MakeSampleJumps, removesNothingOutsideItsFolder)
{
    const fs::path folder = m_root / "samples";
    make(folder, {"--files", "1", "--rows", "5"});
    fs::create_directories(m_root / "elsewhere");
    std::ofstream(m_root / "elsewhere" / "a.csv") << "a";
    fs::create_directory_symlink(m_root / "elsewhere", folder / "link");
    std::ofstream(folder / ".ospra-samples", std::ios::app) << "../elsewhere/a.csv\nlink/a.csv\n.\n";
    make(folder, {"--files", "1", "--rows", "5"});
    EXPECT_EQ(contentOf(m_root / "elsewhere" / "a.csv"), "a");
}

TEST(SampleSeason, spreadsTheJumpsOverMoreThanAYearAndEndsOnTheDay)
{
    using namespace std::chrono;
    const sys_days end{2026y / September / 20};
    const std::vector<PlannedLoad> loads = planSeason({.seed = 1, .jumps = 160, .companions = 3, .end = end});
    std::vector<std::int64_t> own;
    std::map<std::size_t, int> shared;
    for (const PlannedLoad& load : loads) {
        if (load.people.front() != 0)
            continue;
        own.push_back(load.exitInstant);
        for (std::size_t i = 1; i < load.people.size(); ++i)
            ++shared[load.people[i]];
    }
    ASSERT_EQ(own.size(), 160U);
    const auto dayOf = [](std::int64_t instant) { return floor<days>(sys_time<milliseconds>(milliseconds(instant))); };
    EXPECT_EQ(dayOf(own.back()), end);
    EXPECT_GT(end - dayOf(own.front()), days{14 * 30});
    for (std::size_t i = 1; i < own.size(); ++i)
        EXPECT_GT(own[i] - own[i - 1], 30 * 60'000); // nobody packs faster
    EXPECT_NEAR(shared[1], 35, 3);
    EXPECT_NEAR(shared[2], 25, 3);
    EXPECT_NEAR(shared[3], 10, 3);
}

TEST(SampleOptions, refusesWhatItCannotUnderstand)
{
    using Arguments = std::vector<std::string_view>;
    for (const Arguments& arguments :
         {Arguments{}, Arguments{"a", "b"}, Arguments{"a", "--jumps"}, Arguments{"a", "--jumps", "0"},
          Arguments{"a", "--jumps", "12x"}, Arguments{"a", "--seed", "-1"}, Arguments{"a", "--end", "2026-02-29"},
          Arguments{"a", "--end", "26-02-01"}, Arguments{"a", "--files", "3"}, Arguments{"a", "--bogus", "3"}}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        EXPECT_THROW(static_cast<void>(parseOptions(arguments)), UsageError);
    }
    EXPECT_EQ(parseOptions(Arguments{"--seed", "7", "a", "--end", "2024-02-29"}).seed, 7U);
}

TEST(PortableMath, agreesWithTheLibrary)
{
    for (int i = -120; i <= 120; ++i) {
        const double x = 0.173 * i;
        SCOPED_TRACE(x);
        EXPECT_NEAR(sine(x), std::sin(x), 1e-11);
        EXPECT_NEAR(cosine(x), std::cos(x), 1e-11);
        EXPECT_NEAR(exponential(x) / std::exp(x), 1.0, 1e-11);
        EXPECT_NEAR(angleOf(std::sin(x), std::cos(x)), std::atan2(std::sin(x), std::cos(x)), 1e-11);
    }
}

} // namespace

} // namespace ospra
