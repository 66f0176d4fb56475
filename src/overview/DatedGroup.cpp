#include "overview/DatedGroup.h"

#include <algorithm>
#include <iterator>

namespace ospra {

std::vector<DatedGroup> datedGroups(std::span<const JumpGroup> groups)
{
    std::vector<DatedGroup> dated;
    dated.reserve(groups.size());
    for (std::ptrdiff_t index = 0; const JumpGroup& group : groups) {
        if (group.jumpDate)
            dated.push_back({.groupIndex = index, .date = *group.jumpDate});
        ++index;
    }
    std::sort(dated.begin(), dated.end(), [](const DatedGroup& a, const DatedGroup& b) {
        return a.date != b.date ? a.date > b.date : a.groupIndex < b.groupIndex;
    });
    return dated;
}

std::optional<Instant> cutoffDate(OverviewTimeRange range, Instant now, const Calendar& calendar)
{
    switch (range) {
    case OverviewTimeRange::threeMonths: return calendar.adding(-3, CalendarUnit::month, now);
    case OverviewTimeRange::sixMonths: return calendar.adding(-6, CalendarUnit::month, now);
    case OverviewTimeRange::oneYear: return calendar.adding(-1, CalendarUnit::year, now);
    case OverviewTimeRange::all: break;
    }
    return std::nullopt;
}

std::span<const DatedGroup> filteredGroups(std::span<const DatedGroup> groups, std::optional<Instant> cutoff)
{
    if (!cutoff)
        return groups;
    const auto end = std::partition_point(groups.begin(), groups.end(),
                                          [&cutoff](const DatedGroup& group) { return group.date >= *cutoff; });
    return {groups.begin(), end};
}

std::span<const DatedGroup> groupsOfPeriod(std::span<const DatedGroup> groups, CalendarUnit unit, Instant instant,
                                           const Calendar& calendar)
{
    const auto isInPeriod = [&](const DatedGroup& group) { return calendar.isSame(unit, group.date, instant); };
    const auto isAfterPeriod = [&](const DatedGroup& group) { return group.date > instant && !isInPeriod(group); };
    const auto begin = std::partition_point(groups.begin(), groups.end(), isAfterPeriod);
    return {begin, std::partition_point(begin, groups.end(), isInPeriod)};
}

} // namespace ospra
