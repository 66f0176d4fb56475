#include "tilemap/vector/paintRoads.h"

#include "tests/support/Picture.h"
#include "tilemap/vector/RoadStyle.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ospra {
namespace {

constexpr TileID middleTile{14, 8192, 8192}; // its north-west corner is the middle of the world

PlacedVectorTile placed(const TileID& tile, std::vector<TileRoad> roads)
{
    return {tile, std::make_shared<const VectorTile>(VectorTile{.roads = std::move(roads)})};
}

/// What a camera at the middle tile's north-west corner sees on 256 x 256 logical pixels.
Picture paint(const std::vector<PlacedVectorTile>& tiles, double zoom = 14.0, double scale = 1.0)
{
    const int side = static_cast<int>(256 * scale);
    Picture picture{.columns = side, .rows = side};
    paintRoads(tiles, {.camera = {.zoom = zoom}, .columns = side, .rows = side, .scale = scale}, picture.pixels, side);
    return picture;
}

TileRoad road(RoadClass roadClass, std::vector<TilePoint> points)
{
    return {.roadClass = roadClass, .points = std::move(points)};
}

TEST(PaintRoads, drawsALineWithItsCasing)
{
    for (const double scale : {1.0, 2.0}) {
        SCOPED_TRACE(scale);
        // At zoom 14 the tile is 256 px wide; y = 0.25 lies 64 px below the picture's middle.
        const Picture picture =
            paint({placed(middleTile, {road(RoadClass::motorway, {{0.1F, 0.25F}, {0.4F, 0.25F}})})}, 14.0, scale);
        const auto px = [&](double logical) { return static_cast<int>(logical * scale); };
        const int x = px(128 + 64);
        EXPECT_NEAR(picture.alpha(x, px(192)), 255 * roadLineOpacity, 3);
        EXPECT_GT((picture.pixel(x, px(192)) >> 16) & 0xff, 100U) << "a light line";
        const RoadStyle style = roadStyle(RoadClass::motorway, false, false, 14.0);
        const double inCasing = (style.width + style.casingWidth) / 4.0; // halfway between the two edges
        const std::uint32_t casing = picture.pixel(x, px(192 + inCasing));
        EXPECT_LT((casing >> 16) & 0xff, casing >> 25) << "a dark casing";
        EXPECT_GT(casing >> 24, 30U);
        EXPECT_EQ(picture.pixel(x, px(192 + style.casingWidth)), 0U);
        EXPECT_EQ(picture.pixel(px(128 + 150), px(192)), 0U) << "beyond the end";
        EXPECT_EQ(picture.pixel(0, 0), 0U) << "what was there is overwritten";
    }
}

TEST(PaintRoads, isPremultiplied)
{
    std::vector<TileRoad> roads;
    for (const RoadClass roadClass : roadClassesFromBelow) {
        const float y = 0.05F * (1.0F + static_cast<float>(roadClass));
        for (const bool isTunnel : {false, true})
            roads.push_back({.roadClass = roadClass, .isTunnel = isTunnel, .points = {{0.0F, y}, {0.45F, 0.5F - y}}});
    }
    const Picture picture = paint({placed(middleTile, roads)}, 15.5);
    std::size_t drawn = 0;
    for (const std::uint32_t pixel : picture.pixels) {
        const std::uint32_t alpha = pixel >> 24;
        ASSERT_LE(std::max({(pixel >> 16) & 0xff, (pixel >> 8) & 0xff, pixel & 0xff}), alpha);
        drawn += alpha > 0 ? 1 : 0;
    }
    EXPECT_GT(drawn, 1000U);
}

TEST(PaintRoads, showsAClassFromItsZoomOn)
{
    for (const auto& [roadClass, zoom] :
         {std::pair(RoadClass::motorway, 5.0), std::pair(RoadClass::rail, 12.0), std::pair(RoadClass::path, 15.0)}) {
        SCOPED_TRACE(zoom);
        const std::vector tiles{placed({0, 0, 0}, {road(roadClass, {{0.5F, 0.0F}, {0.5F, 1.0F}})})};
        const auto isShown = [&](double at) {
            const Picture picture = paint(tiles, at);
            return std::any_of(picture.pixels.begin(), picture.pixels.end(), [](std::uint32_t p) { return p != 0; });
        };
        EXPECT_TRUE(isShown(zoom));
        EXPECT_FALSE(isShown(zoom - 0.01));
    }
}

TEST(PaintRoads, joinsTilesEvenly)
{
    // One road over the common edge of two tiles at x = 128, of which each has some units of the other.
    const Picture picture =
        paint({placed({14, 8191, 8192}, {road(RoadClass::primary, {{0.7F, 0.25F}, {1.016F, 0.25F}})}),
               placed(middleTile, {road(RoadClass::primary, {{-0.016F, 0.25F}, {0.3F, 0.25F}})})});
    for (int y = 192 - 5; y < 192 + 5; ++y) {
        for (int x = 60; x < 200; ++x)
            ASSERT_EQ(picture.pixel(x, y), picture.pixel(100, y)) << x << ", " << y;
    }
    EXPECT_GT(picture.alpha(100, 192), 100);
}

TEST(PaintRoads, keepsCrossingsEven)
{
    const Picture near = paint({placed(middleTile, {road(RoadClass::minor, {{0.0F, 0.1F}, {0.4F, 0.1F}}),
                                                    road(RoadClass::primary, {{0.2F, 0.0F}, {0.2F, 0.4F}})})});
    const int x = 128 + 51;
    EXPECT_EQ(near.pixel(x, 128 + 25), near.pixel(x, 128 + 60)) << "the greater road at the crossing and away from it";
}

TEST(PaintRoads, leavesToFinerTilesWhatTheyShow)
{
    // The coarse tile is 362 px wide; the finer one is its north-west quarter and has no road.
    const auto coarse =
        placed({13, 4096, 4096}, {road(RoadClass::primary, {{0.25F, -0.3F}, {0.25F, -0.1F}, {0.25F, 0.3F}})});
    const Picture alone = paint({coarse}, 13.5);
    const Picture both = paint({placed(middleTile, {}), coarse}, 13.5);
    const int x = 128 + 90;
    EXPECT_GT(alone.alpha(x, 128 - 72), 100);
    EXPECT_EQ(both.alpha(x, 128 - 72), alone.alpha(x, 128 - 72));
    EXPECT_GT(alone.alpha(x, 128 + 54), 100);
    EXPECT_EQ(both.alpha(x, 128 + 54), 0);
}

TEST(PaintRoads, showsTheWorldOnEveryTurn)
{
    const std::vector tiles{placed({0, 0, 0}, {road(RoadClass::motorway, {{0.5F, 0.2F}, {0.5F, 0.8F}})})};
    Picture picture{.columns = 9000, .rows = 10};
    paintRoads(tiles, {.camera = {.center = {0.0, 0.5}, .zoom = 5.0}, .columns = 9000, .rows = 10}, picture.pixels,
               9000);
    EXPECT_GT(picture.alpha(4500 - 4096, 5), 50);
    EXPECT_GT(picture.alpha(4500 + 4096, 5), 50);
    EXPECT_EQ(picture.alpha(4500, 5), 0);
}

TEST(PaintRoads, bearsAnything)
{
    constexpr float far = 1e15F;
    const std::vector<TilePoint> wild{{-far, 0.0F}, {0.5F, 0.5F}, {0.5F, 0.5F}, {far, far}, {0.0F, -far}};
    std::vector<PlacedVectorTile> tiles{
        placed(middleTile, {road(RoadClass::motorway, wild), road(RoadClass::rail, wild)}),
        placed({22, -5, 1 << 30}, {road(RoadClass::motorway, wild)}),
        {middleTile, nullptr}};
    for (const double zoom : {1.0, 14.0, 20.0})
        paint(tiles, zoom);
    // From far in the west at the tile's top to its middle, the line comes in along the picture's lower edge.
    EXPECT_GT(paint(tiles, 14.0).alpha(100, 255), 0);
}

} // namespace
} // namespace ospra
