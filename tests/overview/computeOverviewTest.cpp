#include "overview/computeOverview.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

const Instant now = utc(2026, 7, 3, 18); // a Friday, eight in the evening in Zurich

OverviewAggregates compute(const std::vector<std::optional<Instant>>& jumps, OverviewTimeRange range,
                           std::optional<Instant> selectedDay = std::nullopt)
{
    return computeOverview(makeGroups(jumps), range, selectedDay, now, *makeCalendar("Europe/Zurich", monday));
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

} // namespace
} // namespace ospra
