#include "display/chartSeries.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

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

TEST(FullRange, isThatOfTheFirstTrack)
{
    EXPECT_EQ(fullRange({}), (TimeRange{0.0, 1.0}));
    EXPECT_EQ(fullRange(std::vector{makeBareTrack({}), makeBareTrack({3.0, 4.0})}), (TimeRange{0.0, 1.0}));
    EXPECT_EQ(fullRange(std::vector{makeBareTrack({5.0, 9.0, 4.0})}), (TimeRange{5.0, 4.0}));
}

} // namespace
} // namespace ospra
