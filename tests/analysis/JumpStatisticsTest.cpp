#include "analysis/JumpStatistics.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

using enum JumpPhase;
using Samples = std::vector<FlySightDataPoint>;
using Phases = std::vector<JumpPhaseRange>;

/// Twelve samples, a second apart: altitude 100 down by 1 each, sink rate 1 to 12, horizontal speed five times that.
Samples ladder()
{
    Samples samples;
    for (int i = 0; i < 12; ++i)
        samples.push_back({.time = {1000.0 + i},
                           .altitudeMSL = 100.0 - i,
                           .velocityNorth = 3.0 * (i + 1),
                           .velocityEast = 4.0 * (i + 1),
                           .velocityDown = 1.0 + i});
    return samples;
}

JumpStatistics statisticsOf(const Samples& samples, const Phases& phases)
{
    return computeStatistics(samples, phases).value();
}

TEST(ComputeStatistics, measuresTheFallFromTheExitToTheCanopy)
{
    const JumpStatistics s = statisticsOf(ladder(), {{.phase = aircraft, .startIndex = 0, .endIndex = 2},
                                                     {.phase = freefall, .startIndex = 2, .endIndex = 5},
                                                     {.phase = deployment, .startIndex = 5, .endIndex = 7},
                                                     {.phase = canopy, .startIndex = 7, .endIndex = 9},
                                                     {.phase = ground, .startIndex = 9, .endIndex = 11}});
    EXPECT_EQ(s.exitAltitude, 98.0);
    EXPECT_EQ(s.pitchAltitude, 95.0);
    EXPECT_EQ(s.deploymentAltitude, 93.0);
    EXPECT_EQ(s.landingAltitude, 91.0);
    EXPECT_EQ(s.groundElevation, 91.0);
    EXPECT_EQ(s.maxFreefallSpeed, 8.0);
    EXPECT_EQ(s.avgFreefallSpeed, 5.5);
    EXPECT_EQ(s.maxHorizontalSpeed, 40.0);
    EXPECT_DOUBLE_EQ(s.deploymentSpeed, 6.0 * std::sqrt(26.0));
    EXPECT_EQ(s.freefallDuration, 5.0);
    EXPECT_EQ(s.canopyDuration, 2.0);
    EXPECT_EQ(s.totalDuration, 11.0);
    EXPECT_EQ(s.maxGlideRatio, 5.0);
    EXPECT_EQ(s.pitchIndex, 5);
}

TEST(GlideRatio, countsNoNearlyLevelFlight)
{
    for (const auto& [down, ratio] :
         {std::pair{0.5, 0.0}, {-0.5, 0.0}, {0.0, 0.0}, {NAN, 0.0}, {0.625, 80.0}, {-0.625, 80.0}}) {
        SCOPED_TRACE(down);
        EXPECT_EQ(glideRatio({.velocityNorth = 30.0, .velocityEast = 40.0, .velocityDown = down}), ratio);
    }
}

} // namespace
} // namespace ospra
