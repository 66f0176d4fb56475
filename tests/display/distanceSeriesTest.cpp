#include "display/distanceSeries.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

using enum DistanceSeries;

constexpr double metresPerDegree = 111194.92664455873; // of a great circle: 6,371 km times pi by 180

std::vector<double> values(const ChartPoints& points)
{
    std::vector<double> result;
    for (const ChartPoint& point : points)
        result.push_back(point.value);
    return result;
}

/// A track on the equator at a height, one place per sample.
JumpTrack trackAt(const std::vector<double>& elapsed, const std::vector<double>& longitudes, double altitude = 0.0)
{
    JumpTrack track = makeBareTrack(elapsed);
    for (std::size_t i = 0; i < longitudes.size(); ++i) {
        track.file.dataPoints[i].coordinate.longitude = longitudes[i];
        track.file.dataPoints[i].altitudeMSL = altitude;
    }
    return track;
}

TEST(GreatCircleDistance, measuresArcsOfTheSphere)
{
    EXPECT_DOUBLE_EQ(greatCircleDistance({0.0, 10.0}, {0.0, 11.0}), metresPerDegree);
    EXPECT_DOUBLE_EQ(greatCircleDistance({-45.0, 7.0}, {45.0, 7.0}), 90.0 * metresPerDegree);
    EXPECT_NEAR(greatCircleDistance({0.0, 179.5}, {0.0, -179.5}), metresPerDegree, 1e-6);
    EXPECT_NEAR(greatCircleDistance({60.0, 0.0}, {60.0, 0.001}), metresPerDegree * 0.0005, 1e-6);
    EXPECT_EQ(greatCircleDistance({47.1, 8.2}, {47.1, 8.2}), 0.0);
    EXPECT_TRUE(std::isnan(greatCircleDistance({NAN, 0.0}, {0.0, 0.0})));
    EXPECT_TRUE(std::isnan(greatCircleDistance({0.0, INFINITY}, {0.0, 0.0})));
    // Opposite places, at the very end of the arc sine.
    for (double latitude = -90.0; latitude <= 90.0; latitude += 0.37)
        EXPECT_NEAR(greatCircleDistance({latitude, -30.0}, {-latitude, 150.0}), 180.0 * metresPerDegree, 1.0);
}

TEST(MedianFilter, leavesShortSeriesAloneAndShrinksAtTheEnds)
{
    const auto filtered = [](const std::vector<double>& raw) {
        std::vector<ChartPoint> points;
        points.reserve(raw.size());
        for (const double value : raw)
            points.push_back({.id = 10 + std::ssize(points), .seconds = 0.5, .value = value});
        points = medianFilter(points, 5);
        for (std::size_t i = 0; i < points.size(); ++i)
            EXPECT_EQ(points[i].id, 10 + static_cast<std::int64_t>(i));
        return values(ChartPoints(points));
    };
    EXPECT_EQ(filtered({1, 9, 2, 8}), (std::vector<double>{1, 9, 2, 8}));
    EXPECT_EQ(filtered({1, 9, 2, 8, 5}), (std::vector<double>{2, 8, 5, 8, 5}));
}

TEST(BuildDistanceData, leavesOutInaccurateSamples)
{
    std::vector<JumpTrack> tracks{trackAt({0, 1, 2, 3, 4}, {0, 0, 0, 0, 0}), trackAt({0, 1, 2, 3, 4}, {1, 2, 3, 4, 5})};
    tracks[0].file.dataPoints[1].horizontalAccuracy = 50.0;
    tracks[1].file.dataPoints[3].horizontalAccuracy = NAN;
    tracks[1].file.dataPoints[4].horizontalAccuracy = 49.999;
    const ChartPoints points = buildDistanceData(tracks, UnitSystem::metric)[0].data[totalDistance];
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(points[1].id, 2);
    EXPECT_EQ(points[2].id, 4);

    for (FlySightDataPoint& sample : tracks[1].file.dataPoints)
        sample.horizontalAccuracy = 99.0;
    const auto none = buildDistanceData(tracks, UnitSystem::metric);
    ASSERT_EQ(none.size(), 1u);
    EXPECT_TRUE(none[0].data[horizontalDistance].empty());
}

TEST(HorizontalSeries, measuresFromTheExitOn)
{
    JumpTrack track = trackAt({0, 1, 2, 3, 4}, {0, 7, 8, 9, 8});
    track.phases = {{.phase = JumpPhase::aircraft, .startIndex = 0, .endIndex = 2},
                    {.phase = JumpPhase::freefall, .startIndex = 2, .endIndex = 4}};
    const auto degrees = [](const ChartPoints& points) {
        std::vector<double> result;
        for (const ChartPoint& point : points)
            result.push_back(std::round(point.value / metresPerDegree * 1e9) / 1e9);
        return result;
    };
    const auto [traveled, fromExit] = horizontalSeries(track, UnitSystem::metric);
    EXPECT_EQ(degrees(traveled), (std::vector<double>{0, 0, 0, 1, 2}));
    EXPECT_EQ(degrees(fromExit), (std::vector<double>{0, 0, 0, 1, 0}));

    track.phases.clear();
    EXPECT_EQ(degrees(horizontalSeries(track, UnitSystem::metric).traveled), (std::vector<double>{0, 7, 8, 9, 10}));
    track.phases = {{.phase = JumpPhase::freefall, .startIndex = 99, .endIndex = 100}};
    EXPECT_EQ(degrees(horizontalSeries(track, UnitSystem::metric).traveled), (std::vector<double>(5, 0.0)));
    EXPECT_TRUE(horizontalSeries(makeBareTrack({}), UnitSystem::metric).traveled.empty());
}

} // namespace
} // namespace ospra
