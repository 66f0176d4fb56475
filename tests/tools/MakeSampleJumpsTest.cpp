#include "logs/FlySightFile.h"
#include "tools/make-sample-jumps/Options.h"
#include "tools/make-sample-jumps/OutputFolder.h"
#include "tools/make-sample-jumps/makeSamples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
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

/// The rows of a log; those of version 1 stand under two lines of names, those of version 2 begin with `$GNSS`.
std::ptrdiff_t rowCount(const std::string& text)
{
    std::istringstream lines(text);
    std::ptrdiff_t rows = text.starts_with("$FLYS") ? 0 : -2;
    for (std::string line; std::getline(lines, line);)
        rows += rows < 0 || !line.starts_with('$') || line.starts_with("$GNSS") ? 1 : 0;
    return rows;
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
    std::map<bool, int> logs; // by whether they are of version 2
    int fullJumps = 0;
    for (const auto& [name, text] : contentsBelow(m_root / "season")) {
        if (!name.ends_with(".CSV") || name.ends_with("SENSOR.CSV"))
            continue;
        SCOPED_TRACE(name);
        const std::vector<FlySightDataPoint> samples = FlySightFile::parse(text, name).dataPoints;
        EXPECT_EQ(std::ssize(samples), rowCount(text)) << "every row can be read";
        const double highest = std::ranges::max(samples, {}, &FlySightDataPoint::altitudeMSL).altitudeMSL;
        const double fastest = std::ranges::max(samples, {}, &FlySightDataPoint::velocityDown).velocityDown;
        EXPECT_LT(fastest, 70.0);
        ++logs[text.starts_with("$FLYS")];
        fullJumps += highest > 3500.0 && fastest > 45.0 ? 1 : 0;
    }
    EXPECT_GE(logs[false], 2);
    EXPECT_GE(logs[true], 5);
    EXPECT_GE(fullJumps, 5);
}

TEST_F(MakeSampleJumps, writesBenchmarkLogsOfTheRowsAskedFor)
{
    for (const std::string_view rows : {"1", "400", "20000"}) {
        make(m_root / rows, {"--files", "2", "--rows", rows});
        const auto contents = contentsBelow(m_root / rows);
        EXPECT_EQ(contents.size(), 3U); // with the list
        for (const char* name : {"jump-00001.CSV", "jump-00002.CSV"}) {
            EXPECT_EQ(std::to_string(rowCount(contents.at(name))), rows);
            EXPECT_EQ(std::to_string(FlySightFile::parse(contents.at(name), name).dataPoints.size()), rows);
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

} // namespace

} // namespace ospra
