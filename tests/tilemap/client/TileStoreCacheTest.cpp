#include "tests/tilemap/client/StoreBed.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace ospra {
namespace {

using TileStoreCache = StoreTest;
using namespace std::chrono_literals;

bool isConditional(const ServerRequest& request)
{
    return request.headers.contains("if-none-match") || request.headers.contains("if-modified-since");
}

TEST_F(TileStoreCache, showsWhatHasExpiredAndAsksWhetherItHolds)
{
    server.behave({.headers = "Cache-Control: max-age=0\r\nLast-Modified: Mon, 02 Mar 2026 10:00:00 GMT\r\n"});
    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);

    server.behave({.delay = 300ms}); // which says it is fresh for a day
    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    ASSERT_TRUE(waitUntil([&] { return server.count() == 2; })); // shown before that was answered
    EXPECT_TRUE(isConditional(server.requests()[1]));
    EXPECT_EQ(server.requests()[1].headers.at("if-modified-since"), "Mon, 02 Mar 2026 10:00:00 GMT");
    store().want({tileAt(1)}); // a view that says so again does not break it off
    QTest::qWait(450);

    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    QTest::qWait(50);
    EXPECT_EQ(server.count(), 2); // the answer renewed it, so that nobody asks
}

TEST_F(TileStoreCache, replacesWhatHasChanged)
{
    server.behave({.headers = "Cache-Control: no-cache\r\n"});
    for (const Qt::GlobalColor color : {Qt::blue, Qt::red}) {
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(color);
        server.put(pathOf(tileAt(1)), jpegOf(picture));
        ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    }
    EXPECT_TRUE(waitUntil([&] { return qRed(store().tile(tileAt(1))->picture.pixel(5, 5)) > 200; }));
}

TEST_F(TileStoreCache, showsWhatHasExpiredWithoutNetwork)
{
    server.behave({.headers = "Cache-Control: max-age=0\r\n"});
    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    server.vanish();
    options.waitUnit = 5ms;
    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    QTest::qWait(150);
    EXPECT_EQ(store().state(tileAt(1)), TileState::ready);
}

TEST_F(TileStoreCache, keepsNothingThatMayNotBeKept)
{
    server.behave({.headers = "Cache-Control: no-store\r\n"});
    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    ASSERT_EQ(server.count(), 2);
    EXPECT_FALSE(isConditional(server.requests()[1]));
}

TEST_F(TileStoreCache, isDoneWithoutWhereTheDiskDoesNotPlayAlong)
{
    const QString good = options.cacheFolder;
    QDir().mkpath(good + QStringLiteral("/ground/12-7-1400.tile/inner")); // a folder where a file should be
    QFile file(good + QStringLiteral("/plain"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const QString& folder : {QString(), good, file.fileName(), QStringLiteral("/proc/no/such")}) {
        options.cacheFolder = folder;
        EXPECT_EQ(fetchAnew(tileAt(7)), TileState::ready) << folder.toStdString();
    }
    EXPECT_TRUE(QDir(good + QStringLiteral("/ground/12-7-1400.tile/inner")).exists());
}

TEST_F(TileStoreCache, fetchesAnewWhatIsNoPictureAnyMore)
{
    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    stop();
    QFile file(options.cacheFolder + QStringLiteral("/ground/12-1-1400.tile"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray bytes = file.readAll();
    const qsizetype picture = bytes.indexOf("\xFF\xD8\xFF");
    ASSERT_GT(picture, 0);
    file.seek(picture);
    file.write(QByteArray(bytes.size() - picture, '\0')); // as a disk leaves it after a power cut
    file.close();
    EXPECT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    ASSERT_EQ(server.count(), 2);
    EXPECT_FALSE(isConditional(server.requests()[1]));
}

} // namespace
} // namespace ospra
