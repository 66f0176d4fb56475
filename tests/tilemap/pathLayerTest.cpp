#include "tilemap/PathLayer.h"

#include "tests/support/Picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace ospra {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

LayerFrame makeFrame(double scale = 1.0, Coordinate center = {47.28, 8.75}, double zoom = 15.0, double width = 300.0,
                     double height = 200.0)
{
    return {.camera = {worldPoint(center).value(), zoom},
            .columns = static_cast<int>(width * scale),
            .rows = static_cast<int>(height * scale),
            .scale = scale};
}

/// A white line.
MapPath pathOf(const std::vector<Coordinate>& coordinates)
{
    return {.id = "path", .coordinates = std::make_shared<std::vector<Coordinate>>(coordinates)};
}

/// A white line through points given in logical pixels of the usual frame.
MapPath pathThrough(const std::vector<ViewPoint>& points)
{
    const MapView view{.camera = makeFrame().camera, .width = 300.0, .height = 200.0};
    std::vector<Coordinate> coordinates;
    for (const ViewPoint& point : points)
        coordinates.push_back(coordinateAt(view.placeAt(point)));
    return pathOf(coordinates);
}

Picture drawn(const MapPath& path, const LayerFrame& frame = makeFrame())
{
    Picture picture{.columns = frame.columns, .rows = frame.rows};
    PathLayer().draw({&path, 1}, frame, picture.pixels, frame.columns);
    return picture;
}

/// At a point in logical pixels.
int alphaAt(const Picture& picture, ViewPoint point, double scale)
{
    return picture.alpha(static_cast<int>(point.x * scale), static_cast<int>(point.y * scale));
}

std::vector<ViewPoint> sampled(int count, const auto& place)
{
    std::vector<ViewPoint> points;
    for (int i = 0; i < count; ++i)
        points.push_back(place(static_cast<double>(i) / (count - 1)));
    return points;
}

ViewPoint onCircle(double portion)
{
    return {150.0 + 70.0 * std::cos(portion * 2.0 * std::numbers::pi),
            100.0 + 70.0 * std::sin(portion * 2.0 * std::numbers::pi)};
}

TEST(PathLayer, isSmoothInAllDirections)
{
    for (const double scale : {1.0, 2.0}) {
        for (const double width : {1.5, 3.0, 9.0}) {
            for (const int count : {200, 4000}) {
                SCOPED_TRACE(testing::Message() << count << " points, " << width << " wide at " << scale);
                MapPath path = pathThrough(sampled(count, onCircle));
                path.width = width;
                const Picture picture = drawn(path, makeFrame(scale));
                for (int column = 0; column < picture.columns; ++column) {
                    for (int row = 0; row < picture.rows; ++row) {
                        const double fromMiddle = std::hypot(column + 0.5 - 150.0 * scale, row + 0.5 - 100.0 * scale);
                        const double aside = std::abs(fromMiddle - 70.0 * scale);
                        const double exact = std::clamp(width * scale / 2.0 + 0.5 - aside, 0.0, 1.0);
                        ASSERT_NEAR(picture.alpha(column, row) / 255.0, exact, 0.25) << column << ", " << row;
                    }
                }
            }
        }
    }
}

TEST(PathLayer, closesAndTurnsRound)
{
    const double scale = 4.0; // 20 pixels wide
    MapPath path = pathThrough({{100.0, 100.0}, {200.0, 100.0}, {120.0, 101.0}});
    path.width = 5.0;
    const Picture picture = drawn(path, makeFrame(scale));
    for (const ViewPoint& inside : {ViewPoint{202.0, 100.0}, {201.5, 101.5}, {98.0, 100.0}})
        EXPECT_EQ(alphaAt(picture, inside, scale), 255) << inside.x;
    for (const ViewPoint& outside : {ViewPoint{203.0, 100.0}, {202.3, 102.3}, {97.0, 100.0}})
        EXPECT_EQ(alphaAt(picture, outside, scale), 0) << outside.x;
}

TEST(PathLayer, dashesFromTheFirstPointOn)
{
    const double diagonal = std::numbers::sqrt2 / 2.0;
    for (const auto& [from, step] :
         {std::pair{ViewPoint{280.5, 100.5}, ViewPoint{-1.0, 0.0}}, {{220.0, 180.0}, {-diagonal, -diagonal}}}) {
        const auto at = [&, from = from, step = step](double distance) {
            return ViewPoint{from.x + distance * step.x, from.y + distance * step.y};
        };
        for (const auto& [count, scale] : {std::pair{2, 1.0}, {450, 1.0}, {450, 2.0}}) { // 450: crowded in the pixels
            SCOPED_TRACE(testing::Message() << step.y << ": " << count << " at " << scale);
            MapPath path = pathThrough(sampled(count, [&](double portion) { return at(160.0 * portion); }));
            path.dash = {4.0, 3.0};
            path.casingOpacity = 0.4;
            path.casingWidth = 5.0;
            const Picture picture = drawn(path, makeFrame(scale));
            for (int dash = 0; dash < 20; ++dash) {
                EXPECT_GE(alphaAt(picture, at(7.0 * dash + 2.0), scale), 230);
                EXPECT_LE(alphaAt(picture, at(7.0 * dash + 5.5), scale), 20);
            }
        }
    }
}

TEST(PathLayer, dashesLieStillWhileTheMapIsPanned)
{
    // Where a path enters the picture its pieces are joined otherwise, within a fraction of a pixel.
    for (const auto& [reach, tolerance] : {std::pair{200.0, 2}, {2'500.0, 60}, {40'000.0, 60}}) {
        for (const double scale : {1.0, 2.0}) {
            MapPath path = pathThrough(sampled(6000, [reach = reach](double portion) {
                return ViewPoint{150.0 + reach * (portion - 0.5), 100.0 + 60.0 * std::sin(portion * 9.0)};
            }));
            path.dash = {8.0, 3.0};
            const LayerFrame frame = makeFrame(scale);
            const Picture before = drawn(path, frame);
            EXPECT_EQ(before.greatestAlpha(), 255);
            for (const auto& [dx, dy] : {std::pair{31, -12}, {-7, 30}, {1, 1}}) {
                SCOPED_TRACE(testing::Message() << reach << " at " << scale << " by " << dx << ", " << dy);
                LayerFrame moved = frame;
                moved.camera = panned(frame.camera, dx / scale, dy / scale);
                const Picture after = drawn(path, moved);
                for (int column = 40; column < before.columns - 40; ++column) {
                    for (int row = 40; row < before.rows - 40; ++row)
                        ASSERT_NEAR(before.alpha(column, row), after.alpha(column + dx, row + dy), tolerance);
                }
            }
        }
    }
}

TEST(PathLayer, isEvenWhereItCrossesItself)
{
    MapPath path = pathThrough({{20.5, 20.5}, {280.5, 180.5}, {280.5, 20.5}, {20.5, 180.5}, {20.5, 20.5}});
    path.color = 0xff8000;
    path.opacity = 0.5;
    const Picture picture = drawn(path);
    EXPECT_EQ(picture.greatestAlpha(), 128);
    EXPECT_EQ(picture.pixel(150, 100), 0x80804000); // premultiplied
    path.casingOpacity = 1.0;
    path.casingWidth = 7.0;
    path.opacity = 1.0;
    const Picture cased = drawn(path);
    EXPECT_EQ(cased.pixel(280, 100), 0xffff8000);
    EXPECT_EQ(cased.pixel(283, 100), 0xff000000);
    EXPECT_EQ(cased.pixel(286, 100), 0U);
}

TEST(PathLayer, leavesOutWhatIsNotFinite)
{
    const MapPath path = pathThrough({{50.5, 100.5}, {100.5, 100.5}, {250.5, 100.5}});
    auto coordinates = *path.coordinates;
    for (const Coordinate& bad : {Coordinate{notANumber, 8.0}, {infinity, 8.0}, {47.0, -infinity}, {47.0, 1e9}}) {
        coordinates.insert(coordinates.begin() + 2, bad);
        coordinates.insert(coordinates.begin(), bad);
        coordinates.push_back(bad);
    }
    EXPECT_EQ(drawn(pathOf(coordinates)).pixels, drawn(path).pixels);
    for (const MapPath& nothing : {pathOf({}), pathOf({{notANumber, notANumber}, {notANumber, 1.0}}), MapPath{}})
        EXPECT_EQ(drawn(nothing).greatestAlpha(), 0);
}

TEST(PathLayer, crossesTheAntimeridianTheShortWay)
{
    for (const double center : {179.999, -179.999}) {
        const Picture picture = drawn(pathOf({{0.0, 179.7}, {0.0, -179.7}}), makeFrame(1.0, {0.0, center}, 8.0));
        int covered = 0;
        for (int column = 0; column < 300; ++column)
            covered += picture.alpha(column, 100) > 200 ? 1 : 0;
        EXPECT_NEAR(covered, 0.6 / 360.0 * 65'536.0, 4.0); // the ends are round
    }
}

TEST(PathLayer, showsOnEachTurnInThePicture)
{
    const LayerFrame frame = makeFrame(1.0, {0.0, 0.0}, 1.0, 1400.0, 200.0);
    const Picture picture = drawn(pathOf({{5.0, 170.0}, {-5.0, 190.0}, {-5.0, -150.0}}), frame);
    EXPECT_GT(picture.alpha(700 - 256, 100), 200);
    for (int column = 0; column + 512 < 1400; ++column) {
        for (int row = 0; row < 200; ++row)
            ASSERT_NEAR(picture.alpha(column, row), picture.alpha(column + 512, row), 1);
    }
}

TEST(PathLayer, projectsOncePerId)
{
    PathLayer layer;
    Picture picture{.columns = 300, .rows = 200};
    const auto draw = [&](const std::vector<MapPath>& paths, const Camera& camera) {
        layer.draw(paths, {.camera = camera, .columns = 300, .rows = 200}, picture.pixels, 300);
    };
    const Camera camera = makeFrame().camera;
    MapPath path = pathThrough({{50.5, 100.5}, {250.5, 100.5}});
    draw({path}, camera);
    path.opacity = 0.5;
    path.color = 0x00ff00;
    draw({path}, camera);
    EXPECT_EQ(picture.pixel(150, 100), 0x80008000);
    draw({path}, panned(camera, 30.0, 40.0));
    EXPECT_EQ(picture.pixel(150, 140), 0x80008000);
    draw({path}, {.center = camera.center, .zoom = 18.0});
    EXPECT_EQ(layer.projectionCount(), 1U);
    MapPath other = path;
    other.id = "other";
    draw({path, other}, camera);
    EXPECT_EQ(layer.projectionCount(), 2U);
    for (int i = 0; i < 100; ++i)
        draw({other}, camera);
    draw({path, other}, camera);
    EXPECT_EQ(layer.projectionCount(), 3U); // the first has been forgotten meanwhile
}

TEST(PathLayer, takesAnyPath)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> step(-1e-4, 1e-4);
    std::vector<Coordinate> longWalk(2'000'000, {47.28, 8.75});
    for (std::size_t i = 1; i < longWalk.size(); ++i)
        longWalk[i] = {longWalk[i - 1].latitude + step(random), longWalk[i - 1].longitude + step(random)};
    std::vector<Coordinate> winding;
    for (int i = 0; i < 20'000; ++i)
        winding.push_back({std::fmod(i * 7.0, 180.0) - 90.0, std::fmod(i * 100.0, 360.0)});
    const std::vector<Coordinate> poles{{90.0, 0.0}, {90.0, 170.0}, {-90.0, -170.0}, {-91.0, 10.0}, {1e6, -1e6}};
    for (const auto& coordinates : {longWalk, winding, poles}) {
        MapPath path = pathOf(coordinates);
        path.casingOpacity = 0.4;
        path.casingWidth = 5.0;
        for (const DashPattern dash : {DashPattern{}, {4.0, 3.0}, {1e-9, 1e-9}, {infinity, 1.0}, {notANumber, 2.0}}) {
            path.dash = dash;
            EXPECT_GT(drawn(path, makeFrame(1.0, {0.0, 0.0}, 1.0, 600.0, 600.0)).greatestAlpha(), 0);
        }
        for (const double wild : {notANumber, infinity, -1.0, 1e300}) {
            MapPath odd = path;
            odd.width = odd.opacity = odd.casingWidth = wild;
            (void)drawn(odd, makeFrame(1.0, {47.28, 8.75}, 6.0, 60.0, 40.0));
            const LayerFrame nowhere{.camera = {{wild, 0.5}, wild}, .columns = 300, .rows = 200, .scale = wild};
            EXPECT_EQ(drawn(path, nowhere).greatestAlpha(), 0);
        }
    }
    const Picture dot = drawn(pathThrough({{150.0, 100.0}, {150.0, 100.0}}));
    EXPECT_EQ(dot.alpha(150, 100), 255);
    EXPECT_EQ(dot.alpha(153, 100), 0);
}

TEST(BoundsOf, holdsAllPathsOnTheNearestTurn)
{
    const MapPath east = pathOf({{10.0, 170.0}, {notANumber, 0.0}, {-10.0, -170.0}});
    const MapPath west = pathOf({{0.0, -175.0}, {0.0, -160.0}});
    for (const auto& paths :
         {std::vector{east, west, pathOf({})}, std::vector{pathOf({{infinity, 0.0}}), west, east}}) {
        const WorldRect bounds = boundsOf(paths).value();
        const double turn = std::floor(bounds.left);
        EXPECT_NEAR(bounds.left - turn, 350.0 / 360.0, 1e-12);
        EXPECT_NEAR(bounds.right - turn, 380.0 / 360.0, 1e-12);
        EXPECT_NEAR(bounds.top, worldPoint({10.0, 0.0})->y, 1e-12);
        EXPECT_NEAR(bounds.bottom, worldPoint({-10.0, 0.0})->y, 1e-12);
    }
    EXPECT_FALSE(boundsOf(std::vector{pathOf({{notANumber, 0.0}}), MapPath{}}));
}

} // namespace
} // namespace ospra
