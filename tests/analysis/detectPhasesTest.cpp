#include "analysis/detectPhases.h"

#include "tests/support/JumpBuilder.h"

#include <gmock/gmock.h>

namespace ospra {

namespace {

using enum JumpPhase;
using Samples = std::vector<FlySightDataPoint>;
using testing::ElementsAre;

/// A range as a test writes it.
struct Span {
    JumpPhase phase = JumpPhase::aircraft;
    std::ptrdiff_t first = 0;
    std::ptrdiff_t last = 0;

    friend bool operator==(const Span&, const Span&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Span& span)
    {
        return out << displayName(span.phase) << ' ' << span.first << ".." << span.last;
    }
};

/// A stretch of even flight.
struct Leg {
    int count = 0;
    double sink = 0.0;
    double forward = 0.0;
};

/// Flies the legs, one second a sample, so that the highest sample is the first that sinks.
Samples fly(const std::vector<Leg>& legs)
{
    Samples samples;
    double altitude = 1000.0;
    for (const Leg& leg : legs)
        for (int i = 0; i < leg.count; ++i) {
            samples.push_back({.time = {static_cast<double>(samples.size())},
                               .altitudeMSL = altitude,
                               .velocityNorth = leg.forward,
                               .velocityDown = leg.sink,
                               .verticalAccuracy = 3.0});
            altitude -= leg.sink;
        }
    return samples;
}

std::vector<Span> phasesIn(const Samples& samples)
{
    std::vector<Span> spans;
    for (const JumpPhaseRange& range : detectPhases(samples))
        spans.push_back({range.phase, range.startIndex, range.endIndex});
    return spans;
}

std::vector<Span> phasesOf(const std::vector<Leg>& legs)
{
    return phasesIn(fly(legs));
}

constexpr Leg climb{.count = 20, .sink = -5.0};

TEST(DetectPhases, cutsLogsWithoutAJumpAsWell)
{
    EXPECT_TRUE(phasesOf({{10, -5.0}}).empty());
    EXPECT_THAT(phasesOf({{11, -5.0}}), ElementsAre(Span{aircraft, 0, 10}));
    EXPECT_THAT(phasesOf({{100, -5.0}}), ElementsAre(Span{aircraft, 0, 99}));
    EXPECT_THAT(phasesOf({{200, 0.0}}), ElementsAre(Span{freefall, 0, 190}, Span{deployment, 190, 199}));
    EXPECT_THAT(phasesOf({climb, {100, 15.0}}),
                ElementsAre(Span{aircraft, 0, 20}, Span{freefall, 20, 110}, Span{deployment, 110, 119}));
}

TEST(DetectPhases, beginsAtTheFirstUsableFix)
{
    Samples samples = fly({{100, -5.0}});
    for (std::size_t i = 0; i < 7; ++i)
        samples[i].verticalAccuracy = i % 2 == 0 ? 0.0 : 10.0;
    samples[7].verticalAccuracy = 9.999;
    EXPECT_THAT(phasesIn(samples), ElementsAre(Span{aircraft, 7, 99}));

    for (FlySightDataPoint& sample : samples)
        sample.verticalAccuracy = 10.0;
    EXPECT_THAT(phasesIn(samples), ElementsAre(Span{aircraft, 0, 99}));
}

TEST(DetectPhases, takesTheEarliestOfEqualPeaksAndLooksForTheExitBehindIt)
{
    // Level for ten samples at the top: the search begins at the first of them.
    EXPECT_EQ(phasesOf({climb, {10, 0.0}, {60, 15.0}}).front(), (Span{aircraft, 0, 20}));
    // Carried up a hill higher than the exit: the fall before it is no longer seen.
    EXPECT_EQ(phasesOf({climb, {60, 26.0}, {60, 14.0}, {100, -100.0}}).front(), (Span{aircraft, 0, 239}));
}

TEST(DetectPhases, leavesTheAircraftOnAMeanAboveTwenty)
{
    // The median reaches 21 at sample 60, which is the last of the five samples from 56 on.
    EXPECT_EQ(phasesOf({climb, {40, 20.0}, {40, 21.0}}).front(), (Span{aircraft, 0, 56}));
    EXPECT_EQ(phasesOf({climb, {80, 20.0}}).front(), (Span{aircraft, 0, 20}));
    // The search ends six samples before the end: it finds the mean of the samples 36 to 40 of 42, but not that of
    // the last five of 35.
    EXPECT_EQ(phasesOf({climb, {20, 15.0}, {2, 41.0}}).front(), (Span{aircraft, 0, 36}));
    EXPECT_EQ(phasesOf({climb, {10, 0.0}, {3, 15.0}, {2, 41.0}}).front(), (Span{aircraft, 0, 20}));
}

TEST(DetectPhases, takesADropOfExactlyTwelveAndTenForAnOpening)
{
    const auto opened =
        ElementsAre(Span{aircraft, 0, 20}, Span{freefall, 20, 70}, Span{deployment, 70, 80}, Span{canopy, 80, 139});
    const auto unopened = ElementsAre(Span{aircraft, 0, 20}, Span{freefall, 20, 130}, Span{deployment, 130, 139});
    EXPECT_THAT(phasesOf({climb, {60, 26.0}, {60, 14.0}}), opened);
    EXPECT_THAT(phasesOf({climb, {60, 26.0}, {60, 14.001}}), unopened);
    EXPECT_THAT(phasesOf({climb, {60, 24.0}, {60, 0.0, 14.0}}), opened);
    EXPECT_THAT(phasesOf({climb, {60, 24.0}, {60, 0.0, 14.001}}), unopened);
    EXPECT_THAT(phasesOf({climb, {60, 40.0}, {60, 14.999}}), opened);
    EXPECT_THAT(phasesOf({climb, {60, 40.0}, {60, 15.0}}), unopened);
}

TEST(DetectPhases, seesAnOpeningOnlyCloseToTheFallAndFarFromTheEnd)
{
    const auto hasCanopy = [](const std::vector<Leg>& legs) { return phasesOf(legs).back().phase == canopy; };
    EXPECT_TRUE(hasCanopy({climb, {60, 26.0}, {29, 16.0}, {60, 14.0}}));
    EXPECT_FALSE(hasCanopy({climb, {60, 26.0}, {30, 16.0}, {60, 14.0}}));
    EXPECT_TRUE(hasCanopy({climb, {60, 26.0}, {11, 14.0}}));
    EXPECT_FALSE(hasCanopy({climb, {60, 26.0}, {10, 14.0}}));
}

TEST(DetectPhases, waitsUntilTheFallNoLongerReturns)
{
    const auto canopyStart = [](const std::vector<Leg>& legs) { return phasesOf(legs).at(3).first; };
    EXPECT_EQ(canopyStart({climb, {60, 26.0}, {9, 14.0}, {3, 21.0}, {60, 14.0}}), 92);
    EXPECT_EQ(canopyStart({climb, {60, 26.0}, {9, 14.0}, {3, 20.0}, {60, 14.0}}), 80);
    EXPECT_EQ(canopyStart({climb, {60, 26.0}, {10, 14.0}, {3, 21.0}, {60, 14.0}}), 80);
    // An opening within ten samples of the exit is found at the tenth.
    EXPECT_EQ(phasesOf({climb, {8, 26.0}, {60, 14.0}}).back(), (Span{canopy, 30, 87}));
}

TEST(DetectPhases, beginsTheDeploymentWhereTheSpeedsHaveDropped)
{
    struct Row {
        const char* what;
        double fall;
        std::vector<Leg> middle;
        std::ptrdiff_t pitch;
    };
    // The fall ends at sample 80. Where no drop is found, the deployment begins behind the latest steady sample.
    for (const auto& [what, fall, middle, pitch] : {
             Row{"a drop of ten", 30.0, {{20, 20.0}}, 80},
             Row{"a little less", 30.0, {{20, 20.001}}, 90},
             Row{"of nine in total speed", 30.0, {{20, 0.0, 21.0}}, 80},
             Row{"a little less", 30.0, {{20, 0.0, 21.001}}, 90},
             Row{"of 28 percent", 50.0, {{20, 35.99}}, 80},
             Row{"a little less", 50.0, {{20, 36.01}}, 90},
             Row{"of 18 percent of the total speed", 60.0, {{20, 30.0, 38.98}}, 80},
             Row{"a little less", 60.0, {{20, 30.0, 39.01}}, 90},
             Row{"over six samples", 30.0, {{6, 20.0}, {10, 30.0}}, 80},
             Row{"over five", 30.0, {{5, 20.0}, {10, 30.0}}, 85},
             Row{"five samples before the canopy", 30.0, {{5, 20.0}}, 80},
             Row{"four samples before", 30.0, {{4, 20.0}}, 70},
             Row{"a peak 35 samples back", 40.0, {{34, 28.0}}, 80},
             Row{"36 samples back", 40.0, {{35, 28.0}}, 105},
         }) {
        SCOPED_TRACE(testing::Message() << what << ' ' << middle.front().sink);
        std::vector<Leg> legs{climb, {60, fall}};
        legs.insert(legs.end(), middle.begin(), middle.end());
        legs.push_back({60, 10.0});
        EXPECT_EQ(phasesOf(legs).at(1), (Span{freefall, 20, pitch}));
    }
}

TEST(DetectPhases, takesAFallOfLessThanEightAndSixForSteadyFlight)
{
    const auto pitch = [](const std::vector<Leg>& legs) { return phasesOf(legs).at(1).last; };
    EXPECT_EQ(pitch({climb, {60, 30.0}, {20, 17.99, 12.8}, {60, 10.0, 15.0}}), 91);
    EXPECT_EQ(pitch({climb, {60, 30.0}, {20, 18.0, 12.8}, {60, 10.0, 15.0}}), 90);
    EXPECT_EQ(pitch({climb, {60, 30.0}, {20, 17.0, 19.54}, {60, 10.0, 17.32}}), 91);
    EXPECT_EQ(pitch({climb, {60, 30.0}, {20, 17.0, 19.8}, {60, 10.0, 17.32}}), 90);
    // Not looked for where the canopy slows the fall ten samples behind the exit.
    EXPECT_EQ(pitch({climb, {3, 21.0}, {5, 40.0}, {60, 14.0, 8.0}}), 30);
}

TEST(DetectPhases, searchesNoDeploymentInAWindowOfOneSample)
{
    EXPECT_THAT(phasesOf({climb, {1, 10.0}, {1, 20.0}, {1, 25.0}, {1, 30.0}, {1, 60.0}, {1, 70.0}}),
                ElementsAre(Span{aircraft, 0, 20}, Span{freefall, 20, 25}));
}

TEST(DetectPhases, movesTheCanopyToTheSlowestSampleAroundTheOpening)
{
    const auto canopyStart = [](const std::vector<Leg>& legs) { return phasesOf(legs).at(3).first; };
    EXPECT_EQ(canopyStart({climb, {60, 26.0}, {8, 14.0}, {3, 2.0}, {60, 14.0}}), 88);
    // Sample 92 is the last that counts.
    EXPECT_EQ(canopyStart({climb, {60, 26.0}, {12, 14.0}, {3, 2.0}, {60, 14.0}}), 92);
    EXPECT_EQ(canopyStart({climb, {60, 26.0}, {13, 14.0}, {3, 2.0}, {60, 14.0}}), 80);
}

TEST(DetectPhases, landsAtTheFirstOfTwentySlowSamples)
{
    const auto last = [](const std::vector<Leg>& rest) {
        std::vector<Leg> legs{climb, {60, 26.0}, {60, 10.0}};
        legs.insert(legs.end(), rest.begin(), rest.end());
        return phasesOf(legs).back();
    };
    EXPECT_EQ(last({{19, 0.0}}), (Span{canopy, 80, 158}));
    EXPECT_EQ(last({{20, 0.0}}), (Span{ground, 140, 159}));
    EXPECT_EQ(last({{19, 0.0}, {1, 0.0, 3.0}, {19, 0.0}}), (Span{canopy, 80, 178}));
    EXPECT_EQ(last({{19, 0.0}, {1, 0.0, 2.999}, {19, 0.0}}), (Span{ground, 140, 178}));
    EXPECT_EQ(last({{19, 0.0}, {1, 0.0, 3.0}, {20, 0.0}}), (Span{ground, 160, 179}));
}

} // namespace
} // namespace ospra
