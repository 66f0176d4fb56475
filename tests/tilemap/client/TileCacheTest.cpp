#include "tilemap/client/TileCache.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ospra {
namespace {

class TileCacheTest : public testing::Test {
protected:
    [[nodiscard]] TileCache cache(qint64 limit = 1 << 20) const { return {m_folder.path(), limit, {}}; }
    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    void write(const char* name, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    [[nodiscard]] QByteArray bytes(const char* name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    /// Makes a file look used so many seconds ago.
    void age(const char* name, int seconds) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-seconds), QFileDevice::FileModificationTime);
    }

    QTemporaryDir m_folder;
};

CachedTile tileOf(qsizetype size)
{
    return {.address = "https://example.com/1",
            .eTag = "W/\"a b\"",
            .lastModified = "Mon, 02 Mar 2026 10:00:00 GMT",
            .freshUntil = 1'800'000'000,
            .body = QByteArray(size, '\n')};
}

TEST_F(TileCacheTest, keepsEachTileInAFileOfItsOwn)
{
    cache().write("eox", {3, 1, 2}, tileOf(1000));
    cache().write("eox", {3, 1, 2}, tileOf(900));
    cache().write("eox", TileCache::document, tileOf(0));
    EXPECT_EQ(cache().read("eox", {3, 1, 2}).value().body.size(), 900);
    EXPECT_TRUE(cache().read("eox", TileCache::document));
    EXPECT_FALSE(cache().read("eox", {3, 2, 1}));
    EXPECT_FALSE(cache().read("ign", {3, 1, 2}));
    EXPECT_EQ(QDir(path("eox")).entryList(QDir::Files),
              QStringList({QStringLiteral("3-1-2.tile"), QStringLiteral("source.tile")}));
}

TEST_F(TileCacheTest, staysInItsFolder)
{
    for (const char* source : {"..", ".", "", "a/b", "A"}) {
        cache().write(source, {3, 1, 2}, tileOf(10));
        EXPECT_FALSE(cache().read(source, {3, 1, 2})) << source;
    }
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
    EXPECT_FALSE(QFile::exists(m_folder.path() + QStringLiteral("/../3-1-2.tile")));
}

TEST_F(TileCacheTest, doesNotReadWhatIsCutOffOrBroken)
{
    cache().write("eox", {3, 1, 2}, tileOf(1000));
    const QByteArray whole = bytes("eox/3-1-2.tile");
    for (qsizetype size = 0; size < whole.size(); size += size < 150 ? 1 : 100) {
        write("eox/3-1-2.tile", whole.first(size));
        EXPECT_FALSE(cache().read("eox", {3, 1, 2})) << size;
    }
    write("eox/3-1-2.tile", whole + "x");
    EXPECT_FALSE(cache().read("eox", {3, 1, 2}));
    write("eox/3-1-2.tile", QByteArray(whole).replace("1800000000", "18000000x0"));
    EXPECT_FALSE(cache().read("eox", {3, 1, 2}));
    cache().write("eox", {3, 1, 2}, tileOf(5)); // its own form, broken: written anew
    EXPECT_TRUE(cache().read("eox", {3, 1, 2}));
}

TEST_F(TileCacheTest, leavesAloneWhatIsNotItsOwn)
{
    write("eox/3-1-2.tile", "somebody's notes");
    cache().write("eox", {3, 1, 2}, tileOf(10));
    cache().remove("eox", {3, 1, 2});
    EXPECT_EQ(bytes("eox/3-1-2.tile"), "somebody's notes");

    write("target", "ospra-tile 1\nlinked to");
    QFile::link(path("target"), path("eox/3-1-3.tile"));
    cache().write("eox", {3, 1, 3}, tileOf(10));
    cache().remove("eox", {3, 1, 3});
    EXPECT_EQ(bytes("target"), "ospra-tile 1\nlinked to");
    EXPECT_FALSE(cache().read("eox", {3, 1, 3}));
    EXPECT_TRUE(QFile::exists(path("eox/3-1-3.tile")));
}

TEST_F(TileCacheTest, letsGoWhatWasUsedLongestAgo)
{
    write("notes.txt", QByteArray(9000, 'n'));
    write("eox/readme.txt", QByteArray(9000, 'n'));
    write("eox/1-0-0.tile", "not a tile of ours");
    age("eox/1-0-0.tile", 9000);
    TileCache first = cache(100'000);
    const auto source = [](int i) { return i % 2 == 0 ? "eox" : "ign"; };
    for (int i = 0; i < 9; ++i) {
        first.write(source(i), {5, i, 0}, tileOf(10'000));
        age(qPrintable(QStringLiteral("%1/5-%2-0.tile").arg(source(i)).arg(i)), 1000 + i);
    }
    ASSERT_TRUE(first.read("ign", {5, 7, 0})); // a use

    TileCache second = cache(100'000); // counts what is there
    second.write("eox", {6, 0, 0}, tileOf(10'000));
    // Ten tiles of 10,100 bytes or so are too many; 90,000 bytes hold eight. The two used longest ago are gone.
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(second.read(source(i), {5, i, 0}).has_value(), i != 6 && i != 8) << i;
    EXPECT_TRUE(second.read("eox", {6, 0, 0}));
    EXPECT_EQ(bytes("eox/1-0-0.tile"), "not a tile of ours");
    EXPECT_EQ(bytes("notes.txt").size(), 9000);
    EXPECT_EQ(bytes("eox/readme.txt").size(), 9000);
}

} // namespace
} // namespace ospra
