#include "tests/tilemap/client/StoreBed.h"
#include "tilemap/vector/VectorTile.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace ospra {
namespace {

using Kind = ServerManner::Kind;

TEST(TileStore, bringsWhatTheViewWants)
{
    StoreBed bed;
    TileStore& store = bed.start();
    int signalCount = 0;
    QObject::connect(&store, &TileStore::tilesChanged, [&] { ++signalCount; });
    EXPECT_EQ(store.state(tileAt(2100)), TileState::unknown);
    EXPECT_EQ(store.tile(tileAt(2100)), nullptr);

    ASSERT_EQ(bed.fetch(tileAt(2100)), TileState::ready);
    EXPECT_EQ(signalCount, 1);
    const QImage picture = store.tile(tileAt(2100))->picture;
    EXPECT_EQ(picture.format(), QImage::Format_RGB32);
    ASSERT_EQ(picture.size(), QSize(256, 256));
    const QImage painted = paintAerial(tileAt(2100).tile, {});
    int far = 0; // pixels that JPEG cannot have made of the painted ones
    for (int i = 0; i < 256; ++i)
        far += std::abs(qGray(picture.pixel(i, i)) - qGray(painted.pixel(i, i))) > 40 ? 1 : 0;
    EXPECT_LT(far, 10);
}

TEST(TileStore, knowsWithoutAskingWhatNoSourceHas)
{
    StoreBed bed;
    MapSource source = bed.imagery();
    source.lowestZoom = 10;
    source.nativeZoom = 14;
    TileStore& store = bed.start({source});
    const std::vector<TileKey> none{{0, {9, 1, 1}},  {0, {15, 1, 1}},  {0, {12, 4096, 1}}, {0, {12, 1, -1}},
                                    {1, {12, 1, 1}}, {-1, {12, 1, 1}}, {0, {-1, 0, 0}}};
    for (const TileKey& key : none)
        EXPECT_EQ(store.state(key), TileState::missing) << key.tile.zoom;
    store.want(none);
    EXPECT_EQ(bed.fetch({0, {14, 1, 1}}), TileState::ready);
    EXPECT_EQ(bed.server.count(), 1);
}

TEST(TileStore, asksOnlyOverTlsButOnThisMachine)
{
    StoreBed bed;
    MapSource plain = bed.imagery();
    plain.address = "http://192.0.2.1/{z}/{x}/{y}"; // for documents only: nobody is there
    bed.options.waitUnit = std::chrono::milliseconds(1000);
    bed.start({plain});
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(bed.fetch(tileAt(1)), TileState::missing);
    EXPECT_LT(timer.elapsed(), 500); // no request was tried
}

TEST(TileStore, saysWhoItIsAndNothingElse)
{
    StoreBed bed;
    bed.server.behave({.headers = "Set-Cookie: id=7\r\nCache-Control: max-age=60\r\n"});
    bed.start();
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    ASSERT_EQ(bed.fetch(tileAt(2)), TileState::ready);
    for (const ServerRequest& request : bed.server.requests()) {
        EXPECT_EQ(request.headers.at("user-agent"), "Ospra-Test/1.0");
        for (const char* name : {"cookie", "cache-control", "pragma", "referer", "upgrade", "if-none-match"})
            EXPECT_FALSE(request.headers.contains(name)) << name;
    }
}

TEST(TileStore, asksFewAtATime)
{
    StoreBed bed;
    bed.server.behave({.delay = std::chrono::milliseconds(10)});
    TileStore& store = bed.start();
    std::vector<TileKey> tiles;
    for (int x = 0; x < 24; ++x)
        tiles.push_back(tileAt(x));
    store.want(tiles);
    ASSERT_TRUE(waitUntil([&] {
        return std::ranges::all_of(tiles, [&](const TileKey& key) { return store.state(key) == TileState::ready; });
    }));
    EXPECT_EQ(bed.server.count(), 24);
    EXPECT_EQ(bed.server.mostConnections(), 4);
}

TEST(TileStore, dropsWhatTheViewLeaves)
{
    StoreBed bed;
    bed.server.behave({.delay = std::chrono::milliseconds(300)});
    TileStore& store = bed.start();
    std::vector<TileKey> old;
    for (int x = 0; x < 20; ++x)
        old.push_back(tileAt(x));
    store.want(old);
    ASSERT_TRUE(waitUntil([&] { return bed.server.count() == 4; }));

    store.want({tileAt(50), tileAt(51)}); // none of those that are on their way
    ASSERT_TRUE(waitUntil([&] { return store.state(tileAt(51)) == TileState::ready; }));
    waitFor(std::chrono::milliseconds(50));
    EXPECT_EQ(bed.server.count(), 6);
    EXPECT_EQ(store.state(tileAt(0)), TileState::unknown);
    const std::vector<ServerRequest> requests = bed.server.requests();
    EXPECT_EQ(requests[4].path, pathOf(tileAt(50)));
    EXPECT_EQ(requests[5].path, pathOf(tileAt(51)));
}

TEST(TileStore, keepsTheLastUsedWithinItsMemory)
{
    StoreBed bed;
    bed.options.cacheFolder.clear();                      // so that the server sees each fetch
    bed.options.memoryLimit = 3 * (256 * 256 * 4 + 1000); // three tiles
    TileStore& store = bed.start();
    for (const int x : {1, 2, 3})
        ASSERT_EQ(bed.fetch(tileAt(x)), TileState::ready);
    EXPECT_TRUE(store.tile(tileAt(1))); // used after 2
    ASSERT_EQ(bed.fetch(tileAt(4)), TileState::ready);
    EXPECT_EQ(store.state(tileAt(1)), TileState::ready);
    EXPECT_EQ(store.state(tileAt(2)), TileState::unknown);
    EXPECT_EQ(store.state(tileAt(3)), TileState::ready);

    // All that is wanted is too much: the least important goes without, and is not fetched over and over.
    const std::vector<TileKey> many{tileAt(11), tileAt(12), tileAt(13), tileAt(14), tileAt(15)};
    QObject::connect(&store, &TileStore::tilesChanged, [&] { store.want(many); });
    store.want(many);
    ASSERT_TRUE(waitUntil([&] { return bed.server.count() == 9; }));
    waitFor(std::chrono::milliseconds(150));
    EXPECT_EQ(bed.server.count(), 9);
    for (const int x : {11, 12, 13})
        EXPECT_EQ(store.state(tileAt(x)), TileState::ready) << x;
    EXPECT_EQ(store.state(tileAt(15)), TileState::unknown);

    store.disconnect();
    store.want({tileAt(15)}); // now there is room
    EXPECT_TRUE(waitUntil([&] { return store.state(tileAt(15)) == TileState::ready; }));
}

TEST(TileStore, readsVectorTilesWithWhatItIsGiven)
{
    StoreBed bed;
    MapSource roads = bed.imagery();
    roads.kind = MapSourceKind::vector;
    roads.address = bed.server.address() + "/roads/{z}-{x}-{y}";
    bed.server.put("/roads/12-1-1400", "seven");
    bed.server.put("/roads/12-2-1400", "rubbish");
    bed.options.decodeVector = [](std::string_view bytes) {
        const auto tile = std::make_shared<VectorTile>();
        tile->roads.resize(bytes.size());
        return bytes == "seven" ? tile : nullptr;
    };
    bed.start({roads});
    ASSERT_EQ(bed.fetch(tileAt(1)), TileState::ready);
    EXPECT_EQ(bed.store().tile(tileAt(1))->features->roads.size(), 5U);
    EXPECT_TRUE(bed.store().tile(tileAt(1))->picture.isNull());
    EXPECT_EQ(bed.fetch(tileAt(2)), TileState::missing);
}

class TileDocuments : public testing::Test {
protected:
    TileDocuments()
    {
        m_source.address.clear();
        m_source.tileJson = m_bed.server.address() + "/source";
    }

    void put(const std::string& rest)
    {
        const std::string address = m_bed.server.address() + "/imagery/{z}/{x}/{y}.jpg";
        m_bed.server.put("/source", QByteArray::fromStdString("{\"tiles\": [\"" + address + "\"]" + rest + "}"));
    }

    StoreBed m_bed;
    MapSource m_source = m_bed.imagery();
};

TEST_F(TileDocuments, tellTheAddressOnce)
{
    put(R"(, "minzoom": 10, "maxzoom": 12)");
    TileStore& store = m_bed.start({m_source});
    store.want({tileAt(1), tileAt(2)});
    ASSERT_TRUE(waitUntil(
        [&] { return store.state(tileAt(1)) == TileState::ready && store.state(tileAt(2)) == TileState::ready; }));
    EXPECT_EQ(m_bed.fetch({0, {13, 1, 1}}), TileState::missing);
    EXPECT_EQ(m_bed.fetch({0, {9, 1, 1}}), TileState::missing);
    EXPECT_EQ(m_bed.server.count("/source"), 1);
    EXPECT_EQ(m_bed.server.count("/imagery"), 2);

    m_bed.start({m_source}); // it is kept as tiles are
    ASSERT_EQ(m_bed.fetch(tileAt(3)), TileState::ready);
    EXPECT_EQ(m_bed.server.count("/source"), 1);
    m_bed.server.vanish();
    m_bed.start({m_source});
    EXPECT_EQ(m_bed.fetch(tileAt(3)), TileState::ready);
}

TEST_F(TileDocuments, thatAreNoneEndTheirSource)
{
    for (const char* text : {"", "[]", R"({"tiles": []})", R"({"tiles": ["http://192.0.2.1/{z}/{x}/{y}"]})",
                             R"({"tiles": ["https://example.com/{z}/{x}"]})"}) {
        m_bed.server.put("/source", text);
        const int asked = m_bed.server.count();
        m_bed.start({m_source});
        EXPECT_EQ(m_bed.fetch(tileAt(1)), TileState::missing) << text;
        EXPECT_EQ(m_bed.fetch(tileAt(2)), TileState::missing) << text;
        EXPECT_EQ(m_bed.server.count(), asked + 1) << text;
    }
    put(std::string(300'000, ' ')); // longer than any
    m_bed.start({m_source});
    EXPECT_EQ(m_bed.fetch(tileAt(1)), TileState::missing);
}

TEST_F(TileDocuments, areAskedForAgainWhenTheNetworkIsBack)
{
    put("");
    m_bed.options.waitUnit = std::chrono::milliseconds(10);
    m_bed.server.vanish();
    m_bed.start({m_source});
    ASSERT_EQ(m_bed.fetch(tileAt(1)), TileState::missing);
    m_bed.server.comeBack();
    EXPECT_TRUE(waitUntil([&] { return m_bed.store().state(tileAt(1)) == TileState::ready; }));
}

TEST(TileStore, endsAtOnceWhateverIsOnItsWay)
{
    StoreBed bed;
    bed.options.waitUnit = std::chrono::milliseconds(1000);
    for (const Kind kind : {Kind::serve, Kind::silence, Kind::endless, Kind::drip}) {
        for (const int pause : {0, 1, 5, 30}) {
            bed.server.behave({.kind = kind, .delay = std::chrono::milliseconds(kind == Kind::serve ? 0 : 10)});
            TileStore& store = bed.start();
            std::vector<TileKey> tiles;
            for (int x = 0; x < 40; ++x)
                tiles.push_back(tileAt(x + 100 * pause));
            store.want(tiles);
            waitFor(std::chrono::milliseconds(pause));
            QElapsedTimer timer;
            timer.start();
            bed.stop();
            EXPECT_LT(timer.elapsed(), 1000);
        }
    }
}

TEST(TileStore, mayEndWhileItTellsOfAChange)
{
    StoreBed bed;
    bool isEnded = false;
    QObject::connect(&bed.start(), &TileStore::tilesChanged, [&] {
        bed.stop();
        isEnded = true;
    });
    bed.store().want({tileAt(1), tileAt(2), tileAt(3)});
    EXPECT_TRUE(waitUntil([&] { return isEnded; }));
}

} // namespace
} // namespace ospra
