#include "overview/HeatmapGrid.h"

#include "tests/overview/OverviewSupport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace ospra {
namespace {

using testing::ElementsAre;

std::vector<Instant> daysOf(const std::vector<std::optional<Instant>>& jumps, const Calendar& calendar)
{
    return startsOfDays(datedGroups(makeGroups(jumps)), calendar);
}

HeatmapGrid gridOf(const std::vector<std::optional<Instant>>& jumps, const Calendar& calendar)
{
    return {jumpsPerDay(daysOf(jumps, calendar)), calendar};
}

TEST(HeatmapGrid, hasCellsFromItsFirstWeekToItsLast)
{
    const auto calendar = makeCalendar("UTC", monday);
    const HeatmapGrid grid = gridOf({utc(2025, 12, 31, 9), utc(2026, 1, 26)}, *calendar); // from Monday the 29th
    EXPECT_EQ(grid.cellOf(utc(2025, 12, 28, 23), *calendar), std::nullopt);
    EXPECT_EQ(grid.cellOf(utc(2026, 1, 1, 23), *calendar), (HeatmapCell{0, 3}));
    EXPECT_EQ(grid.cellOf(utc(2026, 2, 1), *calendar), (HeatmapCell{4, 6}));
    EXPECT_EQ(grid.cellOf(utc(2026, 2, 2), *calendar), std::nullopt);
    EXPECT_EQ(gridOf({}, *calendar).cellOf(utc(2026, 7, 3), *calendar), std::nullopt);
}

TEST(HeatmapGrid, findsItsWeeksAgainBehindADayThatTheZoneSkipped)
{
    // There was no 30 December 2011 in Samoa: noon of the 29th, of the 31st, and of Tuesday 3 January.
    const auto calendar = makeCalendar("Pacific/Apia", sunday);
    const std::vector<std::optional<Instant>> jumps{utc(2011, 12, 29, 22), utc(2011, 12, 30, 22), utc(2012, 1, 2, 22)};
    const HeatmapGrid grid = gridOf(jumps, *calendar);
    EXPECT_THAT(grid.weeklyCounts(), ElementsAre(2, 1));
    EXPECT_EQ(grid.weekStart(0, *calendar), utc(2011, 12, 25, 10));
    EXPECT_EQ(grid.weekStart(1, *calendar), utc(2011, 12, 31, 10));
    EXPECT_EQ(grid.cellOf(utc(2012, 1, 2, 22), *calendar), (HeatmapCell{1, 2}));
    EXPECT_EQ(grid.count({.week = 1, .day = 2}), 1);
    EXPECT_EQ(streaks(daysOf(jumps, *calendar), *calendar), (Streaks{.current = 1, .best = 2}));
}

TEST(HeatmapGrid, namesTheMonthsOfTheirFirstColumns)
{
    const auto calendar = makeCalendar("UTC", sunday);
    const auto labels = monthLabels(gridOf({utc(2026, 5, 28), utc(2026, 7, 4)}, *calendar), *calendar,
                                    *makeDateTexts("en_US", "UTC")); // from 24 May, then 31 May and 7 June
    ASSERT_EQ(labels.size(), 2U);
    EXPECT_EQ(labels[0].label, "May");
    EXPECT_EQ(labels[1].offset, 2);
    EXPECT_EQ(labels[1].label, "Jun");
}

TEST(HeatmapGrid, reachesOverCenturiesWhereClocksWereWrong)
{
    const auto calendar = makeCalendar("UTC", monday);
    const HeatmapGrid grid = gridOf({utc(1970, 1, 1), utc(2106, 2, 7, 6), utc(9999, 12, 31, 23)}, *calendar);
    // From Monday 29 December 1969 to Friday 31 December 9999 there are 2,932,899 days.
    EXPECT_EQ(grid.weekCount(), 418'986);
    EXPECT_EQ(grid.count({.week = 0, .day = 3}), 1);
    EXPECT_EQ(grid.count({.week = 418'985, .day = 4}), 1);
    EXPECT_EQ(grid.weekStart(418'985, *calendar), utc(9999, 12, 27));
    EXPECT_EQ(grid.cellOf(utc(2106, 2, 7), *calendar), (HeatmapCell{7'101, 6})); // 49,713 days on, a Sunday
    EXPECT_EQ(grid.weeklyCounts()[7'101], 1);
    EXPECT_EQ(std::accumulate(grid.weeklyCounts().begin(), grid.weeklyCounts().end(), 0), 3);
}

} // namespace
} // namespace ospra
