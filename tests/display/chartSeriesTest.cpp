#include "display/chartSeries.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace ospra {
namespace {

using enum DataSeries;

constexpr DisplayUnits metricAGL{.system = UnitSystem::metric, .altitude = AltitudeReference::aboveGround};
constexpr DisplayUnits metricMSL{.system = UnitSystem::metric, .altitude = AltitudeReference::aboveSeaLevel};
constexpr DisplayUnits imperialAGL{.system = UnitSystem::imperial, .altitude = AltitudeReference::aboveGround};

TEST(SeriesValue, followsTheVelocitiesByHand)
{
    const FlySightDataPoint sample{
        .altitudeMSL = 1450.0, .velocityNorth = 3.0, .velocityEast = 4.0, .velocityDown = 12.0};
    const auto metric = [&](DataSeries series) { return seriesValue(sample, series, 450.0, UnitSystem::metric); };
    EXPECT_EQ(metric(elevation), 1000.0);
    EXPECT_EQ(metric(horizontalSpeed), 18.0);
    EXPECT_DOUBLE_EQ(metric(verticalSpeed), 43.2);
    EXPECT_DOUBLE_EQ(metric(totalSpeed), 46.8);
    EXPECT_EQ(metric(DataSeries::glideRatio), 5.0 / 12.0);
    EXPECT_DOUBLE_EQ(metric(diveAngle), 67.38013505195958); // of the triangle 5, 12, 13

    const auto imperial = [&](DataSeries series) { return seriesValue(sample, series, 450.0, UnitSystem::imperial); };
    EXPECT_DOUBLE_EQ(imperial(elevation), 3280.84);
    EXPECT_DOUBLE_EQ(imperial(totalSpeed), 29.08022);
    EXPECT_EQ(imperial(DataSeries::glideRatio), 5.0 / 12.0);
}

TEST(SeriesValue, holdsAtTheEdges)
{
    const auto value = [](double east, double down, DataSeries series) {
        return seriesValue({.velocityEast = east, .velocityDown = down}, series, 0.0, UnitSystem::metric);
    };
    EXPECT_EQ(value(100.0, 0.5, DataSeries::glideRatio), 0.0);
    EXPECT_EQ(value(100.0, -0.5, DataSeries::glideRatio), 0.0);
    EXPECT_EQ(value(100.0, 0.51, DataSeries::glideRatio), 10.0);
    EXPECT_EQ(value(10.0, 1.0, DataSeries::glideRatio), 10.0);
    EXPECT_EQ(value(9.0, -1.0, DataSeries::glideRatio), 9.0);
    EXPECT_EQ(value(0.0, 0.0, diveAngle), 0.0);
    EXPECT_EQ(value(0.0, 9.0, diveAngle), 90.0);
    EXPECT_EQ(value(5.0, -5.0, diveAngle), -45.0);
    EXPECT_LT(value(40.0, -5.0, verticalSpeed), 0.0);
    EXPECT_TRUE(std::isnan(value(NAN, 5.0, DataSeries::glideRatio)));
}

TEST(BuildChartData, agreesWithTheFormulasAtHigherPrecision)
{
    const std::vector<JumpTrack> tracks{makeTrack(makeJump({.climbSeconds = 30.0}))};
    const JumpTrack& track = tracks.front();
    const SeriesData data = buildChartData(tracks, imperialAGL).front();
    for (std::size_t i = 0; i < track.elapsed.size(); ++i) {
        const FlySightDataPoint& p = track.file.dataPoints[i];
        const long double horizontal = std::hypot(static_cast<long double>(p.velocityNorth), p.velocityEast);
        const long double sink = p.velocityDown;
        const auto expectSeries = [&](DataSeries series, long double value) {
            const ChartPoint& point = data[series][i];
            ASSERT_EQ(point.id, static_cast<std::int64_t>(i));
            ASSERT_EQ(point.seconds, track.elapsed[i]);
            ASSERT_NEAR(point.value, static_cast<double>(value), 1e-9) << displayName(series) << ' ' << i;
        };
        expectSeries(elevation, (p.altitudeMSL - track.statistics->groundElevation) * 3.28084L);
        expectSeries(horizontalSpeed, horizontal * 2.23694L);
        expectSeries(verticalSpeed, sink * 2.23694L);
        expectSeries(totalSpeed, std::hypot(horizontal, sink) * 2.23694L);
        expectSeries(DataSeries::glideRatio, std::abs(sink) > 0.5L ? std::min(horizontal / std::abs(sink), 10.0L) : 0);
        expectSeries(diveAngle, std::atan2(sink, horizontal) * 180.0L / std::numbers::pi_v<long double>);
    }
    EXPECT_EQ(data[diveAngle].size(), track.elapsed.size());
}

TEST(BuildChartData, measuresFromTheGroundOnlyWhereItIsKnown)
{
    std::vector<JumpTrack> tracks{makeBareTrack({0.0}), makeBareTrack({0.0})};
    for (JumpTrack& track : tracks)
        track.file.dataPoints.front().altitudeMSL = 1000.0;
    tracks.front().statistics = JumpStatistics{.groundElevation = 400.0};

    const auto heights = [&](DisplayUnits units) {
        const auto data = buildChartData(tracks, units);
        return std::pair(data[0][elevation][0].value, data[1][elevation][0].value);
    };
    EXPECT_EQ(heights(metricAGL), (std::pair(600.0, 1000.0)));
    EXPECT_EQ(heights(metricMSL), (std::pair(1000.0, 1000.0)));
    EXPECT_TRUE(buildChartData({}, metricAGL).empty());
}

TEST(CutChartData, dropsHiddenTracksAndKeepsEmptyOnes)
{
    const std::vector<JumpTrack> tracks{makeBareTrack({0.0, 1.0, 2.0}), makeBareTrack({1.0, 2.0, 3.0}, {}, "Bo"),
                                        makeBareTrack({8.0, 9.0}, {}, "Cy", Color::cyan)};
    const std::vector<SeriesData> data = buildChartData(tracks, metricAGL);

    const auto all = cutChartData(tracks, data, {}, {.lo = 1.0, .hi = 2.0});
    ASSERT_EQ(all.size(), 3u);
    EXPECT_TRUE(all[0].isPrimary);
    EXPECT_EQ(all[0].seriesData[elevation].size(), 2u);
    EXPECT_EQ(all[1].seriesData[diveAngle][0].id, 0);
    EXPECT_EQ(all[2].id, tracks[2].id);
    EXPECT_EQ(all[2].jumperColor, Color::cyan);
    for (const DataSeries series : allDataSeries)
        EXPECT_TRUE(all[2].seriesData[series].empty());

    const auto others = cutChartData(tracks, data, {tracks[0].id}, fullRange(tracks));
    ASSERT_EQ(others.size(), 2u);
    EXPECT_FALSE(others[0].isPrimary);
    EXPECT_EQ(others[0].trackIndex, 1);
    EXPECT_EQ(others[0].jumperName, "Bo");
}

TEST(FullRange, isThatOfTheFirstTrack)
{
    EXPECT_EQ(fullRange({}), (TimeRange{0.0, 1.0}));
    EXPECT_EQ(fullRange(std::vector{makeBareTrack({}), makeBareTrack({3.0, 4.0})}), (TimeRange{0.0, 1.0}));
    EXPECT_EQ(fullRange(std::vector{makeBareTrack({5.0, 9.0, 4.0})}), (TimeRange{5.0, 4.0}));
}

} // namespace
} // namespace ospra
