#include "platform/Files.h"

#include "surroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>

namespace ospra {
namespace {

using testing::UnorderedElementsAre;

FileReadFailure failureOf(const std::filesystem::path& path)
{
    FileReader reader;
    EXPECT_EQ(reader.read(path), std::nullopt);
    return reader.failure();
}

TEST(FileReader, readsOneFileAfterAnotherWhole)
{
    const TemporaryFolder folder;
    std::string large(3'000'000, '\0');
    for (std::size_t i = 0; i < large.size(); ++i)
        large[i] = static_cast<char>(i * 7 / 3);
    FileReader reader;
    for (const std::string& text : {std::string("short"), large, std::string(), std::string("short again")})
        EXPECT_TRUE(reader.read(folder.write("log.csv", text)) == text) << text.size();
}

/// A short one, and the names of all symbols of the kernel, which are several MB.
TEST(FileReader, readsToTheEndWhatNamesNoSize)
{
    FileReader reader;
    for (const char* const path : {"/proc/version", "/proc/kallsyms"}) {
        std::ifstream stream(path, std::ios::binary);
        const std::string expected{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        EXPECT_TRUE(!stream || reader.read(path) == expected) << path; // not every system has both
    }
}

TEST(FileReader, namesWhyItFailed)
{
    const TemporaryFolder folder;
    const std::filesystem::path fifo = folder.path() / "fifo.csv";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0666), 0);
    const std::filesystem::path huge = folder.write("huge.csv", "x");
    std::filesystem::resize_file(huge, std::uintmax_t{1} << 42u);
    const std::filesystem::path closed = folder.write("closed.csv", "x");
    std::filesystem::permissions(closed, std::filesystem::perms::none);
    std::filesystem::create_symlink("loop.csv", folder.path() / "loop.csv");

    for (const std::filesystem::path& path : {folder.path() / "gone.csv", closed / "below-a-file.csv"})
        EXPECT_EQ(failureOf(path), FileReadFailure::notFound) << path;
    for (const std::filesystem::path& path : {fifo, folder.path(), std::filesystem::path("/dev/zero")})
        EXPECT_EQ(failureOf(path), FileReadFailure::notAFile) << path;
    EXPECT_EQ(failureOf(huge), FileReadFailure::tooLarge);
    EXPECT_EQ(failureOf(folder.path() / "loop.csv"), FileReadFailure::unreadable);
    const OrdinaryUser user;
    EXPECT_EQ(failureOf(closed), FileReadFailure::notPermitted);
}

/// The entries relative to the folder.
std::vector<std::string> walked(const std::filesystem::path& folder)
{
    std::vector<std::string> names;
    for (const std::filesystem::path& path : walkFolder(folder))
        names.push_back(path.lexically_relative(folder).string());
    return names;
}

TEST(WalkFolder, listsAllButHiddenEntriesAndFollowsNoLinks)
{
    const TemporaryFolder folder;
    for (const char* const name : {"a.csv", ".hidden.csv", ".hidden/b.csv", "day/TRACK.CSV", "day/.x", "day/x/y/z.csv"})
        folder.write(name, "");
    std::filesystem::create_directory(folder.path() / "folder.csv");
    std::filesystem::create_directory_symlink(folder.path(), folder.path() / "day" / "back");
    std::filesystem::create_symlink("nowhere", folder.path() / "dangling.csv");
    std::filesystem::create_symlink("self", folder.path() / "self");
    ASSERT_EQ(::mkfifo((folder.path() / "fifo.csv").c_str(), 0666), 0);

    EXPECT_THAT(walked(folder.path()),
                UnorderedElementsAre("a.csv", "day", "day/TRACK.CSV", "day/back", "day/x", "day/x/y", "day/x/y/z.csv",
                                     "folder.csv", "dangling.csv", "self", "fifo.csv"));
    EXPECT_THAT(walked(folder.path() / "day/back/day/x"), UnorderedElementsAre("y", "y/z.csv")) << "through a link";
    EXPECT_EQ(walkFolder(folder.path() / "day/back").size(), 11u) << "from a link";
    EXPECT_THAT(walked(folder.path() / ".hidden"), UnorderedElementsAre("b.csv")) << "a hidden folder, chosen itself";
    EXPECT_TRUE(walkFolder(folder.path() / "a.csv").empty());
    EXPECT_TRUE(walkFolder(folder.path() / "gone").empty());
    EXPECT_TRUE(walkFolder({}).empty());
}

TEST(WalkFolder, passesOverWhatItCannotOpen)
{
    const TemporaryFolder folder;
    folder.write("closed/inner.csv", "");
    folder.write("open/inner.csv", "");
    std::filesystem::permissions(folder.path() / "closed", std::filesystem::perms::none);
    {
        const OrdinaryUser user;
        EXPECT_THAT(walked(folder.path()), UnorderedElementsAre("closed", "open", "open/inner.csv"));
    }
    std::filesystem::permissions(folder.path() / "closed", std::filesystem::perms::all);
}

TEST(WalkFolder, endsWhereThePathsBecomeTooLong)
{
    const TemporaryFolder folder;
    folder.write("other/a.csv", "");
    const std::string name(200, 'd');
    const int start = ::open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(::chdir(folder.path().c_str()), 0);
    for (int depth = 0; depth < 30; ++depth) { // about 6,000 bytes, reached step by step
        ASSERT_EQ(::mkdir(name.c_str(), 0777), 0);
        ASSERT_EQ(::chdir(name.c_str()), 0);
    }
    ASSERT_EQ(::fchdir(start), 0);
    ::close(start);

    const std::vector<std::filesystem::path> entries = walkFolder(folder.path());
    EXPECT_THAT(entries, testing::Contains(folder.path() / "other/a.csv"));
    EXPECT_GT(entries.size(), 15u);
    for (const std::filesystem::path& entry : entries)
        EXPECT_TRUE(std::filesystem::exists(entry));
}

TEST(WalkFolder, endsEarlyWhenAskedTo)
{
    std::stop_source stop;
    stop.request_stop();
    const TemporaryFolder folder;
    folder.write("a.csv", "");
    EXPECT_TRUE(walkFolder(folder.path(), stop.get_token()).empty());
}

} // namespace
} // namespace ospra
