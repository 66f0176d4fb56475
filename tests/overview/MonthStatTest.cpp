#include "overview/MonthStat.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

std::vector<MonthStat> statsOf(const char* zone, const std::vector<std::optional<Instant>>& jumps)
{
    return monthlyStats(datedGroups(makeGroups(jumps)), *makeCalendar(zone, sunday));
}

TEST(MonthlyStats, divideByTheWholeLengthOfEachMonth)
{
    const std::vector<MonthStat> stats = statsOf(
        "Europe/Zurich", {utc(2026, 7, 1, 12), utc(2026, 4, 3, 12), utc(2026, 4, 3, 13), utc(2026, 2, 1, 12),
                          utc(2026, 2, 9, 12), utc(2026, 2, 28, 12), utc(2025, 2, 28, 12), utc(2024, 2, 29, 12)});
    ASSERT_EQ(stats.size(), 5U);
    EXPECT_EQ(stats[0].monthStart, utc(2026, 6, 30, 22));
    EXPECT_EQ(stats[0].jumps, 1);
    EXPECT_DOUBLE_EQ(stats[0].avgPerWeek, 7.0 / 31.0);
    EXPECT_EQ(stats[1].monthStart, utc(2026, 3, 31, 22)); // May and June have no jumps
    EXPECT_DOUBLE_EQ(stats[1].avgPerWeek, 14.0 / 30.0);
    EXPECT_EQ(stats[2].monthStart, utc(2026, 1, 31, 23));
    EXPECT_EQ(stats[2].jumps, 3);
    EXPECT_EQ(stats[2].avgPerWeek, 0.75);
    EXPECT_EQ(stats[3].avgPerWeek, 0.25);
    EXPECT_DOUBLE_EQ(stats[4].avgPerWeek, 7.0 / 29.0);
    EXPECT_TRUE(statsOf("Europe/Zurich", {}).empty());
}

} // namespace
} // namespace ospra
