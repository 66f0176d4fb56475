#include "tests/tilemap/client/StoreBed.h"
#include "tilemap/vector/VectorTile.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace ospra {
namespace {

using Kind = ServerManner::Kind;
using TileStoreTest = StoreTest;
using namespace std::chrono_literals;

TEST_F(TileStoreTest, bringsWhatTheViewWants)
{
    start();
    int signalCount = 0;
    QObject::connect(&store(), &TileStore::tilesChanged, [&] { ++signalCount; });
    EXPECT_EQ(store().state(tileAt(2100)), TileState::unknown);
    EXPECT_EQ(store().tile(tileAt(2100)), nullptr);

    ASSERT_EQ(fetch(tileAt(2100)), TileState::ready);
    EXPECT_EQ(signalCount, 1);
    EXPECT_EQ(store().tile(tileAt(2100))->picture.size(), QSize(256, 256));
    EXPECT_EQ(server.requests().front().path, pathOf(tileAt(2100)));
}

TEST_F(TileStoreTest, saysWhoItIsAndNothingElse)
{
    server.behave({.headers = "Set-Cookie: id=7\r\nCache-Control: max-age=60\r\n"});
    ASSERT_EQ(fetchAnew(tileAt(1)), TileState::ready);
    ASSERT_EQ(fetch(tileAt(2)), TileState::ready);
    for (const ServerRequest& request : server.requests()) {
        EXPECT_EQ(request.headers.at("user-agent"), "Ospra-Test/1.0");
        for (const char* name : {"cookie", "cache-control", "pragma", "referer", "upgrade", "if-none-match"})
            EXPECT_FALSE(request.headers.contains(name)) << name;
    }
}

TEST_F(TileStoreTest, asksFewAtATimeAndDropsWhatTheViewLeaves)
{
    server.behave({.delay = 300ms});
    start().want(tilesFrom(0, 20));
    ASSERT_TRUE(waitUntil([&] { return server.count() == 4; }));

    store().want({tileAt(50), tileAt(51)}); // none of those that are on their way
    ASSERT_TRUE(becomes(TileState::ready, tileAt(51)));
    QTest::qWait(50);
    EXPECT_EQ(store().state(tileAt(0)), TileState::unknown);
    const std::vector<ServerRequest> requests = server.requests();
    ASSERT_EQ(requests.size(), 6U);
    EXPECT_EQ(requests[4].path, pathOf(tileAt(50)));
    EXPECT_EQ(requests[5].path, pathOf(tileAt(51)));
}

TEST_F(TileStoreTest, keepsTheLastUsedWithinItsMemory)
{
    options.cacheFolder.clear();                      // so that the server sees each fetch
    options.memoryLimit = 3 * (256 * 256 * 4 + 1000); // three tiles
    TileStore& store = start();
    for (const int x : {1, 2, 3})
        ASSERT_EQ(fetch(tileAt(x)), TileState::ready);
    EXPECT_TRUE(store.tile(tileAt(1))); // used after 2
    ASSERT_EQ(fetch(tileAt(4)), TileState::ready);
    EXPECT_EQ(store.state(tileAt(1)), TileState::ready);
    EXPECT_EQ(store.state(tileAt(2)), TileState::unknown);
    EXPECT_EQ(store.state(tileAt(3)), TileState::ready);

    // All that is wanted is too much: the least important goes without, and is not fetched over and over.
    const std::vector<TileKey> many = tilesFrom(11, 5);
    QObject::connect(&store, &TileStore::tilesChanged, [&] { store.want(many); });
    store.want(many);
    ASSERT_TRUE(waitUntil([&] { return server.count() == 9; }));
    QTest::qWait(150);
    EXPECT_EQ(server.count(), 9);
    for (const int x : {11, 12, 13})
        EXPECT_EQ(store.state(tileAt(x)), TileState::ready) << x;
    EXPECT_EQ(store.state(tileAt(15)), TileState::unknown);

    store.disconnect();
    EXPECT_EQ(fetch(tileAt(15)), TileState::ready); // now there is room
}

TEST_F(TileStoreTest, readsVectorTilesWithWhatItIsGiven)
{
    MapSource roads = imagery();
    roads.kind = MapSourceKind::vector;
    server.put(pathOf(tileAt(1)), "seven");
    server.put(pathOf(tileAt(2)), "rubbish");
    options.decodeVector = [](std::string_view bytes) {
        const auto tile = std::make_shared<VectorTile>();
        tile->roads.resize(bytes.size());
        return bytes == "seven" ? tile : nullptr;
    };
    start({roads});
    ASSERT_EQ(fetch(tileAt(1)), TileState::ready);
    EXPECT_EQ(store().tile(tileAt(1))->features->roads.size(), 5U);
    EXPECT_TRUE(store().tile(tileAt(1))->picture.isNull());
    EXPECT_EQ(fetch(tileAt(2)), TileState::missing);
}

TEST_F(TileStoreTest, endsAtOnceWhateverIsOnItsWay)
{
    options.waitUnit = 1000ms;
    for (const Kind kind : {Kind::serve, Kind::silence, Kind::endless, Kind::drip}) {
        for (const int pause : {0, 1, 5, 30}) {
            server.behave({.kind = kind, .delay = kind == Kind::serve ? 0ms : 10ms});
            start().want(tilesFrom(100 * pause, 40));
            QTest::qWait(pause);
            QElapsedTimer timer;
            timer.start();
            stop();
            EXPECT_LT(timer.elapsed(), 1000);
        }
    }
}

TEST_F(TileStoreTest, mayEndWhileItTellsOfAChange)
{
    bool isEnded = false;
    QObject::connect(&start(), &TileStore::tilesChanged, [&] {
        stop();
        isEnded = true;
    });
    store().want(tilesFrom(1, 3));
    EXPECT_TRUE(waitUntil([&] { return isEnded; }));
}

/// A source whose document tells the address of its tiles.
class TileDocuments : public StoreTest {
protected:
    TileDocuments()
    {
        m_source.address.clear();
        m_source.tileJson = server.address() + "/source";
    }

    void put(const std::string& rest)
    {
        server.put("/source", QByteArray::fromStdString("{\"tiles\": [\"" + imagery().address + "\"]" + rest + "}"));
    }

    MapSource m_source = imagery();
};

TEST_F(TileDocuments, tellTheAddressOnce)
{
    put(R"(, "minzoom": 10, "maxzoom": 12)");
    start({m_source}).want({tileAt(1), tileAt(2)});
    ASSERT_TRUE(becomes(TileState::ready, tileAt(1)) && becomes(TileState::ready, tileAt(2)));
    EXPECT_EQ(fetch({0, {13, 1, 1}}), TileState::missing);
    EXPECT_EQ(fetch({0, {9, 1, 1}}), TileState::missing);
    EXPECT_EQ(server.count("/source"), 1);
    EXPECT_EQ(server.count("/imagery"), 2);

    start({m_source}); // it is kept as tiles are
    ASSERT_EQ(fetch(tileAt(3)), TileState::ready);
    EXPECT_EQ(server.count("/source"), 1);
    server.vanish();
    start({m_source});
    EXPECT_EQ(fetch(tileAt(3)), TileState::ready);
}

TEST_F(TileDocuments, thatAreNoneEndTheirSource)
{
    for (const char* text : {"", "[]", R"({"tiles": []})", R"({"tiles": ["http://192.0.2.1/{z}/{x}/{y}"]})",
                             R"({"tiles": ["https://example.com/{z}/{x}"]})"}) {
        server.put("/source", text);
        const int asked = server.count();
        start({m_source});
        EXPECT_EQ(fetch(tileAt(1)), TileState::missing) << text;
        EXPECT_EQ(fetch(tileAt(2)), TileState::missing) << text;
        EXPECT_EQ(server.count(), asked + 1) << text;
    }
    put(std::string(300'000, ' ')); // longer than any
    start({m_source});
    EXPECT_EQ(fetch(tileAt(1)), TileState::missing);
}

TEST_F(TileDocuments, areAskedForAgainWhenTheNetworkIsBack)
{
    put("");
    options.waitUnit = 10ms;
    server.vanish();
    start({m_source});
    ASSERT_EQ(fetch(tileAt(1)), TileState::missing);
    server.comeBack();
    EXPECT_TRUE(becomes(TileState::ready, tileAt(1)));
}

} // namespace
} // namespace ospra
