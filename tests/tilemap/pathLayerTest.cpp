#include "tilemap/PathLayer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <random>

namespace ospra {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::uint32_t untouched = 0xdeadbeef;

LayerFrame makeFrame(double scale = 1.0, Coordinate center = {47.28, 8.75}, double zoom = 15.0, double width = 300.0,
                     double height = 200.0)
{
    return {.camera = {worldPoint(center).value(), zoom},
            .columns = static_cast<int>(width * scale),
            .rows = static_cast<int>(height * scale),
            .scale = scale};
}

/// A white line through points given in logical pixels of a frame.
MapPath pathThrough(const std::vector<ViewPoint>& points, const LayerFrame& frame = makeFrame())
{
    const MapView view{
        .camera = frame.camera, .width = frame.columns / frame.scale, .height = frame.rows / frame.scale};
    auto coordinates = std::make_shared<std::vector<Coordinate>>();
    for (const ViewPoint& point : points)
        coordinates->push_back(coordinateAt(view.placeAt(point)));
    return {.id = "path", .coordinates = std::move(coordinates), .color = 0xffffff};
}

MapPath pathOf(std::vector<Coordinate> coordinates)
{
    return {.id = "path", .coordinates = std::make_shared<std::vector<Coordinate>>(std::move(coordinates))};
}

struct Picture {
    int columns = 0;
    int rows = 0;
    std::vector<std::uint32_t> pixels{};

    [[nodiscard]] std::uint32_t pixel(int column, int row) const
    {
        return pixels.at(static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                         static_cast<std::size_t>(column));
    }
    [[nodiscard]] int alpha(int column, int row) const { return static_cast<int>(pixel(column, row) >> 24); }
    [[nodiscard]] int greatestAlpha() const
    {
        return static_cast<int>(std::ranges::max(pixels) >> 24); // alpha decides which pixel is the greatest
    }
};

Picture drawn(const std::vector<MapPath>& paths, const LayerFrame& frame, PathLayer layer = {})
{
    Picture picture{frame.columns, frame.rows, {}};
    picture.pixels.assign(static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows), untouched);
    layer.draw(paths, frame, picture.pixels, frame.columns);
    return picture;
}

std::vector<ViewPoint> sampled(int count, const std::function<ViewPoint(double)>& place)
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
                const Picture picture = drawn({path}, makeFrame(scale));
                double worst = 0.0;
                for (int column = 0; column < picture.columns; ++column) {
                    for (int row = 0; row < picture.rows; ++row) {
                        const double fromMiddle = std::hypot(column + 0.5 - 150.0 * scale, row + 0.5 - 100.0 * scale);
                        const double aside = std::abs(fromMiddle - 70.0 * scale);
                        const double exact = std::clamp(width * scale / 2.0 + 0.5 - aside, 0.0, 1.0);
                        worst = std::max(worst, std::abs(picture.alpha(column, row) / 255.0 - exact));
                    }
                }
                EXPECT_LT(worst, 0.25);
            }
        }
    }
}

TEST(PathLayer, closesAndTurnsRound)
{
    const double scale = 4.0; // 20 pixels wide
    MapPath path = pathThrough({{100.0, 100.0}, {200.0, 100.0}, {120.0, 101.0}});
    path.width = 5.0;
    const Picture picture = drawn({path}, makeFrame(scale));
    for (const auto& [x, y, isInside] : {std::tuple{202.0, 100.0, true},
                                         {203.0, 100.0, false},
                                         {201.5, 101.5, true},
                                         {202.3, 102.3, false},
                                         {98.0, 100.0, true},
                                         {97.0, 100.0, false}})
        EXPECT_EQ(picture.alpha(static_cast<int>(x * scale), static_cast<int>(y * scale)), isInside ? 255 : 0)
            << x << " " << y;
}

TEST(PathLayer, dashesFromTheFirstPointOn)
{
    struct Way {
        ViewPoint from;
        ViewPoint step; // of one logical pixel
    };
    const double diagonal = std::numbers::sqrt2 / 2.0;
    for (const Way& way :
         {Way{{20.5, 100.5}, {1.0, 0.0}}, Way{{280.5, 100.5}, {-1.0, 0.0}}, Way{{150.5, 180.5}, {0.0, -1.0}},
          Way{{150.5, 20.5}, {0.0, 1.0}}, Way{{220.0, 180.0}, {-diagonal, -diagonal}}}) {
        for (const int count : {2, 450}) { // the latter less than half a pixel apart
            for (const double scale : {1.0, 2.0}) {
                SCOPED_TRACE(testing::Message()
                             << way.step.x << ", " << way.step.y << ": " << count << " at " << scale);
                const auto at = [&](double distance) {
                    return ViewPoint{way.from.x + distance * way.step.x, way.from.y + distance * way.step.y};
                };
                MapPath path = pathThrough(sampled(count, [&](double portion) { return at(160.0 * portion); }));
                path.dash = {4.0, 3.0};
                path.casingOpacity = 0.4;
                path.casingWidth = 5.0;
                const Picture picture = drawn({path}, makeFrame(scale));
                for (int dash = 0; dash < 20; ++dash) {
                    const ViewPoint on = at(7.0 * dash + 2.0);
                    const ViewPoint off = at(7.0 * dash + 5.5);
                    EXPECT_GE(picture.alpha(static_cast<int>(on.x * scale), static_cast<int>(on.y * scale)), 230);
                    EXPECT_LE(picture.alpha(static_cast<int>(off.x * scale), static_cast<int>(off.y * scale)), 20);
                }
            }
        }
    }
}

TEST(PathLayer, dashesLieStillWhileTheMapIsPanned)
{
    const auto wave = [](double reach) {
        return sampled(6000, [reach](double portion) {
            return ViewPoint{150.0 + reach * (portion - 0.5), 100.0 + 60.0 * std::sin(portion * 9.0)};
        });
    };
    struct Row {
        double reach;
        int tolerance;
    };
    // Where a path enters the picture its pieces are joined otherwise, within a fraction of a pixel.
    for (const Row& row : {Row{200.0, 2}, Row{40'000.0, 60}}) {
        for (const double scale : {1.0, 2.0}) {
            MapPath path = pathThrough(wave(row.reach));
            path.dash = {8.0, 3.0};
            const LayerFrame frame = makeFrame(scale);
            const Picture before = drawn({path}, frame);
            for (const auto& [dx, dy] : {std::pair{31, -12}, {-7, 30}, {1, 1}}) {
                LayerFrame moved = frame;
                moved.camera = panned(frame.camera, dx / scale, dy / scale);
                const Picture after = drawn({path}, moved);
                int worst = 0;
                for (int column = 40; column < before.columns - 40; ++column) {
                    for (int line = 40; line < before.rows - 40; ++line)
                        worst =
                            std::max(worst, std::abs(before.alpha(column, line) - after.alpha(column + dx, line + dy)));
                }
                EXPECT_LE(worst, row.tolerance) << row.reach << " at " << scale << " by " << dx << ", " << dy;
                EXPECT_EQ(before.greatestAlpha(), 255);
            }
        }
    }
}

TEST(PathLayer, isEvenWhereItCrossesItself)
{
    MapPath path = pathThrough({{20.5, 20.5}, {280.5, 180.5}, {280.5, 20.5}, {20.5, 180.5}, {20.5, 20.5}});
    path.color = 0xff8000;
    path.opacity = 0.5;
    const Picture picture = drawn({path}, makeFrame());
    EXPECT_EQ(picture.greatestAlpha(), 128);
    EXPECT_EQ(picture.pixel(150, 100), 0x80804000); // premultiplied
    EXPECT_EQ(picture.pixel(280, 100), 0x80804000);
    path.casingOpacity = 1.0;
    path.casingWidth = 7.0;
    path.opacity = 1.0;
    const Picture cased = drawn({path}, makeFrame());
    EXPECT_EQ(cased.pixel(280, 100), 0xffff8000);
    EXPECT_EQ(cased.pixel(283, 100), 0xff000000);
    EXPECT_EQ(cased.pixel(286, 100), 0U);
}

TEST(PathLayer, leavesOutWhatIsNotFinite)
{
    MapPath path = pathThrough({{50.5, 100.5}, {100.5, 100.5}, {250.5, 100.5}});
    auto coordinates = *path.coordinates;
    for (const Coordinate& bad : {Coordinate{notANumber, 8.0}, {infinity, 8.0}, {47.0, -infinity}, {47.0, 1e9}}) {
        coordinates.insert(coordinates.begin() + 2, bad);
        coordinates.insert(coordinates.begin(), bad);
        coordinates.push_back(bad);
    }
    EXPECT_EQ(drawn({pathOf(coordinates)}, makeFrame()).pixels, drawn({path}, makeFrame()).pixels);
    for (const MapPath& nothing : {pathOf({}), pathOf({{notANumber, notANumber}, {notANumber, 1.0}}), MapPath{}})
        EXPECT_EQ(drawn({nothing}, makeFrame()).greatestAlpha(), 0);
}

TEST(PathLayer, crossesTheAntimeridianTheShortWay)
{
    for (const double center : {179.999, -179.999}) {
        const LayerFrame frame = makeFrame(1.0, {0.0, center}, 8.0);
        const Picture picture = drawn({pathOf({{0.0, 179.7}, {0.0, -179.7}})}, frame);
        int covered = 0;
        for (int column = 0; column < 300; ++column)
            covered += picture.alpha(column, 100) > 200 ? 1 : 0;
        EXPECT_NEAR(covered, 0.6 / 360.0 * 65'536.0, 4.0); // the ends are round
    }
}

TEST(PathLayer, showsOnEachTurnInThePicture)
{
    const LayerFrame frame = makeFrame(1.0, {0.0, 0.0}, 1.0, 1400.0, 200.0);
    const Picture picture = drawn({pathOf({{5.0, 170.0}, {-5.0, 190.0}, {-5.0, -150.0}})}, frame);
    for (const int column : {700 - 256, 700 + 256})
        EXPECT_GT(picture.alpha(column, 100), 200) << column;
    for (int column = 0; column + 512 < 1400; ++column) {
        for (int row = 0; row < 200; ++row)
            ASSERT_NEAR(picture.alpha(column, row), picture.alpha(column + 512, row), 1);
    }
}

TEST(PathLayer, projectsOncePerId)
{
    PathLayer layer;
    const LayerFrame frame = makeFrame();
    std::vector<std::uint32_t> pixels(300 * 200);
    MapPath path = pathThrough({{50.5, 100.5}, {250.5, 100.5}});
    const auto draw = [&](const std::vector<MapPath>& paths, const LayerFrame& seen) {
        layer.draw(paths, seen, pixels, 300);
    };
    draw({path}, frame);
    path.opacity = 0.5;
    path.color = 0x00ff00;
    draw({path}, frame);
    EXPECT_EQ(pixels[100 * 300 + 150], 0x80008000U);
    draw({path}, {panned(frame.camera, 30.0, 40.0), 300, 200, 1.0});
    EXPECT_EQ(pixels[140 * 300 + 150], 0x80008000U);
    draw({path}, makeFrame(1.0, {47.28, 8.75}, 18.0));
    EXPECT_EQ(layer.projectionCount(), 1U);
    MapPath other = path;
    other.id = "other";
    draw({path, other}, frame);
    EXPECT_EQ(layer.projectionCount(), 2U);
    for (int i = 0; i < 100; ++i)
        draw({other}, frame);
    draw({path, other}, frame);
    EXPECT_EQ(layer.projectionCount(), 3U); // the first has been forgotten meanwhile
}

TEST(PathLayer, keepsToItsPixels)
{
    std::vector<std::uint32_t> pixels(320 * 200, untouched);
    PathLayer().draw(std::vector{pathThrough({{-50.0, 30.0}, {350.0, 180.0}})}, makeFrame(), pixels, 320);
    for (std::size_t row = 0; row < 200; ++row) {
        EXPECT_EQ(pixels[row * 320 + 299] == untouched, false);
        for (std::size_t column = 300; column < 320; ++column)
            ASSERT_EQ(pixels[row * 320 + column], untouched);
    }
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
            EXPECT_GT(drawn({path}, makeFrame(1.0, {0.0, 0.0}, 1.0, 600.0, 600.0)).greatestAlpha(), 0);
        }
        for (const double wild : {notANumber, infinity, -1.0, 1e300}) {
            MapPath odd = path;
            odd.width = odd.opacity = odd.casingWidth = wild;
            (void)drawn({odd}, makeFrame(1.0, {47.28, 8.75}, 6.0, 60.0, 40.0));
            LayerFrame frame = makeFrame();
            frame.camera.zoom = frame.camera.center.x = wild;
            frame.scale = wild;
            EXPECT_EQ(drawn({path}, frame).greatestAlpha(), 0);
        }
    }
    const Picture dot = drawn({pathThrough({{150.0, 100.0}, {150.0, 100.0}})}, makeFrame());
    EXPECT_EQ(dot.alpha(150, 100), 255);
    EXPECT_EQ(dot.alpha(153, 100), 0);
}

TEST(BoundsOf, holdsAllPathsOnTheNearestTurn)
{
    const MapPath east = pathOf({{10.0, 170.0}, {notANumber, 0.0}, {-10.0, -170.0}});
    const MapPath west = pathOf({{0.0, -175.0}, {0.0, -160.0}});
    for (const auto& paths :
         {std::vector{east, west, pathOf({})}, std::vector{pathOf({{infinity, 0.0}}), west, east}}) {
        const auto bounds = boundsOf(paths);
        ASSERT_TRUE(bounds);
        const double turn = std::floor(bounds->left);
        EXPECT_NEAR(bounds->left - turn, 350.0 / 360.0, 1e-12);
        EXPECT_NEAR(bounds->right - turn, 380.0 / 360.0, 1e-12);
        EXPECT_NEAR(bounds->top, worldPoint({10.0, 0.0})->y, 1e-12);
        EXPECT_NEAR(bounds->bottom, worldPoint({-10.0, 0.0})->y, 1e-12);
    }
    EXPECT_FALSE(boundsOf(std::vector{pathOf({{notANumber, 0.0}}), MapPath{}}));
}

} // namespace
} // namespace ospra
