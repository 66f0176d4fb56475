#include "tilemap/planTiles.h"

#include "tilemap/showsPlace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <set>

namespace ospra {
namespace {

constexpr int world = 0;
constexpr int nation = 1;
constexpr int roads = 2;

/// A country from 6 to 10 degrees east and 46 to 48 north, over the world, under roads.
std::vector<MapSource> makeSources()
{
    return {{.id = "world", .nativeZoom = 14},
            {.id = "nation",
             .lowestZoom = 14,
             .nativeZoom = 17,
             .bounds = {{{46.0, 6.0}, {48.0, 6.0}, {48.0, 10.0}, {46.0, 10.0}}}},
            {.id = "roads", .kind = MapSourceKind::vector, .nativeZoom = 14}};
}

MapView viewOf(Coordinate center, double zoom, double width = 800.0, double height = 600.0)
{
    return {.camera = {worldPoint(center).value(), zoom}, .width = width, .height = height};
}

const Coordinate inside{47.0, 8.0};
const Coordinate outside{47.0, 12.0};

/// Plans a view, and sees to it that only tiles are asked for that there can be.
TilePlan plan(const MapView& view, const std::function<TileState(const TileKey&)>& state, double scale = 1.0,
              MapSourceKind kind = MapSourceKind::imagery)
{
    const auto sources = makeSources();
    TilePlan made = planTiles(view, scale, sources, kind, [&](const TileKey& key) {
        const MapSource& source = sources.at(static_cast<std::size_t>(key.source));
        EXPECT_EQ(source.kind, kind);
        EXPECT_GE(key.tile.zoom, source.lowestZoom);
        EXPECT_LE(key.tile.zoom, source.nativeZoom);
        const int tiles = 1 << key.tile.zoom;
        EXPECT_TRUE(key.tile.x >= 0 && key.tile.x < tiles && key.tile.y >= 0 && key.tile.y < tiles);
        return state(key);
    });
    EXPECT_EQ(std::set(made.wanted.begin(), made.wanted.end()).size(), made.wanted.size());
    std::set<int> used;
    for (const TilePlacement& placement : made.placements) {
        used.insert(placement.key.source);
        EXPECT_TRUE(std::ranges::count(made.wanted, placement.key) == 1) << "what is drawn is wanted, too";
    }
    EXPECT_EQ(made.sources, std::vector<int>(used.begin(), used.end()));
    return made;
}

auto always(TileState state)
{
    return [state](const TileKey& /*key*/) { return state; };
}

const auto ready = always(TileState::ready);
const auto unknown = always(TileState::unknown);

/// The tile in front at a place, after a look that it shows that place there and no other.
std::optional<TileKey> shownAt(const TilePlan& made, WorldPoint place)
{
    for (std::size_t i = made.placements.size(); i-- > 0;) {
        const auto& [key, part, ground] = made.placements[i];
        if (place.x < ground.left || place.x >= ground.right || place.y < ground.top || place.y >= ground.bottom)
            continue;
        const double u = (place.x - ground.left) / (ground.right - ground.left);
        const double v = (place.y - ground.top) / (ground.bottom - ground.top);
        const double tiles = std::exp2(key.tile.zoom);
        const double x = (key.tile.x + std::lerp(part.left, part.right, u)) / tiles;
        const double y = (key.tile.y + std::lerp(part.top, part.bottom, v)) / tiles;
        EXPECT_NEAR(x, place.x - std::floor(place.x), 1e-9);
        EXPECT_NEAR(y, place.y, 1e-9);
        EXPECT_TRUE(part.left >= 0.0 && part.right <= 1.0 && part.top >= 0.0 && part.bottom <= 1.0);
        return key;
    }
    return std::nullopt;
}

/// Source and zoom of what is shown all over a view; absent where that is not everywhere the same.
std::optional<std::pair<int, int>> shownAllOver(const TilePlan& made, const MapView& view)
{
    std::set<std::optional<std::pair<int, int>>> shown;
    for (double x = 0.5; x < view.width; x += 37.0) {
        for (double y = 0.5; y < view.height; y += 37.0) {
            const auto key = shownAt(made, view.placeAt({x, y}));
            shown.insert(key ? std::optional(std::pair(key->source, key->tile.zoom)) : std::nullopt);
        }
    }
    return shown.size() == 1 ? *shown.begin() : std::nullopt;
}

TEST(PlanTiles, takesTheTopmostSourceAtTheViewsZoom)
{
    struct Row {
        Coordinate center;
        double zoom;
        double scale;
        int source;
        int tileZoom;
    };
    for (const auto& [center, zoom, scale, source, tileZoom] :
         {Row{outside, 9.4, 1.0, world, 9}, Row{outside, 9.6, 1.0, world, 10}, Row{outside, 9.4, 1.4, world, 9},
          Row{outside, 9.4, 1.5, world, 10}, Row{outside, 9.4, 3.0, world, 10}, Row{inside, 13.0, 1.0, world, 13},
          Row{inside, 13.0, 2.0, nation, 14}, Row{inside, 14.0, 1.0, nation, 14}, Row{outside, 16.0, 1.0, world, 14},
          Row{inside, 16.7, 1.0, nation, 17}, Row{inside, 20.0, 2.0, nation, 17}}) {
        SCOPED_TRACE(testing::Message() << center.longitude << " east, zoom " << zoom << " at " << scale);
        const MapView view = viewOf(center, zoom);
        const TilePlan made = plan(view, ready, scale);
        EXPECT_EQ(shownAllOver(made, view), std::pair(source, tileZoom));
        for (const TileKey& key : made.wanted)
            EXPECT_EQ(key.source, source); // none is fetched that does not show
    }
}

TEST(PlanTiles, changesSourcesAtABorder)
{
    const MapView view = viewOf({47.0, 10.0}, 15.0);
    const TilePlan made = plan(view, ready);
    EXPECT_EQ(made.sources, (std::vector{world, nation}));
    const double tile = std::exp2(-15);
    EXPECT_EQ(shownAt(made, {view.camera.center.x - tile, view.camera.center.y})->source, nation);
    EXPECT_EQ(shownAt(made, {view.camera.center.x + tile, view.camera.center.y})->source, world);
}

TEST(PlanTiles, asksBelowForWhatASourceDoesNotHave)
{
    const MapView view = viewOf(inside, 16.0);
    const auto noNation = [](const TileKey& key) {
        return key.source == nation ? TileState::missing : TileState::ready;
    };
    EXPECT_EQ(shownAllOver(plan(view, noNation), view), std::pair(world, 14));
    const auto nobody = [](const TileKey& key) { return key.tile.zoom > 12 ? TileState::missing : TileState::ready; };
    EXPECT_EQ(shownAllOver(plan(view, nobody), view), std::pair(world, 12));
    const auto parentUnknown = [](const TileKey& key) {
        return key.tile.zoom > 10 ? TileState::missing : TileState::unknown;
    };
    const TilePlan parents = plan(view, parentUnknown);
    EXPECT_TRUE(parents.placements.empty());
    ASSERT_FALSE(parents.wanted.empty());
    for (const TileKey& key : parents.wanted)
        EXPECT_EQ(std::pair(key.source, key.tile.zoom), std::pair(world, 10));
    const TilePlan none = plan(view, always(TileState::missing));
    EXPECT_TRUE(none.placements.empty() && none.wanted.empty());
}

TEST(PlanTiles, drawsWhatIsThereUntilTheTileIs)
{
    const MapView view = viewOf(inside, 16.0);
    const auto readyAt = [&](std::set<std::pair<int, int>> levels) {
        return plan(view, [levels = std::move(levels)](const TileKey& key) {
            return levels.contains({key.source, key.tile.zoom}) ? TileState::ready : TileState::unknown;
        });
    };
    EXPECT_TRUE(readyAt({}).placements.empty());
    EXPECT_EQ(shownAllOver(readyAt({{world, 3}}), view), std::pair(world, 3));
    EXPECT_EQ(shownAllOver(readyAt({{world, 14}}), view), std::pair(world, 14));
    EXPECT_EQ(shownAllOver(readyAt({{world, 14}, {nation, 14}}), view), std::pair(nation, 14));
    EXPECT_EQ(shownAllOver(readyAt({{world, 14}, {nation, 15}}), view), std::pair(nation, 15));
    EXPECT_EQ(shownAllOver(readyAt({{world, 14}, {nation, 17}}), view), std::pair(nation, 17)); // zooming out
    const TilePlan made = readyAt({{world, 14}});
    const auto firstInUse = std::ranges::find(made.wanted, world, &TileKey::source);
    EXPECT_GT(firstInUse - made.wanted.begin(), 6); // after those that are missed
    for (const TileKey& key : std::span(made.wanted.begin(), firstInUse))
        EXPECT_EQ(std::pair(key.source, key.tile.zoom), std::pair(nation, 16));
}

TEST(PlanTiles, laysSingleFinerTilesOverACoarserOne)
{
    const MapView view = viewOf(outside, 10.0);
    const TileID center = plan(view, ready).wanted.front().tile;
    const TilePlan made = plan(view, [&](const TileKey& key) {
        const bool isCorner = key.tile == TileID{11, 2 * center.x + 1, 2 * center.y};
        return isCorner || key.tile.zoom == 8 ? TileState::ready : TileState::unknown;
    });
    const double tile = std::exp2(-11);
    EXPECT_EQ(shownAt(made, {(2 * center.x + 1.5) * tile, (2 * center.y + 0.5) * tile})->tile.zoom, 11);
    EXPECT_EQ(shownAt(made, {(2 * center.x + 0.5) * tile, (2 * center.y + 0.5) * tile})->tile.zoom, 8);
}

TEST(PlanTiles, wantsTheMiddleFirst)
{
    const MapView view = viewOf(outside, 10.0, 1600.0, 1000.0);
    const TilePlan made = plan(view, unknown);
    double last = 0.0;
    for (const TileKey& key : made.wanted) {
        const ViewPoint middle = view.pixelAt({(key.tile.x + 0.5) / 1024.0, (key.tile.y + 0.5) / 1024.0});
        const double distance = std::hypot(middle.x - 800.0, middle.y - 500.0);
        EXPECT_GE(distance, last - 1e-6);
        last = distance;
    }
    EXPECT_GT(last, 600.0);
}

TEST(PlanTiles, goesRoundTheWorldAndEndsAtThePoles)
{
    for (const double longitude : {179.99, -179.99}) {
        const MapView view = viewOf({0.0, longitude}, 8.0);
        EXPECT_EQ(shownAllOver(plan(view, ready), view), std::pair(world, 8)) << longitude;
    }
    const MapView turns = viewOf({0.0, 20.0}, 1.0, 3000.0, 512.0);
    const TilePlan made = plan(turns, ready);
    EXPECT_EQ(shownAllOver(made, turns), std::pair(world, 1));
    EXPECT_EQ(made.wanted.size(), 4U); // the same four tiles on each turn
    for (const auto& placement : plan(viewOf({85.0, 8.0}, 5.0), ready).placements)
        EXPECT_GE(placement.ground.top, 0.0);
}

TEST(PlanTiles, takesAnyView)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    const auto wanted = [](const Camera& camera, double width, double height, double scale = 1.0) {
        return plan({.camera = camera, .width = width, .height = height}, unknown, scale).wanted.size();
    };
    for (const double bad : {0.0, -3.0, notANumber, -infinity}) {
        EXPECT_EQ(wanted({{0.5, 0.5}, 3.0}, bad, 100.0), 0U) << bad;
        EXPECT_EQ(wanted({{0.5, 0.5}, 3.0}, 100.0, bad), 0U) << bad;
    }
    for (const double wild : {infinity, 1e300, -infinity, notANumber}) {
        EXPECT_LE(wanted({{0.5, 0.5}, 9.5}, wild, wild, wild), 5000U) << wild;
        EXPECT_EQ(wanted({{wild, 0.5}, 3.0}, 100.0, 100.0), 0U) << wild;
        EXPECT_GT(wanted({{0.5, 0.5}, wild}, 100.0, 100.0), 0U) << wild;
    }
    EXPECT_TRUE(planTiles(viewOf(inside, 9.0), 1.0, {}, MapSourceKind::imagery, ready).placements.empty());
}

TEST(PlanTiles, minds256PixelsTheUsualSize)
{
    const std::vector<MapSource> large{{.id = "large", .tileSize = 512}};
    const MapView view = viewOf(outside, 10.0);
    const TilePlan made = planTiles(view, 1.0, large, MapSourceKind::imagery, ready);
    EXPECT_EQ(shownAllOver(made, view), std::pair(0, 9));
}

TEST(PlanTiles, placesVectorTilesWholeAndOnce)
{
    for (const auto& [zoom, tileZoom] : {std::pair{10.0, 10}, {17.0, 14}}) {
        for (const double scale : {1.0, 2.0}) {
            const MapView view = viewOf(outside, zoom);
            const TilePlan made = plan(view, ready, scale, MapSourceKind::vector);
            EXPECT_EQ(shownAllOver(made, view), std::pair(roads, tileZoom));
            EXPECT_EQ(made.placements.size(), made.wanted.size());
            for (const TilePlacement& placement : made.placements)
                EXPECT_EQ(placement.part, (WorldRect{0.0, 0.0, 1.0, 1.0}));
        }
    }
}

TEST(ShowsPlace, knowsInsideFromOutside)
{
    const std::vector<std::vector<Coordinate>> shapes{
        {{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {5.0, 5.0}, {0.0, 10.0}}, // a notch from the east
        {{-10.0, 170.0}, {-10.0, 190.0}, {-20.0, 180.0}}};                // across the antimeridian
    for (const Coordinate& place : {Coordinate{1.0, 1.0}, {9.0, 8.0}, {5.0, 4.0}, {-11.0, 179.0}, {-11.0, -179.0}})
        EXPECT_TRUE(showsPlace(shapes, place)) << place.latitude << " " << place.longitude;
    for (const Coordinate& place : {Coordinate{5.0, 6.0}, {-1.0, 5.0}, {5.0, -1.0}, {11.0, 5.0}, {-19.0, 171.0}})
        EXPECT_FALSE(showsPlace(shapes, place)) << place.latitude << " " << place.longitude;
    EXPECT_TRUE(showsPlace({}, {47.0, 8.0}));
    EXPECT_FALSE(showsPlace(std::vector<std::vector<Coordinate>>{{}}, {47.0, 8.0}));
}

} // namespace
} // namespace ospra
