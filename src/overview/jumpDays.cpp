#include "overview/jumpDays.h"

#include <algorithm>
#include <ranges>

namespace ospra {

namespace {

/// Whether `earlier` is the day before `later`. Both are starts of days.
bool isDayBefore(Instant earlier, Instant later, const Calendar& calendar)
{
    // Where clocks change at midnight a day may begin at one o'clock, and the step back from it ends at one o'clock
    // too: it must be brought to the start of its own day.
    const std::optional<Instant> stepped = calendar.adding(-1, CalendarUnit::day, later);
    return stepped && calendar.startOfDay(*stepped) == earlier;
}

} // namespace

std::vector<Instant> startsOfDays(std::span<const DatedGroup> groups, const Calendar& calendar)
{
    std::vector<Instant> starts;
    starts.reserve(groups.size());
    for (const DatedGroup& group : groups) {
        const bool isSameDay = !starts.empty() && group.date >= starts.back();
        starts.push_back(isSameDay ? starts.back() : calendar.startOfDay(group.date));
    }
    return starts;
}

std::vector<HeatmapDay> jumpsPerDay(std::span<const Instant> dayStarts)
{
    std::vector<HeatmapDay> days;
    for (const Instant dayStart : std::views::reverse(dayStarts)) {
        if (days.empty() || days.back().date != dayStart)
            days.push_back({.date = dayStart, .count = 0});
        ++days.back().count;
    }
    return days;
}

Streaks streaks(std::span<const Instant> dayStarts, const Calendar& calendar)
{
    std::vector<int> runs; // the days of each, the last run first
    for (std::size_t i = 0; i < dayStarts.size(); ++i) {
        if (i > 0 && dayStarts[i] == dayStarts[i - 1])
            continue;
        const bool continuesRun = i > 0 && isDayBefore(dayStarts[i], dayStarts[i - 1], calendar);
        if (continuesRun)
            ++runs.back();
        else
            runs.push_back(1);
    }
    if (runs.empty())
        return {};
    return {.current = runs.front(), .best = *std::max_element(runs.begin(), runs.end())};
}

} // namespace ospra
