#include "overview/computeOverview.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace ospra {
namespace {

const Instant now = utc(2026, 7, 3, 18); // a Friday, eight in the evening in Zurich

OverviewAggregates compute(const std::vector<std::optional<Instant>>& jumps, OverviewTimeRange range,
                           std::optional<Instant> selectedDay = std::nullopt)
{
    return computeOverview(makeGroups(jumps), range, selectedDay, now, *makeCalendar("Europe/Zurich", monday));
}

TEST(ComputeOverview, isEmptyWithoutDatedJumps)
{
    for (const auto& jumps : {std::vector<std::optional<Instant>>{}, {std::nullopt, std::nullopt}}) {
        const OverviewAggregates overview = compute(jumps, OverviewTimeRange::oneYear, utc(2026, 7, 2, 22));
        EXPECT_EQ(overview.visibleJumps, 0);
        EXPECT_EQ(overview.busiestDay, 0);
        EXPECT_EQ(overview.busiestWeek, 0);
        EXPECT_EQ(overview.heatmap.weekCount(), 0);
        EXPECT_TRUE(overview.monthlyStats.empty());
        EXPECT_EQ(overview.lastJumpDate, std::nullopt);
        EXPECT_EQ(overview.streaks, Streaks{});
        EXPECT_TRUE(overview.selectedDayGroups.empty());
        EXPECT_EQ(overview.recentGroups.size(), jumps.size());
    }
}

TEST(ComputeOverview, limitsToTheRangeOnlyWhatObeysIt)
{
    const std::vector<std::optional<Instant>> jumps{utc(2026, 6, 30, 12), utc(2026, 5, 1, 12), utc(2026, 5, 1, 13),
                                                    std::nullopt,         utc(2026, 1, 5, 12), utc(2026, 1, 4, 12),
                                                    utc(2026, 1, 3, 12),  utc(2023, 1, 1, 12)};
    const OverviewAggregates quarter = compute(jumps, OverviewTimeRange::threeMonths, utc(2026, 1, 3, 23));
    EXPECT_EQ(quarter.cutoffDate, utc(2026, 4, 3, 18));
    EXPECT_EQ(quarter.visibleJumps, 3);
    EXPECT_EQ(quarter.jumpsPerDay, (std::vector<HeatmapDay>{{utc(2026, 4, 30, 22), 2}, {utc(2026, 6, 29, 22), 1}}));
    EXPECT_EQ(quarter.busiestDay, 2);
    EXPECT_EQ(quarter.heatmap.weekCount(), 10); // from 27 April to 29 June
    EXPECT_EQ(quarter.busiestWeek, 2);
    EXPECT_EQ(quarter.monthlyStats.size(), 2U);
    const OverviewAggregates all = compute(jumps, OverviewTimeRange::all);
    EXPECT_EQ(all.visibleJumps, 7);
    EXPECT_EQ(all.monthlyStats.size(), 4U);

    // The range changes nothing here.
    EXPECT_EQ(quarter.lastJumpDate, utc(2026, 6, 30, 12));
    EXPECT_EQ(quarter.jumpCountThisWeek, 1);
    EXPECT_EQ(quarter.jumpCountThisMonth, 0);
    EXPECT_EQ(quarter.streaks, (Streaks{1, 3}));
    EXPECT_EQ(namesOf(quarter.selectedDayGroups), "5");
    EXPECT_EQ(namesOf(quarter.recentGroups), "021");
}

TEST(ComputeOverview, cutsADayAndItsMonthAtTheMomentOfTheCutoff)
{
    // Three months back from eight in the evening: of the jumps of 3 April the one before eight is out.
    const OverviewAggregates overview = compute({utc(2026, 4, 3, 18), utc(2026, 4, 3, 17, 59, 59), utc(2026, 4, 2, 12)},
                                                OverviewTimeRange::threeMonths);
    EXPECT_EQ(overview.jumpsPerDay, (std::vector<HeatmapDay>{{utc(2026, 4, 2, 22), 1}}));
    ASSERT_EQ(overview.monthlyStats.size(), 1U);
    EXPECT_EQ(overview.monthlyStats[0], (MonthStat{utc(2026, 3, 31, 22), 1, 1.0 / (30 / 7.0)}));
    EXPECT_EQ(overview.streaks, (Streaks{2, 2}));
}

TEST(ComputeOverview, countsEachVisibleJumpOnceEverywhere)
{
    std::mt19937 random(6);
    for (const OverviewTimeRange range : allOverviewTimeRanges) {
        std::vector<std::optional<Instant>> jumps(500);
        for (auto& jump : jumps) {
            if (random() % 20 != 0) // back for three years, and a little into the future
                jump = Instant{now.seconds + 1e6 - static_cast<double>(random() % 95'000'000U)};
        }
        const OverviewAggregates overview = compute(jumps, range);
        const auto isVisible = [&](const auto& jump) {
            return jump && (!overview.cutoffDate || *jump >= *overview.cutoffDate);
        };
        EXPECT_EQ(overview.visibleJumps, std::count_if(jumps.begin(), jumps.end(), isVisible));
        EXPECT_EQ(overview.visibleJumps,
                  std::accumulate(overview.jumpsPerDay.begin(), overview.jumpsPerDay.end(), 0,
                                  [](int sum, const HeatmapDay& day) { return sum + day.count; }));
        EXPECT_EQ(overview.visibleJumps,
                  std::accumulate(overview.monthlyStats.begin(), overview.monthlyStats.end(), 0,
                                  [](int sum, const MonthStat& stat) { return sum + stat.jumps; }));
        const auto weekly = overview.heatmap.weeklyCounts();
        EXPECT_EQ(overview.visibleJumps, std::accumulate(weekly.begin(), weekly.end(), 0));
    }
}

} // namespace
} // namespace ospra
