#include "analysis/JumpStatistics.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
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

TEST(ComputeStatistics, standsOnThePhasesThatThereAre)
{
    EXPECT_FALSE(computeStatistics({}, {}).has_value());

    const JumpStatistics bare = statisticsOf(ladder(), {});
    EXPECT_EQ(bare.exitAltitude, 100.0);
    EXPECT_EQ(bare.landingAltitude, 89.0);
    EXPECT_EQ(bare.groundElevation, 89.0);
    EXPECT_EQ(bare.totalDuration, 11.0);
    EXPECT_EQ(bare.pitchAltitude, 0.0);
    EXPECT_EQ(bare.pitchIndex, std::nullopt);

    Samples hill = ladder();
    hill[4].altitudeMSL = 300.0;
    const JumpStatistics climb = statisticsOf(hill, {{.phase = aircraft, .startIndex = 1, .endIndex = 11}});
    EXPECT_EQ(climb.exitAltitude, 300.0);
    EXPECT_EQ(climb.maxFreefallSpeed, 0.0);

    const JumpStatistics unopened = statisticsOf(ladder(), {{.phase = freefall, .startIndex = 3, .endIndex = 11}});
    EXPECT_EQ(unopened.pitchAltitude, 89.0);
    EXPECT_EQ(unopened.deploymentAltitude, 89.0);
    EXPECT_EQ(unopened.deploymentSpeed, 0.0);
    EXPECT_EQ(unopened.avgFreefallSpeed, 8.0);
    EXPECT_EQ(unopened.pitchIndex, std::nullopt);

    const JumpStatistics fallless = statisticsOf(ladder(), {{.phase = deployment, .startIndex = 3, .endIndex = 11}});
    EXPECT_EQ(fallless.pitchAltitude, 97.0);
    EXPECT_EQ(fallless.pitchIndex, 3);
    EXPECT_GT(fallless.deploymentSpeed, 0.0);
    EXPECT_EQ(fallless.deploymentAltitude, 0.0);
    EXPECT_EQ(fallless.freefallDuration, 0.0);
}

TEST(ComputeStatistics, keepsNegativeMaximaAndDurations)
{
    Samples rising = ladder();
    for (FlySightDataPoint& sample : rising) {
        sample.velocityDown = -sample.velocityDown;
        sample.time.seconds = -sample.time.seconds;
    }
    const JumpStatistics s = statisticsOf(rising, {{.phase = freefall, .startIndex = 2, .endIndex = 6},
                                                   {.phase = canopy, .startIndex = 6, .endIndex = 11}});
    EXPECT_EQ(s.maxFreefallSpeed, -3.0);
    EXPECT_EQ(s.freefallDuration, -4.0);
    EXPECT_EQ(s.canopyDuration, -5.0);
    EXPECT_EQ(s.maxGlideRatio, 5.0); // climbing counts as sinking does
}

TEST(GlideRatio, countsNoNearlyLevelFlight)
{
    for (const auto& [down, ratio] :
         {std::pair{0.5, 0.0}, {-0.5, 0.0}, {0.0, 0.0}, {NAN, 0.0}, {0.625, 80.0}, {-0.625, 80.0}}) {
        SCOPED_TRACE(down);
        EXPECT_EQ(glideRatio({.velocityNorth = 30.0, .velocityEast = 40.0, .velocityDown = down}), ratio);
    }
}

/// The largest of a few values, found by sorting.
double top(std::vector<double> values)
{
    std::ranges::sort(values);
    return values.back();
}

TEST(ComputeStatistics, agreesWithCollectingAndSorting)
{
    for (const FlightStyle style : {FlightStyle::belly, FlightStyle::freefly, FlightStyle::wingsuit}) {
        const JumpTrack track = makeTrack(makeJump({.climbSeconds = 30.0, .style = style}));
        ASSERT_EQ(track.phases.size(), 5u);
        const auto collect = [&](std::size_t first, std::size_t last, auto quantity) {
            std::vector<double> values;
            for (auto i = track.phases[first].startIndex; i <= track.phases[last].endIndex; ++i)
                values.push_back(quantity(track.file.dataPoints[static_cast<std::size_t>(i)]));
            return values;
        };
        using Sample = const FlySightDataPoint&;
        const auto sinks = collect(1, 2, [](Sample p) { return p.velocityDown; });
        double sum = 0.0;
        for (const double sink : sinks)
            sum += sink;

        EXPECT_EQ(track.statistics->avgFreefallSpeed, sum / static_cast<double>(sinks.size()));
        EXPECT_EQ(track.statistics->maxFreefallSpeed, top(sinks));
        const auto horizontal = collect(1, 2, [](Sample p) { return std::hypot(p.velocityNorth, p.velocityEast); });
        EXPECT_DOUBLE_EQ(track.statistics->maxHorizontalSpeed, top(horizontal));
        const auto glides = collect(3, 3, [](Sample p) {
            const double sink = std::abs(p.velocityDown);
            return sink > 0.5 ? std::hypot(p.velocityNorth, p.velocityEast) / sink : 0.0;
        });
        EXPECT_DOUBLE_EQ(track.statistics->maxGlideRatio, top(glides));
        const auto times = collect(3, 3, [](Sample p) { return p.time.seconds; });
        EXPECT_EQ(track.statistics->canopyDuration, times.back() - times.front());
    }
}

TEST(ElapsedTimes, areMeasuredFromTheFirstSample)
{
    const Samples samples{{.time = {1000.25}}, {.time = {1000.5}}, {.time = {1000.0}}, {.time = {1003.25}}};
    EXPECT_EQ(elapsedTimes(samples), (std::vector{0.0, 0.25, -0.25, 3.0}));
    EXPECT_TRUE(elapsedTimes({}).empty());
}

} // namespace
} // namespace ospra
