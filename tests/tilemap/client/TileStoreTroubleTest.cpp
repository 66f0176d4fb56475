#include "tests/tilemap/client/StoreBed.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace ospra {
namespace {

using Kind = ServerManner::Kind;
using TileTrouble = StoreTest;
using namespace std::chrono_literals;

/// Wants a tile again and again, as a view does that pans to and fro.
void wantAgain(StoreBed& bed, const TileKey& key)
{
    for (int i = 0; i < 3; ++i) {
        bed.store().want({});
        QTest::qWait(10);
        bed.store().want({key});
        QTest::qWait(10);
    }
}

TEST(TileAnswer, thatIsNoPictureIsAskedForOnce)
{
    struct Row {
        const char* name;
        ServerManner manner;
    };
    for (const auto& [name, manner] : {
             Row{"html", {.kind = Kind::html}},
             Row{"truncated", {.kind = Kind::truncated}},
             Row{"huge", {.kind = Kind::hugePicture}},
             Row{"endless", {.kind = Kind::endless}},
             Row{"204", {.kind = Kind::status, .status = 204}},
             Row{"404", {.kind = Kind::status, .status = 404}},
             Row{"403", {.kind = Kind::status, .status = 403}},
             Row{"304 to a plain request", {.kind = Kind::status, .status = 304}},
         }) {
        SCOPED_TRACE(name);
        StoreBed bed;
        bed.options.waitUnit = 1000ms; // so that no time limit is what ends it
        bed.server.behave(manner);
        EXPECT_EQ(bed.fetchAnew(tileAt(1)), TileState::missing);
        wantAgain(bed, tileAt(1));
        EXPECT_EQ(bed.server.count(), 1);
        bed.server.behave({});
        EXPECT_EQ(bed.fetch(tileAt(2)), TileState::ready);     // the source goes on
        EXPECT_EQ(bed.fetchAnew(tileAt(1)), TileState::ready); // nothing of it was kept
    }
}

TEST(TileAnswer, thatTheServerIsFailingIsAskedForThrice)
{
    for (const int status : {500, 503, 429}) {
        SCOPED_TRACE(status);
        StoreBed bed;
        bed.options.waitUnit = 10ms;
        bed.server.behave({.kind = Kind::status, .status = status});
        EXPECT_EQ(bed.fetchAnew(tileAt(1)), TileState::missing);
        QTest::qWait(100);
        wantAgain(bed, tileAt(1));
        EXPECT_EQ(bed.server.count(), 3);
    }
}

TEST_F(TileTrouble, aPictureThatIsTooSmallSaysThatThereIsNone)
{
    MapSource source = imagery();
    source.leastBytes = 1'000'000;
    start({source});
    EXPECT_EQ(fetch(tileAt(1)), TileState::missing);
}

TEST_F(TileTrouble, redirectsStayOnTheirServer)
{
    const TileServer other;
    const std::string path = pathOf(tileAt(9));
    for (const std::string& target : {other.address() + path, std::string("ftp://127.0.0.1/x"),
                                      std::string("file:///etc/hostname"), pathOf(tileAt(1))}) { // the last goes round
        server.behave({.kind = Kind::redirect, .target = QByteArray::fromStdString(target)}, pathOf(tileAt(1)));
        EXPECT_EQ(fetchAnew(tileAt(1)), TileState::missing) << target;
    }
    EXPECT_EQ(other.count(), 0);
    server.behave({.kind = Kind::redirect, .target = QByteArray::fromStdString(path)}, pathOf(tileAt(1)));
    EXPECT_EQ(fetchAnew(tileAt(1)), TileState::ready);
}

TEST_F(TileTrouble, aBusyServerIsWaitedFor)
{
    server.behave({.kind = Kind::status, .status = 503, .headers = "Retry-After: 8\r\n", .times = 1}); // of 50 ms
    QElapsedTimer timer;
    timer.start();
    start().want({tileAt(1)});
    ASSERT_TRUE(waitUntil([&] { return server.count() == 1; }));
    QTest::qWait(100);
    store().want({tileAt(1), tileAt(2)}); // the other tile waits too
    QTest::qWait(100);
    EXPECT_EQ(server.count(), 1);
    EXPECT_EQ(store().state(tileAt(1)), TileState::unknown);
    ASSERT_TRUE(becomes(TileState::ready, tileAt(1)));
    EXPECT_GE(timer.elapsed(), 400);
    EXPECT_TRUE(becomes(TileState::ready, tileAt(2)));
}

TEST_F(TileTrouble, aHostThatRefusesThriceIsLeftAlone)
{
    for (const int x : {1, 2, 3})
        server.behave({.kind = Kind::status, .status = 403}, pathOf(tileAt(x)));
    start();
    for (const int x : {1, 2, 3, 10})
        EXPECT_EQ(fetch(tileAt(x)), TileState::missing) << x;
    EXPECT_EQ(server.count(), 3);
    EXPECT_EQ(fetchAnew(tileAt(10)), TileState::ready); // in another run
}

TEST_F(TileTrouble, refusedConnectionsEndTheHostToo)
{
    options.waitUnit = 5ms;
    server.vanish();
    start().want(tilesFrom(1, 3));
    ASSERT_TRUE(becomes(TileState::missing, tileAt(3)));
    server.comeBack();
    QTest::qWait(500); // thrice the first silence
    EXPECT_EQ(server.count(), 0);
}

TEST(TileServerThatHangs, isLeftAndTriedAgainGently)
{
    for (const Kind kind : {Kind::silence, Kind::drip, Kind::brokenOff, Kind::reset}) {
        SCOPED_TRACE(static_cast<int>(kind));
        StoreBed bed;
        bed.options.waitUnit = 10ms; // 300 ms without a byte, 600 ms in all
        bed.server.behave({.kind = kind, .delay = 20ms});
        bed.start().want({tileAt(1)});
        ASSERT_TRUE(bed.becomes(TileState::missing, tileAt(1)));
        const int asked = bed.server.count();
        EXPECT_GE(asked, 3);
        bed.store().want(tilesFrom(1, 5)); // missing at once: nobody is there
        ASSERT_TRUE(bed.becomes(TileState::missing, tileAt(5)));
        EXPECT_EQ(bed.server.count(), asked);
        bed.server.behave({});
        for (const TileKey& key : tilesFrom(1, 5)) // without being wanted anew
            ASSERT_TRUE(bed.becomes(TileState::ready, key)) << key.tile.x;
    }
}

} // namespace
} // namespace ospra
