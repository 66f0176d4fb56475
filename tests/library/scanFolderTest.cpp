#include "library/scanFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>

namespace ospra {
namespace {

namespace fs = std::filesystem;

constexpr Instant start{1'714'910'400.0}; // 2024-05-05T12:00:00Z

constexpr std::string_view header = "time,lat,lon,hMSL,velN,velE,velD,hAcc,vAcc,sAcc,gpsFix,numSV\n"
                                    ",(deg),(deg),(m),(m/s),(m/s),(m/s),(m),(m),(m/s),,\n";
constexpr std::string_view climbing = "2024-05-05T12:00:00.00Z,47,8,900,40,0,-5.0,3,4,0.4,3,12\n";
constexpr std::string_view falling = "2024-05-05T12:10:00.00Z,47,8,4000,40,0,20.5,3,4,0.4,3,12\n";

/// A folder that is gone when the test is over.
class ScanFolder : public testing::Test {
protected:
    ScanFolder()
    {
        std::string name = (fs::temp_directory_path() / "ospra-scan-XXXXXX").string();
        m_folder = mkdtemp(name.data());
    }
    ~ScanFolder() override { fs::remove_all(m_folder); }

    void write(const fs::path& file, std::string_view rows = {}) const
    {
        fs::create_directories((m_folder / file).parent_path());
        std::ofstream(m_folder / file, std::ios::binary) << header << rows;
    }

    [[nodiscard]] std::vector<JumpFileEntry> scan() const { return scanFolder(makeJumper(m_folder, 0)); }

    /// The paths found, as they lie below the folder.
    [[nodiscard]] std::vector<std::string> scannedPaths() const
    {
        std::vector<std::string> paths;
        for (const JumpFileEntry& entry : scan())
            paths.push_back(entry.url.lexically_relative(m_folder).string());
        return paths;
    }

    fs::path m_folder;
};

TEST_F(ScanFolder, findsLogsAtAnyDepthInTheOrderOfTheirPaths)
{
    for (const char* const file : {"b.csv", "B.CSV", "a/z.csv", "a-b.csv", "deep/er/still/TRACK.CSV", "SENSOR.CSV",
                                   "a/sensor.csv", "notes.txt", ".hidden.csv", ".trash/old.csv", "\xC3\xA9.csv"})
        write(file);
    EXPECT_EQ(scannedPaths(), (std::vector<std::string>{"B.CSV", "a-b.csv", "a/z.csv", "b.csv",
                                                        "deep/er/still/TRACK.CSV", "\xC3\xA9.csv"}));
}

TEST_F(ScanFolder, datesAndNamesEachLog)
{
    write("20-15-30/TRACK.CSV", std::string(climbing) + std::string(falling));
    write("climb.csv", climbing);
    write("empty.csv");
    const Jumper jumper = makeJumper(m_folder, 0);
    const std::vector<JumpFileEntry> entries = scanFolder(jumper);
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].name, "20-15-30");
    EXPECT_EQ(entries[0].jumpDate, start);
    EXPECT_EQ(entries[0].freefallDate, Instant{start.seconds + 600});
    EXPECT_EQ(entries[0].jumperID, jumper.id);
    EXPECT_EQ(entries[1].name, "climb");
    EXPECT_EQ(entries[1].jumpDate, start);
    EXPECT_EQ(entries[1].freefallDate, std::nullopt);
    EXPECT_EQ(entries[2].jumpDate, std::nullopt); // and not the dates of the file before it
}

TEST_F(ScanFolder, listsWhatIsNamedLikeALogButIsNone)
{
    write("folder.csv/inside.csv", climbing);
    write("elsewhere/log.csv", climbing);
    fs::create_directory_symlink(m_folder / "elsewhere", m_folder / "link.csv");
    fs::create_symlink(m_folder / "elsewhere/log.csv", m_folder / "linked-log.csv");
    fs::create_symlink(m_folder / "gone", m_folder / "dangling.csv");
    ASSERT_EQ(mkfifo((m_folder / "pipe.csv").c_str(), 0600), 0); // opening it plainly would wait for a writer

    std::vector<std::string> dated;
    for (const JumpFileEntry& entry : scan())
        if (entry.jumpDate)
            dated.push_back(entry.url.lexically_relative(m_folder).string());
    EXPECT_EQ(dated, (std::vector<std::string>{"elsewhere/log.csv", "folder.csv/inside.csv", "linked-log.csv"}));
    EXPECT_EQ(scannedPaths(),
              (std::vector<std::string>{"dangling.csv", "elsewhere/log.csv", "folder.csv", "folder.csv/inside.csv",
                                        "link.csv", "linked-log.csv", "pipe.csv"}));
}

TEST_F(ScanFolder, isEmptyWithoutAFolderAndEndsWhenStopped)
{
    EXPECT_TRUE(scan().empty());
    EXPECT_TRUE(scanFolder(makeJumper(m_folder / "gone", 0)).empty());
    write("a.csv");
    EXPECT_TRUE(scanFolder(makeJumper(m_folder / "a.csv", 0)).empty());
    std::stop_source source;
    source.request_stop();
    EXPECT_TRUE(scanFolder(makeJumper(m_folder, 0), source.get_token()).empty());
}

} // namespace
} // namespace ospra
