#include "tilemap/item/layerPlacement.h"

#include "tilemap/item/gridLines.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

MapView viewAt(double zoom, double width = 400.0, double height = 300.0)
{
    return {.camera = {.center = {0.52, 0.35}, .zoom = zoom}, .width = width, .height = height};
}

TEST(LayerPlacement, aFreshPictureServesAndLiesPixelOnPixel)
{
    for (const double scale : {1.0, 1.25, 2.0}) {
        SCOPED_TRACE(scale);
        const MapView view = viewAt(14.3, 401.0, 300.0);
        const LayerFrame frame = layerFrame(view, scale);
        EXPECT_TRUE(serves(frame, view, scale, ViewPace::settled));
        const ViewRect place = placeOf(frame, view);
        EXPECT_NEAR((place.right - place.left) * scale, frame.columns, 1e-6);
        EXPECT_NEAR((place.bottom - place.top) * scale, frame.rows, 1e-6);
        EXPECT_LT(place.left, -90.0);
        EXPECT_GT(place.right, 401.0 + 90.0);
        EXPECT_EQ((frame.columns - static_cast<int>(std::ceil(401.0 * scale))) % 2, 0);
    }
}

TEST(LayerPlacement, servesUntilTheMarginNearsItsEnd)
{
    const MapView view = viewAt(14.0);
    const LayerFrame frame = layerFrame(view, 1.0);
    MapView moved = view;
    for (const auto& [way, serving] : {std::pair{60.0, true}, {90.0, false}, {2000.0, false}}) {
        for (const auto& [x, y] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
            moved.camera = panned(view.camera, x * way, y * way);
            EXPECT_EQ(serves(frame, moved, 1.0, ViewPace::settled), serving) << way << ' ' << x << ' ' << y;
        }
    }
}

TEST(LayerPlacement, bearsAnotherZoomOnlyWhileItChanges)
{
    const MapView view = viewAt(14.0);
    const LayerFrame frame = layerFrame(view, 1.0);
    MapView zoomed = view;
    zoomed.camera.zoom = 14.1;
    EXPECT_TRUE(serves(frame, zoomed, 1.0, ViewPace::zooming));
    EXPECT_FALSE(serves(frame, zoomed, 1.0, ViewPace::settled));
    const ViewRect place = placeOf(frame, zoomed);
    EXPECT_NEAR(place.right - place.left, frame.columns * std::exp2(0.1), 1e-6);
    zoomed.camera.zoom = 14.5;
    EXPECT_FALSE(serves(frame, zoomed, 1.0, ViewPace::zooming));
    EXPECT_FALSE(serves(frame, view, 2.0, ViewPace::zooming));
    EXPECT_FALSE(serves(frame, viewAt(14.0, 420.0), 1.0, ViewPace::zooming));
}

TEST(LayerPlacement, hasNoPixelsWithoutRoomAndNotTooManyWithMuch)
{
    EXPECT_EQ(layerFrame(viewAt(14.0, 0.0, 300.0), 1.0).columns, 0);
    EXPECT_EQ(layerFrame(viewAt(14.0, 400.0, std::nan("")), 1.0).rows, 0);
    const LayerFrame huge = layerFrame(viewAt(14.0, 1e6, 10.0), 2.0);
    EXPECT_LE(huge.columns, 8192);
    EXPECT_GT(huge.columns, 0);
}

TEST(GridLines, are500MetresApartAndStayOnTheGround)
{
    const MapView view = viewAt(14.0);
    const double pixels =
        500.0 * view.camera.worldSize() / metersPerWorldUnit(coordinateAt(view.camera.center).latitude);
    const GridLines lines = gridLines(view);
    ASSERT_GE(lines.x.size(), 3u);
    ASSERT_GE(lines.y.size(), 2u);
    EXPECT_NEAR(lines.x[1] - lines.x[0], pixels, pixels * 0.01);
    EXPECT_NEAR(lines.y[1] - lines.y[0], pixels, pixels * 0.01);
    EXPECT_GE(lines.x.front(), 0.0);
    EXPECT_LE(lines.y.back(), 300.0);

    MapView moved = view;
    moved.camera = panned(view.camera, 7.0, 5.0);
    EXPECT_NEAR(gridLines(moved).x.front(), lines.x.front() + 7.0, 1e-6);
    EXPECT_NEAR(gridLines(moved).y.front(), lines.y.front() + 5.0, 1e-6);
}

TEST(GridLines, areNeverCrowdedNorOutOfSight)
{
    for (double zoom = lowestZoom; zoom <= highestZoom; zoom += 0.25) {
        const GridLines lines = gridLines(viewAt(zoom, 1000.0, 800.0));
        ASSERT_GE(lines.x.size(), 2u) << zoom;
        EXPECT_LE(lines.x.size(), 1000u / 23u + 1u) << zoom;
    }
    EXPECT_TRUE(gridLines(viewAt(10.0, 0.0, 100.0)).x.empty());
}

} // namespace
} // namespace ospra
