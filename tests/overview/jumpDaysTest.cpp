#include "overview/jumpDays.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

struct Place {
    const char* zone;
    std::vector<std::optional<Instant>> jumps;
};

std::vector<HeatmapDay> daysOf(const Place& place)
{
    const auto dated = datedGroups(makeGroups(place.jumps));
    return jumpsPerDay(startsOfDays(dated, *makeCalendar(place.zone, monday)));
}

Streaks streaksOf(const Place& place)
{
    const auto dated = datedGroups(makeGroups(place.jumps));
    const auto calendar = makeCalendar(place.zone, monday);
    return streaks(startsOfDays(dated, *calendar), *calendar);
}

/// Jumps at noon UTC of days in July 2026.
std::vector<std::optional<Instant>> july(std::initializer_list<unsigned> days)
{
    std::vector<std::optional<Instant>> jumps;
    for (const unsigned day : days)
        jumps.emplace_back(utc(2026, 7, day, 12));
    return jumps;
}

TEST(JumpsPerDay, countDaysThatAreAnHourShorterOrLonger)
{
    // 29 March 2026 has 23 hours in Zurich, 25 October 25: half past midnight and half past eleven at night.
    EXPECT_EQ(daysOf({"Europe/Zurich", {utc(2026, 3, 28, 23, 30), utc(2026, 3, 29, 21, 30), utc(2026, 3, 29, 22)}}),
              (std::vector<HeatmapDay>{{utc(2026, 3, 28, 23), 2}, {utc(2026, 3, 29, 22), 1}}));
    EXPECT_EQ(daysOf({"Europe/Zurich", {utc(2026, 10, 24, 22, 30), utc(2026, 10, 25, 22, 30), utc(2026, 10, 25, 23)}}),
              (std::vector<HeatmapDay>{{utc(2026, 10, 24, 22), 2}, {utc(2026, 10, 25, 23), 1}}));
    // In Santiago 8 September 2019 began at one o'clock.
    EXPECT_EQ(daysOf({"America/Santiago", {utc(2019, 9, 8, 3, 59), utc(2019, 9, 8, 4), utc(2019, 9, 9, 2, 59)}}),
              (std::vector<HeatmapDay>{{utc(2019, 9, 7, 4), 1}, {utc(2019, 9, 8, 4), 2}}));
}

TEST(Streaks, areRunsOfDaysAndTheCurrentOneEndsAtTheLastJump)
{
    struct Row {
        std::vector<std::optional<Instant>> jumps;
        Streaks expected;
    };
    for (const auto& [jumps, expected] :
         {Row{{}, {0, 0}}, Row{{std::nullopt}, {0, 0}}, Row{july({8}), {1, 1}}, Row{july({1, 2, 5}), {1, 2}},
          Row{july({3, 4, 5}), {3, 3}}, Row{july({3, 3, 4, 4, 4}), {2, 2}}, Row{july({1, 3, 4, 5, 7, 8}), {2, 3}},
          Row{july({1, 2, 3, 10, 12, 13}), {2, 3}}, Row{july({9, 2, 8, 1}), {2, 2}}}) {
        SCOPED_TRACE(jumps.size());
        EXPECT_EQ(streaksOf({"Europe/Zurich", jumps}), expected);
    }
}

TEST(Streaks, passOverADayThatTheZoneSkipped)
{
    // There was no 30 December 2011 in Samoa: noon of the 29th and of the 31st, and of the 1st.
    EXPECT_EQ(streaksOf({"Pacific/Apia", {utc(2011, 12, 29, 22), utc(2011, 12, 30, 22), utc(2011, 12, 31, 22)}}),
              (Streaks{3, 3}));
}

} // namespace
} // namespace ospra
