#include "overview/MonthStat.h"

#include <algorithm>

namespace ospra {

namespace {

constexpr double daysPerWeek = 7.0;
constexpr int usualDaysInMonth = 30; // for a calendar that cannot tell

double weeksInMonth(Instant monthStart, const Calendar& calendar)
{
    return calendar.daysInMonth(monthStart).value_or(usualDaysInMonth) / daysPerWeek;
}

} // namespace

std::vector<MonthStat> monthlyStats(std::span<const DatedGroup> groups, const Calendar& calendar)
{
    std::vector<MonthStat> stats;
    for (const DatedGroup& group : groups) {
        const bool isSameMonth = !stats.empty() && group.date >= stats.back().monthStart;
        if (!isSameMonth)
            stats.push_back({.monthStart = calendar.startOfMonth(group.date).value_or(group.date)});
        ++stats.back().jumps;
    }
    for (MonthStat& stat : stats)
        stat.avgPerWeek = stat.jumps / std::max(weeksInMonth(stat.monthStart, calendar), 1.0);
    return stats;
}

} // namespace ospra
