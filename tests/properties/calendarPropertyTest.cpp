#include "overview/computeOverview.h"
#include "tests/properties/CountedCalendar.h"
#include "tests/properties/Dice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <set>

namespace ospra::properties {

namespace {

using naive::CountedCalendar;

/// A quarter of a second that lies in the day: its first, its last, one in its first hours, or any.
Instant makeMoment(Dice& dice, const CountedCalendar& counted, long day)
{
    const double start = counted.startOf(day).seconds;
    const double end = counted.startOf(day + 1).seconds;
    switch (dice.below(4)) {
    case 0: return {start};
    case 1: return {end - 0.25};
    case 2: return {start + static_cast<double>(dice.below(3 * 3'600 * 4)) / 4.0};
    default: return {start + static_cast<double>(dice.below(static_cast<std::ptrdiff_t>(end - start) * 4)) / 4.0};
    }
}

/// The result of a step must stand at the same clock time of the counted day; where that time does not exist, or
/// exists twice, it must at least stand in that day.
void expectStep(const CountedCalendar& counted, std::optional<Instant> result, Instant from, long day)
{
    ASSERT_TRUE(result);
    ASSERT_EQ(counted.dayOf(*result), day);
    const std::vector<Instant> moments = counted.atSameClock(from, day);
    if (!moments.empty()) {
        ASSERT_NE(std::ranges::find(moments, *result), moments.end()) << result->seconds;
    }
}

TEST(CalendarOfSixtyYears, answersAsCountingDoes)
{
    for (const naive::Zone& zone : naive::zones()) {
        SCOPED_TRACE(zone.name);
        Dice dice(1);
        for (long day = CountedCalendar::firstDay; day <= CountedCalendar::lastDay;) {
            // A calendar of its own for each month, so that all first weekdays come, from cold and from warm caches.
            const int firstWeekday = static_cast<int>(dice.between(1, 7));
            const CountedCalendar counted(zone, firstWeekday);
            const std::unique_ptr<Calendar> calendar = makeCalendar(zone.name, firstWeekday);
            ASSERT_TRUE(calendar);
            for (const long end = day + counted.daysInMonth(day); day < end; ++day) {
                SCOPED_TRACE(day);
                const Instant moment = makeMoment(dice, counted, day);
                ASSERT_EQ(calendar->startOfDay(moment), counted.startOf(day));
                ASSERT_EQ(calendar->startOfWeek(moment), counted.startOf(counted.weekStart(day)));
                ASSERT_EQ(calendar->startOfMonth(moment), counted.startOf(counted.monthStart(day)));
                ASSERT_EQ(calendar->month(moment), counted.day(day).month);
                ASSERT_EQ(calendar->daysInMonth(moment), counted.daysInMonth(day));
                const long other = day + dice.between(-40, 40);
                const Instant there = makeMoment(dice, counted, other);
                ASSERT_EQ(calendar->isSame(CalendarUnit::day, moment, there), day == other);
                ASSERT_EQ(calendar->isSame(CalendarUnit::weekOfYear, moment, there),
                          counted.weekStart(day) == counted.weekStart(other));
                ASSERT_EQ(calendar->isSame(CalendarUnit::month, moment, there),
                          counted.monthStart(day) == counted.monthStart(other));
                ASSERT_EQ(calendar->isSame(CalendarUnit::year, moment, there),
                          counted.day(day).year == counted.day(other).year);

                const int count = static_cast<int>(dice.between(-14, 14));
                const auto expectAdded = [&](int times, CalendarUnit unit, long result) {
                    expectStep(counted, calendar->adding(times, unit, moment), moment, result);
                };
                expectAdded(count, CalendarUnit::day, day + count);
                expectAdded(count, CalendarUnit::weekOfYear, day + 7L * count);
                expectAdded(count, CalendarUnit::month, counted.addingMonths(day, count));
                expectAdded(count / 7, CalendarUnit::year, counted.addingMonths(day, count / 7 * 12));
            }
        }
    }
}

/// A jumper's life in dates: seasons of runs of days, single days, several jumps on a day, and none without a date.
std::vector<JumpGroup> makeJumps(Dice& dice, const CountedCalendar& counted, long day)
{
    std::vector<JumpGroup> groups;
    for (std::ptrdiff_t left = dice.below(40); left > 0; --left) {
        constexpr std::array steps{0, 0, 1, 1, 1, 2, 6, 7, 30, 90};
        day += dice.oneOf(steps);
        JumpGroup& group = groups.emplace_back(JumpGroup{.id = makeUuid()});
        if (!dice.oneIn(8))
            group.jumpDate = makeMoment(dice, counted, day);
        if (groups.size() > 1 && dice.oneIn(10))
            group.jumpDate = groups[groups.size() - 2].jumpDate;
    }
    dice.shuffle(groups);
    return groups;
}

std::vector<Uuid> idsOf(const std::vector<JumpGroup>& groups)
{
    std::vector<Uuid> ids;
    for (const JumpGroup& group : groups)
        ids.push_back(group.id);
    return ids;
}

/// The jumps of a list, the newest first, those without a date last, and else as they stand.
std::vector<Uuid> newestFirst(std::vector<JumpGroup> groups)
{
    std::ranges::stable_sort(groups, std::greater(), [](const JumpGroup& group) {
        return group.jumpDate ? group.jumpDate->seconds : -infinity;
    });
    return idsOf(groups);
}

Streaks streaksOf(const std::set<long>& days)
{
    Streaks streaks;
    if (days.empty())
        return streaks;
    for (const long day : days) {
        int run = 0;
        while (days.contains(day + run))
            ++run;
        streaks.best = std::max(streaks.best, run);
    }
    while (days.contains(*days.rbegin() - streaks.current))
        ++streaks.current;
    return streaks;
}

/// What lies within the range, against counting on the list of days.
void expectRange(const OverviewAggregates& overview, const CountedCalendar& counted, const Calendar& calendar,
                 const std::vector<Instant>& dates)
{
    std::map<long, int> perDay;
    std::map<long, int> perMonth;
    int busiestDay = 0;
    for (const Instant date : dates) {
        busiestDay = std::max(busiestDay, ++perDay[counted.dayOf(date)]);
        ++perMonth[counted.monthStart(counted.dayOf(date))];
    }
    ASSERT_EQ(overview.visibleJumps, static_cast<int>(dates.size()));
    ASSERT_EQ(overview.busiestDay, busiestDay);
    ASSERT_EQ(overview.jumpsPerDay.size(), perDay.size());
    for (std::size_t i = 0; const auto& [day, count] : perDay)
        ASSERT_EQ(overview.jumpsPerDay[i++], (HeatmapDay{.date = counted.startOf(day), .count = count}));
    ASSERT_EQ(overview.monthlyStats.size(), perMonth.size());
    for (std::size_t i = perMonth.size(); const auto& [month, jumps] : perMonth) {
        const double weeks = counted.daysInMonth(month) / 7.0;
        ASSERT_EQ(overview.monthlyStats[--i],
                  (MonthStat{.monthStart = counted.startOf(month), .jumps = jumps, .avgPerWeek = jumps / weeks}));
    }

    std::ptrdiff_t week = 0;
    int busiestWeek = 0;
    std::vector<std::ptrdiff_t> boundaries;
    int month = -1;
    const long first = perDay.empty() ? 0 : counted.weekStart(perDay.begin()->first);
    const long last = perDay.empty() ? -1 : counted.weekStart(perDay.rbegin()->first);
    for (long start = first; start <= last; start += 7, ++week) {
        ASSERT_LT(week, overview.heatmap.weekCount());
        const HeatmapWeek column = overview.heatmap.week(week, calendar);
        ASSERT_EQ(column.weekStart, counted.startOf(start));
        ASSERT_EQ(column.days.size(), 7u);
        int sum = 0;
        for (int offset = 0; offset < 7; ++offset) {
            const int count = perDay.contains(start + offset) ? perDay[start + offset] : 0;
            ASSERT_EQ(column.days[static_cast<std::size_t>(offset)],
                      (HeatmapDay{.date = counted.startOf(start + offset), .count = count}));
            sum += count;
        }
        ASSERT_EQ(overview.heatmap.weeklyCounts()[static_cast<std::size_t>(week)], sum);
        busiestWeek = std::max(busiestWeek, sum);
        if (counted.day(start).month != month)
            boundaries.push_back(week);
        month = counted.day(start).month;
    }
    ASSERT_EQ(overview.heatmap.weekCount(), week);
    ASSERT_EQ(overview.busiestWeek, busiestWeek);
    ASSERT_EQ(monthBoundaryWeeks(overview.heatmap, calendar), boundaries);
}

TEST(OverviewOfAnyJumps, isWhatCountingGives)
{
    forSeeds(3'000, [&](Dice& dice) {
        const naive::Zone& zone = dice.oneOf(naive::zones());
        const int firstWeekday = static_cast<int>(dice.between(1, 7));
        const CountedCalendar counted(zone, firstWeekday);
        const std::unique_ptr<Calendar> calendar = makeCalendar(zone.name, firstWeekday);
        const long day = dice.between(CountedCalendar::firstDay + 900, CountedCalendar::lastDay - 900);
        const std::vector<JumpGroup> groups = makeJumps(dice, counted, day);
        const long today = day + dice.between(0, 500);
        const Instant now = makeMoment(dice, counted, today);
        const OverviewTimeRange range = dice.oneOf(allOverviewTimeRanges);
        std::optional<Instant> selected;
        if (dice.oneIn(2))
            selected = makeMoment(dice, counted, day + dice.below(60));
        const OverviewAggregates overview = computeOverview(groups, range, selected, now, *calendar);

        constexpr std::array months{3, 6, 12, 0};
        const int back = months.at(static_cast<std::size_t>(range));
        ASSERT_EQ(overview.cutoffDate.has_value(), back != 0);
        if (back != 0)
            expectStep(counted, overview.cutoffDate, now, counted.addingMonths(today, -back));

        std::vector<Instant> inRange;
        std::set<long> days;
        std::optional<Instant> last;
        int thisWeek = 0;
        int thisMonth = 0;
        std::vector<JumpGroup> ofDay;
        for (const JumpGroup& group : groups) {
            if (!group.jumpDate)
                continue;
            const long jumpDay = counted.dayOf(*group.jumpDate);
            days.insert(jumpDay);
            if (!overview.cutoffDate || group.jumpDate->seconds >= overview.cutoffDate->seconds)
                inRange.push_back(*group.jumpDate);
            if (!last || group.jumpDate->seconds > last->seconds)
                last = group.jumpDate;
            thisWeek += counted.weekStart(jumpDay) == counted.weekStart(today) ? 1 : 0;
            thisMonth += counted.monthStart(jumpDay) == counted.monthStart(today) ? 1 : 0;
            if (selected && jumpDay == counted.dayOf(*selected))
                ofDay.push_back(group);
        }
        expectRange(overview, counted, *calendar, inRange);
        ASSERT_EQ(overview.lastJumpDate, last);
        ASSERT_EQ(overview.jumpCountThisWeek, thisWeek);
        ASSERT_EQ(overview.jumpCountThisMonth, thisMonth);
        ASSERT_EQ(overview.streaks, streaksOf(days));
        ASSERT_EQ(idsOf(overview.selectedDayGroups), newestFirst(ofDay));
        std::vector<Uuid> recent = newestFirst(groups);
        recent.resize(std::min<std::size_t>(recent.size(), 3));
        ASSERT_EQ(idsOf(overview.recentGroups), recent);
    });
}

/// A jump at the very cut-off is in, the smallest step before it is out.
TEST(OverviewOfAnyJumps, beginsAtTheCutoffItself)
{
    forSeeds(500, [&](Dice& dice) {
        const naive::Zone& zone = dice.oneOf(naive::zones());
        const CountedCalendar counted(zone, 1);
        const std::unique_ptr<Calendar> calendar = makeCalendar(zone.name, 1);
        const long day = dice.between(CountedCalendar::firstDay + 900, CountedCalendar::lastDay - 900);
        const Instant now = makeMoment(dice, counted, day);
        constexpr std::array ranges{OverviewTimeRange::threeMonths, OverviewTimeRange::sixMonths,
                                    OverviewTimeRange::oneYear};
        const OverviewTimeRange range = dice.oneOf(ranges);
        const Instant cutoff = cutoffDate(range, now, *calendar).value_or(now);
        std::vector<JumpGroup> groups(2);
        groups[0].jumpDate = Instant{cutoff.seconds - 0.001};
        groups[1].jumpDate = cutoff;
        const OverviewAggregates overview = computeOverview(groups, range, std::nullopt, now, *calendar);
        ASSERT_EQ(overview.visibleJumps, 1);
        ASSERT_EQ(overview.jumpsPerDay.at(0).date, counted.startOf(counted.dayOf(cutoff)));
    });
}

} // namespace

} // namespace ospra::properties
