#pragma once

#include "library/JumpGroup.h"
#include "overview/OverviewTimeRange.h"
#include "platform/Calendar.h"
#include "platform/Instant.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace ospra {

/// A jump whose date is known.
struct DatedGroup {
    std::ptrdiff_t groupIndex = 0; ///< in the list of jumps
    Instant date{};                ///< the `jumpDate` of the group; those of its entries do not matter
};

/// The jumps that have a date, newest first; those of one moment keep the order of the list.
[[nodiscard]] std::vector<DatedGroup> datedGroups(std::span<const JumpGroup> groups);

/// The moment at which a time range begins: `now`, with its clock time, moved back by calendar months or years.
/// @return absent for `all`, or if the calendar cannot tell
[[nodiscard]] std::optional<Instant> cutoffDate(OverviewTimeRange range, Instant now, const Calendar& calendar);

/// The jumps at or after the cut-off, or all of them without one.
/// @param groups newest first; the result is the beginning of it
[[nodiscard]] std::span<const DatedGroup> filteredGroups(std::span<const DatedGroup> groups,
                                                         std::optional<Instant> cutoff);

/// The jumps of the day, week, month or year that holds `instant`. Asks the calendar for a few of them only.
/// @param groups newest first; the result is a part of it
[[nodiscard]] std::span<const DatedGroup> groupsOfPeriod(std::span<const DatedGroup> groups, CalendarUnit unit,
                                                         Instant instant, const Calendar& calendar);

} // namespace ospra
