#include "display/distanceSeries.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

using enum DistanceSeries;

constexpr double metresPerDegree = 111194.92664455873; // of a great circle: 6,371 km times pi by 180

TEST(GreatCircleDistance, isTakenOfAnyPlaces)
{
    EXPECT_EQ(greatCircleDistance({47.1, 8.2}, {47.1, 8.2}), 0.0);
    EXPECT_TRUE(std::isnan(greatCircleDistance({NAN, 0.0}, {0.0, 0.0})));
    EXPECT_TRUE(std::isnan(greatCircleDistance({0.0, INFINITY}, {0.0, 0.0})));
    // Opposite places, at the very end of the arc sine.
    for (double latitude = -90.0; latitude <= 90.0; latitude += 0.37)
        EXPECT_NEAR(greatCircleDistance({latitude, -30.0}, {-latitude, 150.0}), 180.0 * metresPerDegree, 1.0);
}

TEST(BuildDistanceData, leavesOutInaccurateSamples)
{
    std::vector<JumpTrack> tracks(2, makeBareTrack({0, 1, 2, 3, 4}));
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

TEST(HorizontalSeries, bearsAnyPhases)
{
    JumpTrack track = makeBareTrack({0, 1, 2});
    track.file.dataPoints[1].coordinate.longitude = 7.0;
    EXPECT_NEAR(horizontalSeries(track, UnitSystem::metric).traveled[2].value, 14.0 * metresPerDegree, 1e-3);
    track.phases = {{.phase = JumpPhase::freefall, .startIndex = 99, .endIndex = 100}};
    EXPECT_EQ(horizontalSeries(track, UnitSystem::metric).traveled[2].value, 0.0);
    EXPECT_TRUE(horizontalSeries(makeBareTrack({}), UnitSystem::metric).traveled.empty());
}

} // namespace
} // namespace ospra
