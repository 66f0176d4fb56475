#include "overview/jumpLists.h"

#include <algorithm>

namespace ospra {

namespace {

constexpr std::size_t recentGroupCount = 3;

/// The age that a jump without a date counts as: the beginning of year 1 of the Julian calendar.
constexpr Instant distantPast{-62'135'769'600.0};

} // namespace

std::vector<JumpGroup> selectedDayGroups(std::span<const JumpGroup> groups, std::span<const DatedGroup> dated,
                                         std::optional<Instant> selectedDay, const Calendar& calendar)
{
    std::vector<JumpGroup> selected;
    if (!selectedDay)
        return selected;
    const std::span<const DatedGroup> ofDay = groupsOfPeriod(dated, CalendarUnit::day, *selectedDay, calendar);
    selected.reserve(ofDay.size());
    for (const DatedGroup& group : ofDay)
        selected.push_back(groups[static_cast<std::size_t>(group.groupIndex)]);
    return selected;
}

std::vector<JumpGroup> recentGroups(std::span<const JumpGroup> groups)
{
    std::vector<const JumpGroup*> newest;
    newest.reserve(groups.size());
    for (const JumpGroup& group : groups)
        newest.push_back(&group);
    const auto end = newest.begin() + static_cast<std::ptrdiff_t>(std::min(newest.size(), recentGroupCount));
    std::partial_sort(newest.begin(), end, newest.end(), [](const JumpGroup* a, const JumpGroup* b) {
        const Instant dateA = a->jumpDate.value_or(distantPast);
        const Instant dateB = b->jumpDate.value_or(distantPast);
        return dateA != dateB ? dateA > dateB : a < b; // both stand in one list, whose order the addresses tell
    });

    std::vector<JumpGroup> recent;
    recent.reserve(recentGroupCount);
    for (auto group = newest.begin(); group != end; ++group)
        recent.push_back(**group);
    return recent;
}

std::optional<Instant> selectedDayAfterClick(std::optional<Instant> selectedDay, std::optional<Instant> clicked,
                                             const Calendar& calendar)
{
    if (!clicked)
        return std::nullopt;
    const Instant day = calendar.startOfDay(*clicked);
    return selectedDay == day ? std::nullopt : std::optional(day);
}

} // namespace ospra
