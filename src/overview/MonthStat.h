#pragma once

#include "overview/DatedGroup.h"
#include "platform/Calendar.h"
#include "platform/Instant.h"

#include <span>
#include <vector>

namespace ospra {

/// The jumps of one calendar month.
struct MonthStat {
    Instant monthStart{};
    int jumps = 0;           ///< those inside the time range
    double avgPerWeek = 0.0; ///< over all weeks of the month, also those that are not over or lie outside the range

    friend bool operator==(const MonthStat&, const MonthStat&) = default;
};

/// The months that have jumps, newest first. Asks the calendar once for each month.
/// @param groups newest first
[[nodiscard]] std::vector<MonthStat> monthlyStats(std::span<const DatedGroup> groups, const Calendar& calendar);

} // namespace ospra
