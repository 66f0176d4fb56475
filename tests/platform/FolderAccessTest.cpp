#include "platform/FolderAccess.h"

#include "surroundings.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace ospra {
namespace {

TEST(FolderAccess, aHandleLeadsBackToItsFolder)
{
    const TemporaryFolder folder;
    const std::filesystem::path logs = folder.path() / "logs\nof \xFF";
    std::filesystem::create_directory(logs);
    const auto access = makeFolderAccess();

    const auto handle = access->makeHandle(logs);
    ASSERT_TRUE(handle);
    const auto found = makeFolderAccess()->resolve(*handle);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->path, logs);
    EXPECT_FALSE(found->isStale);

    std::filesystem::rename(logs, folder.path() / "elsewhere"); // kept, so that its inode is not used again
    EXPECT_FALSE(access->resolve(*handle));
    std::filesystem::create_directory(logs);
    const auto replaced = access->resolve(*handle);
    ASSERT_TRUE(replaced);
    EXPECT_EQ(replaced->path, logs);
    EXPECT_TRUE(replaced->isStale);

    std::filesystem::remove(logs);
    folder.write("logs\nof \xFF", "a file in its place");
    EXPECT_FALSE(access->resolve(*handle));
}

TEST(FolderAccess, noDamagedHandleIsTakenForAnother)
{
    const TemporaryFolder folder;
    const auto access = makeFolderAccess();
    const std::string handle = access->makeHandle(folder.path()).value_or("");
    ASSERT_TRUE(access->resolve(handle));
    for (std::size_t i = 0; i < handle.size(); ++i) {
        std::string damaged = handle;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        EXPECT_FALSE(access->resolve(damaged)) << i;
        EXPECT_FALSE(access->resolve(handle.substr(0, i))) << i;
    }
    EXPECT_FALSE(access->resolve(handle + "\n"));
    EXPECT_FALSE(access->resolve(folder.path().string()));
}

TEST(FolderAccess, onlyReadableFoldersAreGranted)
{
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.write("a.csv", "");
    const std::filesystem::path fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0666), 0);
    const auto access = makeFolderAccess();
    for (const std::filesystem::path& path : {file, fifo, folder.path() / "gone", std::filesystem::path()}) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(access->start(path));
        EXPECT_FALSE(access->makeHandle(path));
    }
    EXPECT_TRUE(access->start(folder.path()));
    EXPECT_TRUE(access->start(folder.path() / ""));
    access->stop(folder.path());
    access->stop(folder.path());

    using std::filesystem::perms;
    for (const auto half : {perms::others_read | perms::owner_read, perms::others_exec | perms::owner_exec}) {
        const std::filesystem::path closed = folder.path() / "closed";
        std::filesystem::create_directory(closed);
        std::filesystem::permissions(closed, half);
        {
            const OrdinaryUser user;
            EXPECT_FALSE(access->start(closed));
        }
        std::filesystem::remove(closed);
    }
}

TEST(StandardizedPath, isTheSameForAllWaysToWriteAFolder)
{
    for (const char* const path :
         {"/a/b", "/a/b/", "/a/./b", "/a/b/.", "/a/c/../b", "//a//b//", "/../a/b", "/a/b/c/.."})
        EXPECT_EQ(standardizedPath(path).native(), "/a/b") << path;
    EXPECT_EQ(standardizedPath("/a/../").native(), "/");
    EXPECT_EQ(standardizedPath("//").native(), "/");
    EXPECT_EQ(standardizedPath("a/c/../b/").native(), "a/b");
    EXPECT_EQ(standardizedPath("").native(), "");
    EXPECT_NE(standardizedPath("/a/b"), standardizedPath("/a/B"));
}

} // namespace
} // namespace ospra
