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

TEST(JumpsPerDay, followTheClocksOfTheZone)
{
    const std::vector<std::optional<Instant>> jumps{utc(2026, 7, 3, 18), utc(2026, 7, 4, 5)};
    // 20:00 on the 3rd and 07:00 on the 4th
    EXPECT_EQ(daysOf({"Europe/Zurich", jumps}),
              (std::vector<HeatmapDay>{{utc(2026, 7, 2, 22), 1}, {utc(2026, 7, 3, 22), 1}}));
    // 11:00 and 22:00 on the 3rd
    EXPECT_EQ(daysOf({"America/Los_Angeles", jumps}), (std::vector<HeatmapDay>{{utc(2026, 7, 3, 7), 2}}));
    // 06:00 and 17:00 on the 4th
    EXPECT_EQ(daysOf({"Pacific/Auckland", jumps}), (std::vector<HeatmapDay>{{utc(2026, 7, 3, 12), 2}}));
    EXPECT_TRUE(daysOf({"Europe/Zurich", {}}).empty());
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

TEST(Streaks, outlastChangesOfTheClocks)
{
    for (const Place& place : {
             Place{"Europe/Zurich", {utc(2026, 3, 28, 12), utc(2026, 3, 29, 12), utc(2026, 3, 30, 12)}},
             Place{"Europe/Zurich", {utc(2026, 10, 24, 12), utc(2026, 10, 25, 12), utc(2026, 10, 26, 12)}},
             // 22:30 and half past midnight around the longer day: 49 hours apart, but neighbours
             Place{"Europe/Zurich", {utc(2026, 10, 23, 22, 5), utc(2026, 10, 25, 22, 55), utc(2026, 10, 26, 22, 55)}},
             // at midnight: forward in Santiago and Beirut, and back over midnight in Santiago
             Place{"America/Santiago", {utc(2019, 9, 7, 16), utc(2019, 9, 8, 16), utc(2019, 9, 9, 16)}},
             Place{"America/Santiago", {utc(2019, 4, 6, 16), utc(2019, 4, 7, 16), utc(2019, 4, 8, 16)}},
             Place{"Asia/Beirut", {utc(2021, 3, 27, 10), utc(2021, 3, 28, 10), utc(2021, 3, 29, 10)}},
         }) {
        SCOPED_TRACE(place.zone);
        EXPECT_EQ(streaksOf(place), (Streaks{3, 3}));
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
