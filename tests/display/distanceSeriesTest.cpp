#include "display/distanceSeries.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

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

TEST(NearestIndex, agreesWithAScanAndGivesTiesToTheLater)
{
    EXPECT_EQ(nearestIndex({}, 3.0), 0);
    EXPECT_EQ(nearestIndex(std::vector{7.0}, 3.0), 0);

    std::mt19937 random(5);
    for (int round = 0; round < 500; ++round) {
        std::vector<double> elapsed{0.0};
        while (elapsed.size() < 2 + random() % 20)
            elapsed.push_back(elapsed.back() + 1.0 + static_cast<double>(random() % 3));
        for (double t = -1.5; t < elapsed.back() + 2.0; t += 0.25) {
            std::size_t best = 0;
            for (std::size_t i = 1; i < elapsed.size(); ++i)
                if (std::abs(elapsed[i] - t) <= std::abs(elapsed[best] - t))
                    best = i;
            ASSERT_EQ(nearestIndex(elapsed, t), static_cast<std::ptrdiff_t>(best)) << t;
        }
        std::ranges::shuffle(elapsed, random);
        elapsed[random() % elapsed.size()] = NAN;
        const std::ptrdiff_t index = nearestIndex(elapsed, 3.0);
        ASSERT_TRUE(0 <= index && index < std::ssize(elapsed));
    }
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

TEST(BuildDistanceData, pairsTheNearestSamplesOfTheCompanion)
{
    // At 1 s both of the companion's samples are equally near: the later counts. Beyond its end the last one does.
    const std::vector<JumpTrack> tracks{trackAt({0.0, 1.0, 2.0, 60.0}, {0.0, 0.0, 0.0, 0.0}, 500.0),
                                        trackAt({0.0, 2.0}, {1.0, 2.0}, 900.0)};
    const auto data = buildDistanceData(tracks, UnitSystem::metric);
    ASSERT_EQ(data.size(), 1u);
    EXPECT_EQ(data[0].id, tracks[1].id);
    const std::vector<double> ground = values(data[0].data[horizontalDistance]);
    ASSERT_EQ(ground.size(), 4u);
    EXPECT_DOUBLE_EQ(ground[0], metresPerDegree);
    for (const std::size_t i : {1u, 2u, 3u})
        EXPECT_DOUBLE_EQ(ground[i], 2.0 * metresPerDegree);
    EXPECT_EQ(values(data[0].data[verticalDistance]), (std::vector<double>(4, 400.0)));
    EXPECT_DOUBLE_EQ(data[0].data[totalDistance][0].value, std::hypot(metresPerDegree, 400.0));
    EXPECT_EQ(data[0].data[totalDistance][3].seconds, 60.0);

    const auto inFeet = buildDistanceData(tracks, UnitSystem::imperial);
    EXPECT_DOUBLE_EQ(inFeet[0].data[verticalDistance][0].value, 1312.336);
    EXPECT_TRUE(buildDistanceData({tracks.data(), 1}, UnitSystem::metric).empty());
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

TEST(CutDistances, followWhatIsHidden)
{
    const std::vector<JumpTrack> tracks{trackAt({0, 1, 2}, {0, 1, 2}), trackAt({0, 1, 2}, {0, 1, 2}),
                                        trackAt({0, 1, 2}, {0, 1, 2})};
    const auto horizontal = buildHorizontalDistances(tracks, UnitSystem::metric);
    const auto between = buildDistanceData(tracks, UnitSystem::metric);
    const TimeRange range{.lo = 1.0, .hi = 5.0};

    EXPECT_EQ(cutHorizontalDistances(tracks, horizontal, {}, range).size(), 3u);
    const auto withoutBo = cutDistanceData(tracks, between, {tracks[1].id}, range);
    ASSERT_EQ(withoutBo.size(), 1u);
    EXPECT_EQ(withoutBo[0].id, tracks[2].id);
    EXPECT_EQ(withoutBo[0].data[totalDistance].size(), 2u);

    const TrackIDs primary{tracks[0].id};
    EXPECT_TRUE(cutDistanceData(tracks, between, primary, range).empty());
    const auto companions = cutHorizontalDistances(tracks, horizontal, primary, range);
    ASSERT_EQ(companions.size(), 2u);
    EXPECT_FALSE(companions[0].isPrimary);
    EXPECT_EQ(companions[0].trackIndex, 1);
    EXPECT_EQ(companions[0].fromExit.size(), 2u);
}

} // namespace
} // namespace ospra
