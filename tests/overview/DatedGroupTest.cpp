#include "overview/DatedGroup.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

/// The places in the list of these jumps, one after the other.
std::string placesOf(std::span<const DatedGroup> groups)
{
    std::string places;
    for (const DatedGroup& group : groups)
        places += std::to_string(group.groupIndex);
    return places;
}

TEST(CutoffDate, keepsTheClockTimeOfNow)
{
    struct Row {
        OverviewTimeRange range;
        Instant now;
        std::optional<Instant> cutoff;
    };
    const auto calendar = makeCalendar("Europe/Zurich", monday);
    for (const auto& [range, now, cutoff] : {
             // 23:30 in summer, which is 21:30 UTC, goes back to 23:30 in winter.
             Row{OverviewTimeRange::threeMonths, utc(2026, 5, 31, 21, 30), utc(2026, 2, 28, 22, 30)},
             Row{OverviewTimeRange::threeMonths, utc(2024, 5, 31, 21, 30), utc(2024, 2, 29, 22, 30)},
             Row{OverviewTimeRange::sixMonths, utc(2026, 5, 31, 21, 30), utc(2025, 11, 30, 22, 30)},
             Row{OverviewTimeRange::oneYear, utc(2024, 2, 29, 12), utc(2023, 2, 28, 12)},
             Row{OverviewTimeRange::oneYear, utc(2026, 7, 3, 18), utc(2025, 7, 3, 18)},
             Row{OverviewTimeRange::all, utc(2026, 7, 3, 18), std::nullopt},
         }) {
        SCOPED_TRACE(displayName(range));
        EXPECT_EQ(cutoffDate(range, now, *calendar), cutoff);
    }
}

TEST(GroupsOfPeriod, areThoseOfTheCalendarPeriodAlsoBehindNow)
{
    const Instant now = utc(2026, 7, 3, 18); // a Friday
    const auto dated = datedGroups(makeGroups({
        utc(2026, 8, 1, 12),      // 0
        utc(2026, 7, 5, 12),      // 1, the Sunday after
        utc(2026, 7, 3, 21, 59),  // 2, just before midnight in Zurich
        utc(2026, 7, 3, 6),       // 3
        utc(2026, 7, 1, 12),      // 4
        utc(2026, 6, 30, 22),     // 5, the first moment of July in Zurich
        utc(2026, 6, 30, 21, 59), // 6
        utc(2026, 6, 28, 12),     // 7, the Sunday before
        utc(2025, 7, 3, 18),      // 8
    }));
    const auto fromMonday = makeCalendar("Europe/Zurich", monday);
    const auto fromSunday = makeCalendar("Europe/Zurich", sunday);
    EXPECT_EQ(placesOf(groupsOfPeriod(dated, CalendarUnit::day, now, *fromMonday)), "23");
    EXPECT_EQ(placesOf(groupsOfPeriod(dated, CalendarUnit::weekOfYear, now, *fromMonday)), "123456");
    EXPECT_EQ(placesOf(groupsOfPeriod(dated, CalendarUnit::weekOfYear, now, *fromSunday)), "234567");
    EXPECT_EQ(placesOf(groupsOfPeriod(dated, CalendarUnit::month, now, *fromMonday)), "12345");
    EXPECT_EQ(placesOf(groupsOfPeriod(dated, CalendarUnit::month, now, *makeCalendar("UTC", monday))), "1234");
    EXPECT_EQ(placesOf(groupsOfPeriod(dated, CalendarUnit::month, utc(2026, 5, 1), *fromMonday)), "");
}

} // namespace
} // namespace ospra
