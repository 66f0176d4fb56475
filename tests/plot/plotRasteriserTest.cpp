#include "plot/PlotRasteriser.h"

#include "tests/support/Picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace ospra {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Alpha of a whole column of pixels, in pixels: the thickness of what is drawn there.
double columnCoverage(const Picture& picture, int column)
{
    double sum = 0.0;
    for (int row = 0; row < picture.rows; ++row)
        sum += picture.alpha(column, row) / 255.0;
    return sum;
}

/// A frame in which a time of n lies n pixels from the left, and a value of n lies n pixels below the top.
PlotFrame pixelFrame(int columns, int rows, double scale = 1.0)
{
    const double width = columns;
    const double height = rows;
    return {.columns = columns,
            .rows = rows,
            .plotWidth = width,
            .plotHeight = height,
            .scale = scale,
            .seconds = {0.0, width},
            .values = {height, 0.0}};
}

/// A white line of width 1.5 that owns its points.
PlotLine lineThrough(const std::vector<PixelPoint>& points)
{
    const auto owned = std::make_shared<const std::vector<PixelPoint>>(points);
    const double* const x = owned->empty() ? nullptr : &owned->front().x;
    const double* const y = owned->empty() ? nullptr : &owned->front().y;
    return {.owner = owned, .x = x, .y = y, .stride = 2, .count = owned->size()};
}

Picture drawPlot(const PlotContent& content, const PlotFrame& frame)
{
    Picture drawn{.columns = frame.columns, .rows = frame.rows};
    PlotRasteriser().draw(content, frame, drawn.pixels, frame.columns);
    return drawn;
}

Picture drawLine(const PlotLine& line, const PlotFrame& frame)
{
    return drawPlot({.lines = {line}}, frame);
}

std::vector<PixelPoint> sampled(int count, double width, double (*value)(double))
{
    std::vector<PixelPoint> points;
    for (int i = 0; i < count; ++i) {
        const double x = width * i / (count - 1);
        points.push_back({x, value(x)});
    }
    return points;
}

TEST(PlotRasteriser, drawsALineAsThickAsItIs)
{
    for (const int samples : {2, 90, 5000}) { // sparse, about one a pixel, dense
        for (const double scale : {1.0, 1.5, 2.0}) {
            SCOPED_TRACE(testing::Message() << samples << " samples at " << scale);
            const auto level =
                drawLine(lineThrough(sampled(samples, 100.0, [](double) { return 20.3; })), pixelFrame(100, 40, scale));
            const auto slanted = drawLine(lineThrough(sampled(samples, 100.0, [](double x) { return 2.0 * x - 80.0; })),
                                          pixelFrame(100, 40, scale));
            for (int column = 45; column < 55; ++column) {
                EXPECT_NEAR(columnCoverage(level, column), 1.5 * scale, 0.02);
                EXPECT_NEAR(columnCoverage(slanted, column), 1.5 * scale * std::sqrt(5.0), 0.25 * scale);
            }
        }
    }
}

/// What the pixel of a sample shows at least where the line passes it in the middle of its column, at most one pixel
/// aside: a stroke reaches 0.75, and half a pixel more with its soft edge.
constexpr int leastSampleAlpha = 255 / 4;

TEST(PlotRasteriser, coversThePixelOfEverySample)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> step(-1.0, 1.0);
    for (const int samples : {40, 150, 700, 1300, 20000}) {
        for (const double jump : {0.05, 2.0, 60.0}) {
            SCOPED_TRACE(testing::Message() << samples << " samples, steps of " << jump);
            std::vector<PixelPoint> points;
            double y = 40.0;
            for (int i = 0; i < samples; ++i) {
                y = std::clamp(y + jump * step(random), 0.0, 79.999);
                points.push_back({299.999 * std::abs(step(random)), y});
            }
            std::ranges::sort(points, {}, &PixelPoint::x); // unevenly spaced
            const Picture drawn = drawLine(lineThrough(points), pixelFrame(300, 80));
            for (const auto& [x, sampleY] : points)
                ASSERT_GE(drawn.alpha(static_cast<int>(x), static_cast<int>(sampleY)), leastSampleAlpha)
                    << x << " " << sampleY;
        }
    }
}

TEST(PlotRasteriser, coversLittleThatIsFarFromTheLine)
{
    const auto points = sampled(3000, 300.0, [](double x) { return 40.0 + 30.0 * std::sin(x / 20.0); });
    const Picture drawn = drawLine(lineThrough(points), pixelFrame(300, 80));
    for (int column = 0; column < 300; ++column) {
        for (int row = 0; row < 80; ++row) {
            double nearest = infinity;
            for (const auto& [x, y] : points)
                nearest = std::min(nearest, std::hypot(x - column - 0.5, y - row - 0.5));
            const double exact = std::clamp(0.75 + 0.5 - nearest, 0.0, 1.0);
            ASSERT_NEAR(drawn.alpha(column, row) / 255.0, exact, 0.2) << column << " " << row;
        }
    }
}

TEST(PlotRasteriser, keepsATranslucentLineEven)
{
    PlotLine line = lineThrough({{5.0, 5.0}, {35.0, 35.0}, {35.0, 5.0}, {5.0, 35.0}, {20.0, 5.0}, {20.0, 35.0}});
    line.opacity = 0.7;
    line.color = 0x0000ff;
    const Picture drawn = drawLine(line, pixelFrame(40, 40));
    EXPECT_EQ(std::ranges::max(drawn.pixels), 0xb30000b3); // 0.7 * 255 is 178.5
    for (const std::uint32_t pixel : drawn.pixels)
        ASSERT_EQ(pixel & 0xff, pixel >> 24); // premultiplied
}

TEST(PlotRasteriser, blendsLaterLinesOverEarlierOnes)
{
    PlotLine below = lineThrough({{0.0, 10.5}, {20.0, 10.5}});
    below.color = 0xff0000;
    PlotLine above = lineThrough({{10.5, 0.0}, {10.5, 20.0}});
    above.color = 0x00ff00;
    above.opacity = 0.5;
    const Picture drawn = drawPlot({.lines = {below, above}}, pixelFrame(20, 20));
    EXPECT_EQ(drawn.pixel(3, 10), 0xffff0000);
    EXPECT_EQ(drawn.pixel(10, 10), 0xff7f8000);
    EXPECT_EQ(drawn.pixel(10, 3), 0x80008000);
}

TEST(PlotRasteriser, dashesInLogicalPixels)
{
    for (const int samples : {2, 100, 20000}) {
        for (const int scale : {1, 2}) {
            SCOPED_TRACE(testing::Message() << samples << " samples at " << scale);
            PlotLine line = lineThrough(sampled(samples, 180.0, [](double) { return 10.5; }));
            line.dash = {5.0, 4.0};
            const Picture drawn = drawLine(line, pixelFrame(180, 21, scale));
            for (int column = 0; column < 180; ++column) {
                const bool on = column % (9 * scale) < 5 * scale;
                ASSERT_EQ(drawn.alpha(column, 10), on ? 255 : 0) << column;
            }
        }
    }
}

TEST(PlotRasteriser, joinsTheNeighboursOfPointsThatAreNotFinite)
{
    const auto frame = pixelFrame(60, 40);
    const std::vector<PixelPoint> points{{notANumber, 3.0}, {0.0, 20.5},       {10.0, notANumber},
                                         {20.0, infinity},  {25.0, -infinity}, {infinity, 20.0},
                                         {-infinity, 2.0},  {60.0, 20.5},      {61.0, notANumber}};
    const Picture drawn = drawLine(lineThrough(points), frame);
    EXPECT_EQ(drawn.pixels, drawLine(lineThrough({{0.0, 20.5}, {60.0, 20.5}}), frame).pixels);
}

TEST(PlotRasteriser, drawsClockStepsBackwards)
{
    std::vector<PixelPoint> points;
    for (int i = 0; i < 4000; ++i)
        points.push_back({0.01 * i + (i >= 2000 ? -10.0 : 0.0), i < 2000 ? 5.5 : 30.5});
    const Picture drawn = drawLine(lineThrough(points), pixelFrame(40, 40));
    for (int column = 1; column < 19; ++column)
        EXPECT_GE(drawn.alpha(column, 5), 250);
    for (int column = 11; column < 29; ++column)
        EXPECT_GE(drawn.alpha(column, 30), 250);
    EXPECT_NEAR(columnCoverage(drawn, 15), 1.5 * (2.0 + std::hypot(10.0, 25.0) / 10.0), 0.1); // with the step itself
    EXPECT_EQ(drawn.alpha(5, 30), 0);
}

TEST(PlotRasteriser, drawsAnythingWithoutHarm)
{
    std::mt19937 random(5);
    const std::vector<double> odd{0.0,  -0.0, 1e300,    -1e300,    1.7e308, -1.7e308,   1e-310, 7.3,
                                  12.0, 59.9, infinity, -infinity, 30.0,    notANumber, -5.0,   1e9};
    const auto pick = [&] { return odd[random() % odd.size()]; };
    for (int round = 0; round < 3000; ++round) {
        std::vector<PixelPoint> points(random() % 12);
        for (PixelPoint& point : points)
            point = {pick(), pick()};
        PlotLine line = lineThrough(points);
        line.width = pick();
        line.opacity = pick();
        line.dash = random() % 2 == 0 ? DashPattern{} : DashPattern{pick(), pick()};
        PlotFrame frame = pixelFrame(static_cast<int>(random() % 3) * 30, static_cast<int>(random() % 3) * 20);
        if (round % 3 == 0)
            frame.seconds = {pick(), pick()};
        if (round % 5 == 0)
            frame.values = {pick(), pick()};
        const PlotMarker marker{.seconds = pick(), .dash = {pick(), pick()}, .width = pick(), .ruleOpacity = pick()};
        const Picture drawn = drawPlot({.lines = {line}, .markers = {marker}}, frame);
        for (const std::uint32_t pixel : drawn.pixels)
            ASSERT_LE(pixel & 0xff, pixel >> 24) << round;
    }
}

TEST(PlotRasteriser, drawsHugeValuesAsTheirVisiblePart)
{
    const Picture drawn =
        drawLine(lineThrough({{10.5, 20.5}, {10.5, 1e300}, {30.5, -1e300}, {30.5, 20.5}}), pixelFrame(40, 40));
    EXPECT_GE(drawn.alpha(10, 30), 250);
    EXPECT_EQ(drawn.alpha(10, 10), 0);
    EXPECT_GE(drawn.alpha(30, 10), 250);
    EXPECT_EQ(drawn.alpha(30, 30), 0);
}

TEST(PlotRasteriser, fillsTheSmallestPictures)
{
    const PlotLine line = lineThrough({{0.0, 0.5}, {1.0, 0.5}});
    EXPECT_EQ(drawLine(line, pixelFrame(1, 1)).pixel(0, 0), 0xffffffff);
    EXPECT_TRUE(drawLine(line, pixelFrame(0, 0)).pixels.empty());
    EXPECT_EQ(drawPlot({}, pixelFrame(1, 1)).pixel(0, 0), 0U);
    EXPECT_GT(drawLine(lineThrough({{5.5, 5.5}}), pixelFrame(10, 10)).alpha(5, 5), 250); // a dot
}

TEST(PlotRasteriser, drawsRulesCrisp)
{
    const PlotMarker marker{.seconds = 10.3, .color = 0xff0000, .dash = {3.0, 4.0}};
    PlotFrame frame = pixelFrame(20, 44);
    frame.plotTop = 2.0;
    frame.plotHeight = 40.0;
    Picture expected{.columns = 20, .rows = 44};
    std::ranges::fill(expected.pixels, 0U);
    for (int row = 2; row < 42; ++row)
        expected.pixels[static_cast<std::size_t>(20 * row + 10)] = (row - 2) % 7 < 3 ? 0xffff0000 : 0U;
    const Picture drawn = drawPlot({.markers = {marker, {.seconds = 25.0}, {.seconds = notANumber}}}, frame);
    EXPECT_EQ(drawn.pixels, expected.pixels);
}

TEST(PlotRasteriser, usesItsMemoryAgainWithoutATrace)
{
    PlotRasteriser rasteriser;
    const auto noise = lineThrough(sampled(500, 60.0, [](double x) { return 20.0 + 30.0 * std::sin(40.0 * x); }));
    const auto level = lineThrough({{0.0, 5.5}, {60.0, 5.5}});
    for (const PlotFrame& frame : {pixelFrame(60, 40), pixelFrame(50, 41), pixelFrame(60, 40)}) {
        Picture picture{.columns = frame.columns, .rows = frame.rows};
        for (const PlotLine& line : {noise, level})
            rasteriser.draw({.lines = {line}}, frame, picture.pixels, frame.columns);
        EXPECT_EQ(picture.pixels, drawLine(level, frame).pixels);
    }
}

} // namespace
} // namespace ospra
