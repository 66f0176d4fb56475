#include "analysis/JumpTrack.h"
#include "analysis/detectPhases.h"
#include "analysis/movingMedian.h"
#include "tests/properties/Flights.h"
#include "tests/properties/NaiveAnalysis.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace ospra::properties {

namespace {

std::string textOf(std::span<const JumpPhaseRange> ranges)
{
    std::ostringstream text;
    for (const JumpPhaseRange& range : ranges)
        text << displayName(range.phase) << ' ' << range.startIndex << ".." << range.endIndex << "; ";
    return text.str();
}

/// Every field that a statistic has, exactly.
std::string textOf(const JumpStatistics& statistics)
{
    std::ostringstream text;
    text.precision(17);
    for (const double field :
         {statistics.exitAltitude, statistics.pitchAltitude, statistics.deploymentAltitude, statistics.landingAltitude,
          statistics.maxFreefallSpeed, statistics.avgFreefallSpeed, statistics.maxHorizontalSpeed,
          statistics.deploymentSpeed, statistics.freefallDuration, statistics.canopyDuration, statistics.totalDuration,
          statistics.maxGlideRatio, statistics.groundElevation})
        text << field + 0.0 << ' '; // the sign of a zero does not matter
    if (statistics.pitchIndex)
        text << *statistics.pitchIndex;
    return text.str();
}

/// What is wrong with a list of ranges as such; empty if nothing is.
std::string flaw(std::span<const JumpPhaseRange> ranges, const Samples& samples)
{
    const std::ptrdiff_t count = std::ssize(samples);
    if (count < 11)
        return ranges.empty() ? "" : "a short log has phases";
    std::set<Uuid> ids;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        ids.insert(ranges[i].id);
        if (ranges[i].startIndex < 0 || ranges[i].endIndex >= count || ranges[i].startIndex >= ranges[i].endIndex)
            return "indices out of bounds or order";
        if (i > 0 && ranges[i].startIndex != ranges[i - 1].endIndex)
            return "a gap";
        if (i > 0 && ranges[i].phase <= ranges[i - 1].phase)
            return "phases out of order";
    }
    if (!ranges.empty() && ranges.back().endIndex != count - 1)
        return "the end is left out";
    return ids.size() == ranges.size() ? "" : "two ranges of one id";
}

TEST(PhasesOfAnyLog, areThoseOfTheWrittenRules)
{
    std::map<std::string, int> shapes; // which phases there are, so that the flights reach all branches
    forSeeds(10'000, [&](Dice& dice) {
        const Samples samples = makeFlight(dice, Damage::clock);
        const std::vector<JumpPhaseRange> ranges = detectPhases(samples);
        ASSERT_EQ(textOf(ranges), textOf(naive::detectPhases(samples)));
        ASSERT_EQ(flaw(ranges, samples), "");
        const std::optional<JumpStatistics> statistics = computeStatistics(samples, ranges);
        ASSERT_TRUE(statistics);
        ASSERT_EQ(textOf(*statistics), textOf(naive::computeStatistics(samples, ranges)));
        std::string shape;
        for (const JumpPhaseRange& range : ranges)
            shape += displayName(range.phase).front();
        ++shapes[shape];
    });
    for (const char* shape : {"", "A", "AFDCG", "AFDC", "AFD", "FDCG", "FD"})
        EXPECT_GT(shapes[shape], 10) << '"' << shape << "\" is hardly ever flown";
    EXPECT_GT(shapes.size(), 10u);
}

TEST(PhasesOfAnyLog, keepTheirOrderWhateverTheNumbers)
{
    forSeeds(5'000, [](Dice& dice) {
        const Samples samples = makeFlight(dice, Damage::values);
        const std::vector<JumpPhaseRange> ranges = detectPhases(samples);
        ASSERT_EQ(flaw(ranges, samples), "") << textOf(ranges);
        ASSERT_TRUE(computeStatistics(samples, ranges));
    });
}

/// Statistics take ranges as they come, so that each phase is also left out here, which no log does on its own.
TEST(StatisticsOfAnyPhases, areThoseOfTheWrittenRules)
{
    forSeeds(3'000, [](Dice& dice) {
        const Samples samples = makeFlight(dice, Damage::clock);
        std::vector<JumpPhaseRange> ranges = detectPhases(samples);
        std::erase_if(ranges, [&dice](const JumpPhaseRange&) { return dice.oneIn(3); });
        const std::optional<JumpStatistics> statistics = computeStatistics(samples, ranges);
        ASSERT_TRUE(statistics);
        ASSERT_EQ(textOf(*statistics), textOf(naive::computeStatistics(samples, ranges))) << textOf(ranges);
    });
}

TEST(MovingMedianOfAnyValues, isThatOfSortedWindows)
{
    forSeeds(2'000, [](Dice& dice) {
        constexpr std::array few{0.0, 1.0, 1.5, 2.0, 20.0};
        std::vector<double> values(static_cast<std::size_t>(dice.below(40)));
        for (double& value : values)
            value = dice.oneIn(2) ? dice.oneOf(few) : dice.real(-50.0, 50.0);
        const std::ptrdiff_t width = dice.oneIn(2) ? 5 : dice.between(-1, 12);
        ASSERT_EQ(movingMedian(values, width), naive::movingMedian(values, width)) << "width " << width;
    });
}

TEST(ElapsedTimesOfAnyLog, countFromItsFirstSample)
{
    forSeeds(300, [](Dice& dice) {
        const Samples samples = makeFlight(dice, Damage::clock);
        const std::vector<double> elapsed = elapsedTimes(samples);
        ASSERT_EQ(elapsed.size(), samples.size());
        for (std::size_t i = 0; i < samples.size(); ++i)
            ASSERT_EQ(elapsed[i], samples[i].time.seconds - samples[0].time.seconds);
    });
}

} // namespace

} // namespace ospra::properties
