#include "tilemap/Camera.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace ospra {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The distance between two places the short way round the world.
double gap(WorldPoint a, WorldPoint b)
{
    const double dx = a.x - b.x;
    return std::hypot(dx - std::round(dx), a.y - b.y);
}

TEST(Mercator, placesKnownCoordinates)
{
    // The second is the north-west corner of tile 8/134/90; its latitude by another form, asin(tanh).
    for (const auto& [coordinate, expected] : {std::pair{Coordinate{0.0, 0.0}, WorldPoint{0.5, 0.5}},
                                               {{47.0401820, 8.4375}, {134.0 / 256.0, 90.0 / 256.0}},
                                               {{90.0, -180.0}, {0.0, 0.0}},
                                               {{-90.0, 190.0}, {0.5 + 190.0 / 360.0, 1.0}}}) {
        const auto point = worldPoint(coordinate);
        ASSERT_TRUE(point);
        EXPECT_NEAR(point->x, expected.x, 1e-9);
        EXPECT_NEAR(point->y, expected.y, 1e-9);
    }
    for (const double bad : {infinity, -infinity, notANumber, 1e7}) {
        EXPECT_FALSE(worldPoint({bad, 8.0}));
        EXPECT_FALSE(worldPoint({47.0, bad}));
    }
}

TEST(Mercator, findsBackAndMeasures)
{
    for (const double latitude : {-85.0, -33.9, 0.0, 47.28, 85.05}) {
        for (const double longitude : {-179.9, -70.7, 0.0, 8.75, 179.9}) {
            const Coordinate back = coordinateAt(worldPoint({latitude, longitude}).value());
            EXPECT_NEAR(back.latitude, latitude, 1e-9);
            EXPECT_NEAR(back.longitude, longitude, 1e-9);
        }
    }
    for (const double latitude : {-84.0, -33.9, 0.0, 47.28}) { // a thousandth of a degree to the north, on a sphere
        const double step = worldPoint({latitude - 0.0005, 0.0})->y - worldPoint({latitude + 0.0005, 0.0})->y;
        EXPECT_NEAR(step * metersPerWorldUnit(latitude), 111.3195, 0.001);
    }
    EXPECT_NEAR(coordinateAt({1.25, 0.5}).longitude, -90.0, 1e-9); // another turn
}

TEST(Camera, pixelAndPlaceAreInverse)
{
    for (const double zoom : {1.0, 7.3, 20.0}) {
        for (const double x : {0.001, 0.52, 0.999}) {
            const MapView view{.camera = {{x, 0.36}, zoom}, .width = 801.0, .height = 600.0};
            for (const ViewPoint pixel : {ViewPoint{0.0, 0.0}, ViewPoint{640.0, 10.0}, ViewPoint{400.5, 300.0}}) {
                const ViewPoint back = view.pixelAt(view.placeAt(pixel));
                if (std::abs(pixel.x - 400.5) < view.camera.worldSize() / 2.0) { // else a nearer turn shows the place
                    EXPECT_NEAR(back.x, pixel.x, 1e-4);
                }
                EXPECT_NEAR(back.y, pixel.y, 1e-4);
            }
            EXPECT_NEAR(view.pixelAt({x + 3.0, 0.36}).x, 400.5, 1e-4);
        }
    }
}

TEST(Camera, zoomKeepsThePlaceUnderThePointer)
{
    const MapView view{.camera = {{0.999, 0.36}, 9.0}, .width = 800.0, .height = 600.0};
    const ViewPoint pixel{700.0, 80.0};
    for (const double zoom : {2.0, 8.5, 9.0, 16.0, 25.0}) {
        MapView zoomed = view;
        zoomed.camera = zoomedAbout(view, pixel, zoom);
        EXPECT_DOUBLE_EQ(zoomed.camera.zoom, std::min(zoom, highestZoom));
        EXPECT_LT(gap(zoomed.placeAt(pixel), view.placeAt(pixel)), 1e-12);
        EXPECT_TRUE(zoomed.camera.center.x >= 0.0 && zoomed.camera.center.x < 1.0);
        for (const double progress : {0.0, 0.2, 0.9, 1.0}) { // and all the way there
            MapView meanwhile = view;
            meanwhile.camera = between(view.camera, zoomed.camera, progress);
            EXPECT_LT(gap(meanwhile.placeAt(pixel), view.placeAt(pixel)), 1e-9) << zoom << " " << progress;
        }
    }
}

TEST(Camera, travelsTheShortWayAndArrives)
{
    const Camera from{{0.98, 0.4}, 8.0};
    const Camera to{{0.04, 0.6}, 8.0};
    EXPECT_LT(gap(between(from, to, 0.5).center, {0.01, 0.5}), 1e-12);
    EXPECT_EQ(between(from, to, 0.0), from);
    EXPECT_EQ(between(from, to, 1.0), to);
}

TEST(Camera, framesTheWholeRectangle)
{
    for (const WorldRect& rect : {WorldRect{0.5, 0.3, 0.51, 0.3001}, WorldRect{0.5, 0.3, 0.5, 0.34},
                                  WorldRect{0.99, 0.1, 1.01, 0.11}, WorldRect{-0.2, 0.4, 0.3, 0.5}}) {
        for (const auto& [width, height] : {std::pair{800.0, 600.0}, {300.0, 900.0}, {50.0, 50.0}}) {
            const MapView view{
                .camera = cameraFraming(rect, width, height, 24.0, 18.0), .width = width, .height = height};
            if (view.camera.zoom == lowestZoom)
                continue; // the view is too small for so much of the world
            const ViewPoint topLeft = view.pixelAt({rect.left, rect.top});
            const ViewPoint bottomRight = view.pixelAt({rect.right, rect.bottom});
            const double padding = std::min(24.0, width / 4.0);
            EXPECT_LE(bottomRight.x, width - padding + 1e-6);
            EXPECT_LE(bottomRight.y, height - padding + 1e-6);
            EXPECT_NEAR(std::min(topLeft.x, topLeft.y), padding, 1e-6); // no further away than it must be
        }
    }
}

TEST(Camera, framingAPointGoesAsCloseAsAllowed)
{
    const WorldRect point{0.52, 0.36, 0.52, 0.36};
    EXPECT_EQ(cameraFraming(point, 800.0, 600.0, 24.0, 16.0), (Camera{{0.52, 0.36}, 16.0}));
    EXPECT_EQ(cameraFraming(point, 0.0, -5.0, 24.0, 16.0).zoom, 16.0);
}

TEST(Camera, staysWithinBoundsWhateverItIsGiven)
{
    for (const double bad : {infinity, -infinity, notANumber, 1e300, -1e-20}) {
        for (const Camera& camera :
             {constrained({{bad, 0.5}, 4.0}), constrained({{0.5, bad}, 4.0}), constrained({{0.5, 0.5}, bad}),
              cameraFraming({bad, 0.1, 0.5, bad}, 800.0, bad, bad, 16.0), panned({{0.5, 0.5}, 4.0}, bad, bad),
              zoomedAbout({{{0.5, 0.5}, 4.0}, bad, 600.0}, {bad, 1.0}, bad), between({}, {{bad, bad}, bad}, 0.5)}) {
            EXPECT_TRUE(camera.center.x >= 0.0 && camera.center.x < 1.0) << bad;
            EXPECT_TRUE(camera.center.y >= 0.0 && camera.center.y <= 1.0) << bad;
            EXPECT_TRUE(camera.zoom >= lowestZoom && camera.zoom <= highestZoom) << bad;
        }
    }
}

} // namespace
} // namespace ospra
