#include "overview/HeatmapGrid.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <numeric>

namespace ospra {

namespace {

Instant weekStartOf(Instant instant, const Calendar& calendar)
{
    return calendar.startOfWeek(instant).value_or(calendar.startOfDay(instant));
}

/// The start of the week that many weeks after one that begins at `weekStart`; absent if the calendar does not reach so
/// far. The step is brought to the start of the week where it ends: clocks that change at midnight shift it by an hour,
/// and a day that a zone skipped shifts it by a day.
std::optional<Instant> startOfWeekAfter(Instant weekStart, std::ptrdiff_t weeks, const Calendar& calendar)
{
    if (weeks > std::numeric_limits<int>::max())
        return std::nullopt;
    const auto step = calendar.adding(static_cast<int>(weeks), CalendarUnit::weekOfYear, weekStart);
    return step ? std::optional(weekStartOf(*step, calendar)) : std::nullopt;
}

/// The start of the day that many days after the start of a week; absent if the calendar cannot tell.
std::optional<Instant> dayOfWeek(Instant weekStart, int day, const Calendar& calendar)
{
    const auto step = calendar.adding(day, CalendarUnit::day, weekStart);
    return step ? std::optional(calendar.startOfDay(*step)) : std::nullopt;
}

int jumpsOn(Instant day, std::span<const HeatmapDay> jumpsPerDay)
{
    const auto found = std::lower_bound(jumpsPerDay.begin(), jumpsPerDay.end(), day,
                                        [](const HeatmapDay& a, Instant date) { return a.date < date; });
    return found != jumpsPerDay.end() && found->date == day ? found->count : 0;
}

/// Finds the weeks of ascending days. The next week is tried first and longer and longer steps after it, so that both a
/// season of jumps and a gap of centuries cost little.
class WeekWalk {
public:
    WeekWalk(Instant firstWeek, const Calendar& calendar)
        : m_calendar(calendar), m_start(firstWeek), m_nextStart(startOfWeekAfter(firstWeek, 1, calendar))
    {}

    [[nodiscard]] std::ptrdiff_t week() const { return m_week; }
    [[nodiscard]] Instant start() const { return m_start; }

    /// Goes to the week that holds `date`, which is not earlier than that of the call before.
    void advanceTo(Instant date)
    {
        if (!m_nextStart || date < *m_nextStart)
            return;
        std::ptrdiff_t step = 1;
        while (tryStep(step, date))
            step *= 2;
        while (step > 1) {
            step /= 2;
            tryStep(step, date);
        }
        m_nextStart = startOfWeekAfter(m_start, 1, m_calendar);
    }

private:
    /// Steps forward unless that leads beyond `date`.
    bool tryStep(std::ptrdiff_t weeks, Instant date)
    {
        const auto start = startOfWeekAfter(m_start, weeks, m_calendar);
        if (!start || *start > date)
            return false;
        m_start = *start;
        m_week += weeks;
        return true;
    }

    const Calendar& m_calendar;
    std::ptrdiff_t m_week = 0;
    Instant m_start;
    std::optional<Instant> m_nextStart; ///< absent beyond the end of the calendar
};

} // namespace

HeatmapGrid::HeatmapGrid(std::span<const HeatmapDay> jumpsPerDay, const Calendar& calendar)
{
    if (jumpsPerDay.empty())
        return;
    m_firstWeek = weekStartOf(jumpsPerDay.front().date, calendar);
    WeekWalk walk(m_firstWeek, calendar);
    for (const HeatmapDay& jumpDay : jumpsPerDay) {
        walk.advanceTo(jumpDay.date);
        if (!m_rows.empty() && m_rows.back().week == walk.week())
            continue;
        Row& row = m_rows.emplace_back(Row{.week = walk.week()});
        for (int day = 0; day < daysPerHeatmapWeek; ++day) {
            if (const auto date = dayOfWeek(walk.start(), day, calendar))
                row.counts[static_cast<std::size_t>(day)] = jumpsOn(*date, jumpsPerDay);
        }
    }
    m_weeklyCounts.resize(static_cast<std::size_t>(m_rows.back().week) + 1);
    for (const Row& row : m_rows)
        m_weeklyCounts[static_cast<std::size_t>(row.week)] = std::accumulate(row.counts.begin(), row.counts.end(), 0);
}

int HeatmapGrid::count(HeatmapCell cell) const
{
    assert(cell.day >= 0 && cell.day < daysPerHeatmapWeek);
    const auto row = std::lower_bound(m_rows.begin(), m_rows.end(), cell.week,
                                      [](const Row& a, std::ptrdiff_t week) { return a.week < week; });
    const bool hasJumps = row != m_rows.end() && row->week == cell.week;
    return hasJumps ? row->counts[static_cast<std::size_t>(cell.day)] : 0;
}

Instant HeatmapGrid::weekStart(std::ptrdiff_t week, const Calendar& calendar) const
{
    return startOfWeekAfter(m_firstWeek, week, calendar).value_or(m_firstWeek);
}

std::optional<HeatmapDay> HeatmapGrid::day(HeatmapCell cell, const Calendar& calendar) const
{
    const auto date = dayOfWeek(weekStart(cell.week, calendar), cell.day, calendar);
    return date ? std::optional(HeatmapDay{.date = *date, .count = count(cell)}) : std::nullopt;
}

HeatmapWeek HeatmapGrid::week(std::ptrdiff_t week, const Calendar& calendar) const
{
    HeatmapWeek result{.weekStart = weekStart(week, calendar)};
    result.days.reserve(daysPerHeatmapWeek);
    for (int offset = 0; offset < daysPerHeatmapWeek; ++offset) {
        if (const auto date = dayOfWeek(result.weekStart, offset, calendar))
            result.days.push_back({.date = *date, .count = count({.week = week, .day = offset})});
    }
    return result;
}

bool HeatmapGrid::opensMonth(std::ptrdiff_t week, const Calendar& calendar) const
{
    return week == 0 || calendar.month(weekStart(week, calendar)) != calendar.month(weekStart(week - 1, calendar));
}

std::optional<HeatmapCell> HeatmapGrid::cellOf(Instant instant, const Calendar& calendar) const
{
    if (weekCount() == 0 || instant < m_firstWeek)
        return std::nullopt;
    WeekWalk walk(m_firstWeek, calendar);
    walk.advanceTo(instant);
    if (walk.week() >= weekCount())
        return std::nullopt;
    for (int offset = 0; offset < daysPerHeatmapWeek; ++offset) {
        const auto date = dayOfWeek(walk.start(), offset, calendar);
        if (date && calendar.isSame(CalendarUnit::day, *date, instant))
            return HeatmapCell{.week = walk.week(), .day = offset};
    }
    return std::nullopt;
}

std::vector<std::ptrdiff_t> monthBoundaryWeeks(const HeatmapGrid& grid, const Calendar& calendar)
{
    std::vector<std::ptrdiff_t> weeks;
    for (std::ptrdiff_t week = 0; week < grid.weekCount(); ++week) {
        if (grid.opensMonth(week, calendar))
            weeks.push_back(week);
    }
    return weeks;
}

std::vector<HeatmapMonthLabel> monthLabels(const HeatmapGrid& grid, const Calendar& calendar, const DateTexts& texts)
{
    std::vector<HeatmapMonthLabel> labels;
    for (const std::ptrdiff_t week : monthBoundaryWeeks(grid, calendar))
        labels.push_back({.offset = week, .label = texts.monthShort(grid.weekStart(week, calendar))});
    return labels;
}

} // namespace ospra
