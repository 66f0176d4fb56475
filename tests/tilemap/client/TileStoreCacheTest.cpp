#include "tests/tilemap/client/StoreBed.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace ospra {
namespace {

using Kind = ServerManner::Kind;

bool isConditional(const ServerRequest& request)
{
    return request.headers.contains("if-none-match") || request.headers.contains("if-modified-since");
}

TEST(TileStoreCache, servesTheNextRunWithoutAsking)
{
    StoreBed bed;
    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    waitFor(std::chrono::milliseconds(50));
    EXPECT_EQ(bed.server.count(), 1);
}

TEST(TileStoreCache, showsWhatHasExpiredAndAsksWhetherItHolds)
{
    StoreBed bed;
    bed.server.behave({.headers = "Cache-Control: max-age=0\r\nLast-Modified: Mon, 02 Mar 2026 10:00:00 GMT\r\n"});
    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);

    bed.server.behave({.delay = std::chrono::milliseconds(300)}); // which says it is fresh for a day
    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    EXPECT_TRUE(waitUntil([&] { return bed.server.count() == 2; })); // shown before that was answered
    EXPECT_TRUE(isConditional(bed.server.requests()[1]));
    EXPECT_EQ(bed.server.requests()[1].headers.at("if-modified-since"), "Mon, 02 Mar 2026 10:00:00 GMT");
    bed.store().want({tileAt(1)}); // a view that says so again does not break it off
    waitFor(std::chrono::milliseconds(450));

    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    waitFor(std::chrono::milliseconds(50));
    EXPECT_EQ(bed.server.count(), 2); // the answer renewed it
}

TEST(TileStoreCache, replacesWhatHasChanged)
{
    StoreBed bed;
    bed.server.behave({.headers = "Cache-Control: no-cache\r\n"});
    bed.server.put(pathOf(tileAt(1)), "");
    bed.start();
    const auto jpeg = [](const QColor& color) {
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(color);
        return jpegOf(picture);
    };
    bed.server.put(pathOf(tileAt(1)), jpeg(Qt::blue));
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    bed.server.put(pathOf(tileAt(1)), jpeg(Qt::red));
    TileStore& store = bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    EXPECT_TRUE(waitUntil([&] { return qRed(store.tile(tileAt(1))->picture.pixel(5, 5)) > 200; }));
}

TEST(TileStoreCache, showsWhatHasExpiredWithoutNetwork)
{
    StoreBed bed;
    bed.server.behave({.headers = "Cache-Control: max-age=0\r\n"});
    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    bed.server.vanish();
    bed.options.waitUnit = std::chrono::milliseconds(5);
    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    waitFor(std::chrono::milliseconds(150));
    EXPECT_EQ(bed.store().state(tileAt(1)), TileState::ready);
}

TEST(TileStoreCache, keepsNothingThatMayNotBeKept)
{
    StoreBed bed;
    bed.server.behave({.headers = "Cache-Control: no-store\r\n"});
    for (int run = 0; run < 2; ++run) {
        bed.start();
        ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    }
    EXPECT_EQ(bed.server.count(), 2);
    EXPECT_FALSE(isConditional(bed.server.requests()[1]));
}

TEST(TileStoreCache, isDoneWithoutWhereTheDiskDoesNotPlayAlong)
{
    StoreBed bed;
    const QString good = bed.options.cacheFolder;
    QDir().mkpath(good + QStringLiteral("/ground/12-7-1400.tile/inner")); // a folder where a file should be
    QFile file(good + QStringLiteral("/plain"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const QString& folder : {QString(), good, file.fileName(), QStringLiteral("/proc/no/such")}) {
        SCOPED_TRACE(folder.toStdString());
        bed.options.cacheFolder = folder;
        bed.start();
        EXPECT_EQ(bed.fetch(tileAt(7)), TileState::ready);
    }
    EXPECT_TRUE(QDir(good + QStringLiteral("/ground/12-7-1400.tile/inner")).exists());
}

TEST(TileStoreCache, fetchesAnewWhatIsNoPictureAnyMore)
{
    StoreBed bed;
    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    bed.stop();
    QFile file(bed.options.cacheFolder + QStringLiteral("/ground/12-1-1400.tile"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray bytes = file.readAll();
    const qsizetype picture = bytes.indexOf("\xFF\xD8\xFF");
    ASSERT_GT(picture, 0);
    file.seek(picture);
    file.write(QByteArray(bytes.size() - picture, '\0')); // as a disk leaves it after a power cut
    file.close();
    bed.start();
    EXPECT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    EXPECT_EQ(bed.server.count(), 2);
    EXPECT_FALSE(isConditional(bed.server.requests()[1]));
}

} // namespace
} // namespace ospra
