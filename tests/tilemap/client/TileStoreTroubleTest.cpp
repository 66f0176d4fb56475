#include "tests/tilemap/client/StoreBed.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ospra {
namespace {

using Kind = ServerManner::Kind;

/// Wants a tile again and again, as a view does that pans to and fro.
void wantAgain(StoreBed& bed, const TileKey& key)
{
    for (int i = 0; i < 3; ++i) {
        bed.store().want({});
        waitFor(std::chrono::milliseconds(10));
        bed.store().want({key});
        waitFor(std::chrono::milliseconds(10));
    }
}

TEST(TileTrouble, aSourceThatHasNoPictureIsAskedOnce)
{
    struct Row {
        const char* name;
        ServerManner manner;
    };
    const std::vector<Row> rows{
        {"html", {.kind = Kind::html}},
        {"svg", {.kind = Kind::svg}},
        {"truncated", {.kind = Kind::truncated}},
        {"empty", {.kind = Kind::empty}},
        {"huge", {.kind = Kind::hugePicture}},
        {"endless", {.kind = Kind::endless}},
        {"204", {.kind = Kind::status, .status = 204}},
        {"400", {.kind = Kind::status, .status = 400}},
        {"404", {.kind = Kind::status, .status = 404}},
        {"410", {.kind = Kind::status, .status = 410}},
        {"403", {.kind = Kind::status, .status = 403}},
        {"304 to a plain request", {.kind = Kind::status, .status = 304}},
    };
    for (const auto& [name, manner] : rows) {
        SCOPED_TRACE(name);
        StoreBed bed;
        bed.options.waitUnit = std::chrono::milliseconds(1000); // so that no time limit is what ends it
        bed.server.behave(manner);
        bed.start();
        EXPECT_EQ(bed.fetch(tileAt(1)), TileState::missing);
        wantAgain(bed, tileAt(1));
        EXPECT_EQ(bed.server.count(), 1);
        bed.server.behave({});
        EXPECT_EQ(bed.fetch(tileAt(2)), TileState::ready); // the source goes on
        bed.start();
        EXPECT_EQ(bed.fetch(tileAt(1)), TileState::ready); // nothing of it was kept
    }
}

TEST(TileTrouble, aPictureThatIsTooSmallSaysThatThereIsNone)
{
    StoreBed bed;
    MapSource source = bed.imagery();
    source.leastBytes = 1'000'000;
    bed.start({source});
    EXPECT_EQ(bed.fetch(tileAt(1)), TileState::missing);
}

TEST(TileTrouble, redirectsStayOnTheirServer)
{
    StoreBed bed;
    TileServer other;
    const QByteArray path = QByteArray::fromStdString(pathOf(tileAt(9)));
    for (const QByteArray& target :
         {QByteArray::fromStdString(other.address()) + path, QByteArray("ftp://127.0.0.1/x"),
          QByteArray("file:///etc/hostname"), QByteArray::fromStdString(pathOf(tileAt(1)))}) { // the last goes round
        bed.server.behave({.kind = Kind::redirect, .target = target}, pathOf(tileAt(1)));
        bed.start();
        EXPECT_EQ(bed.fetch(tileAt(1)), TileState::missing) << target.toStdString();
    }
    EXPECT_EQ(other.count(), 0);
    bed.server.behave({.kind = Kind::redirect, .target = path}, pathOf(tileAt(1)));
    bed.start();
    EXPECT_EQ(bed.fetch(tileAt(1)), TileState::ready);
}

TEST(TileTrouble, aFailingServerIsTriedThrice)
{
    for (const int status : {500, 503, 429}) {
        SCOPED_TRACE(status);
        StoreBed bed;
        bed.options.waitUnit = std::chrono::milliseconds(10);
        bed.server.behave({.kind = Kind::status, .status = status});
        bed.start();
        EXPECT_EQ(bed.fetch(tileAt(1)), TileState::missing);
        waitFor(std::chrono::milliseconds(100));
        wantAgain(bed, tileAt(1));
        EXPECT_EQ(bed.server.count(), 3);
    }
}

TEST(TileTrouble, aBusyServerIsWaitedFor)
{
    StoreBed bed; // a second is 50 ms
    bed.server.behave({.kind = Kind::status, .status = 503, .headers = "Retry-After: 8\r\n", .times = 1});
    TileStore& store = bed.start();
    QElapsedTimer timer;
    timer.start();
    store.want({tileAt(1)});
    ASSERT_TRUE(waitUntil([&] { return bed.server.count() == 1; }));
    waitFor(std::chrono::milliseconds(100));
    store.want({tileAt(1), tileAt(2)}); // the other tile waits too
    waitFor(std::chrono::milliseconds(100));
    EXPECT_EQ(bed.server.count(), 1);
    EXPECT_EQ(store.state(tileAt(1)), TileState::unknown);
    ASSERT_TRUE(waitUntil([&] { return store.state(tileAt(1)) == TileState::ready; }));
    EXPECT_GE(timer.elapsed(), 400);
    EXPECT_TRUE(waitUntil([&] { return store.state(tileAt(2)) == TileState::ready; }));
}

TEST(TileTrouble, aHostThatRefusesThriceIsLeftAlone)
{
    StoreBed bed;
    const ServerManner refusal{.kind = Kind::status, .status = 403};
    for (const int x : {1, 2, 4, 5, 6, 7, 8})
        bed.server.behave(refusal, pathOf(tileAt(x)));
    bed.start();
    for (const int x : {1, 2})
        EXPECT_EQ(bed.fetch(tileAt(x)), TileState::missing);
    EXPECT_EQ(bed.fetch(tileAt(3)), TileState::ready); // a success between
    for (const int x : {4, 5, 6, 7, 8, 9, 10})
        EXPECT_EQ(bed.fetch(tileAt(x)), TileState::missing) << x;
    EXPECT_EQ(bed.server.count(), 6); // 1 to 6
    bed.stop();
    bed.start();
    EXPECT_EQ(bed.fetch(tileAt(10)), TileState::ready); // in another run
}

TEST(TileTrouble, refusedConnectionsEndTheHostToo)
{
    StoreBed bed;
    bed.options.waitUnit = std::chrono::milliseconds(5);
    bed.server.vanish();
    TileStore& store = bed.start();
    store.want({tileAt(1), tileAt(2), tileAt(3)});
    ASSERT_TRUE(waitUntil([&] { return store.state(tileAt(3)) == TileState::missing; }));
    bed.server.comeBack();
    waitFor(std::chrono::milliseconds(500)); // thrice the first silence
    EXPECT_EQ(bed.server.count(), 0);
}

TEST(TileTrouble, aServerThatHangsIsLeftAndTriedAgainGently)
{
    for (const Kind kind : {Kind::silence, Kind::drip, Kind::brokenOff, Kind::reset}) {
        SCOPED_TRACE(static_cast<int>(kind));
        StoreBed bed;
        bed.options.waitUnit = std::chrono::milliseconds(10); // 300 ms without a byte, 600 ms in all
        bed.server.behave({.kind = kind, .delay = std::chrono::milliseconds(20)});
        TileStore& store = bed.start();
        store.want({tileAt(1)});
        ASSERT_TRUE(waitUntil([&] { return store.state(tileAt(1)) == TileState::missing; }));
        EXPECT_GE(bed.server.count(), 3);
        const int asked = bed.server.count();
        store.want({tileAt(1), tileAt(2), tileAt(3), tileAt(4), tileAt(5)}); // missing at once: nobody is there
        ASSERT_TRUE(waitUntil([&] { return store.state(tileAt(5)) == TileState::missing; }));
        EXPECT_EQ(bed.server.count(), asked);
        bed.server.behave({});
        for (const int x : {1, 2, 3, 4, 5}) // without being wanted anew
            ASSERT_TRUE(waitUntil([&] { return store.state(tileAt(x)) == TileState::ready; })) << x;
    }
}

TEST(TileTrouble, aServerThatSaysNothingIsNotWaitedForAsLongAsOneThatSpeaks)
{
    StoreBed bed;
    bed.options.waitUnit = std::chrono::milliseconds(20); // 600 ms without a byte, 1200 ms in all
    bed.server.behave({.kind = Kind::silence});
    QElapsedTimer timer;
    timer.start();
    bed.start().want({tileAt(1)});
    ASSERT_TRUE(waitUntil([&] { return bed.server.count() == 2; }));
    EXPECT_GE(timer.elapsed(), 570); // the toolkit's timers may be a twentieth early
    EXPECT_LT(timer.elapsed(), 1200);
}

TEST(TileTrouble, aHostThatIsAwayIsTriedByOneRequestAtATime)
{
    StoreBed bed;
    bed.options.waitUnit = std::chrono::milliseconds(4);
    bed.server.behave({.kind = Kind::silence});
    TileStore& store = bed.start();
    store.want({tileAt(1)});
    ASSERT_TRUE(waitUntil([&] { return store.state(tileAt(1)) == TileState::missing; }));
    store.want({tileAt(1), tileAt(2), tileAt(3), tileAt(4)});
    const int asked = bed.server.count();
    waitFor(std::chrono::milliseconds(900)); // silences of 120, 240 and 480 ms, and 120 ms for each request
    EXPECT_GT(bed.server.count(), asked);
    EXPECT_LE(bed.server.count(), asked + 3);
    store.want({});
    waitFor(std::chrono::milliseconds(200)); // what was on its way ends
    const int last = bed.server.count();
    waitFor(std::chrono::milliseconds(1300));
    EXPECT_EQ(bed.server.count(), last); // nothing is wanted, nothing is asked
}

} // namespace
} // namespace ospra
