#pragma once

#include "overview/DatedGroup.h"
#include "platform/Calendar.h"
#include "platform/Instant.h"

#include <span>
#include <vector>

namespace ospra {

/// One day and its jumps.
struct HeatmapDay {
    Instant date{}; ///< the start of the day
    int count = 0;

    friend bool operator==(const HeatmapDay&, const HeatmapDay&) = default;
};

/// The two runs of consecutive jump days that the overview tells of. Several jumps on one day count as one day.
struct Streaks {
    int current = 0; ///< days of the run that ends at the last jump day, however long ago that was
    int best = 0;    ///< days of the longest run

    friend bool operator==(const Streaks&, const Streaks&) = default;
};

/// The start of the day of each jump. Asks the calendar once for each day.
/// @param groups newest first
/// @return one value per jump, in the same order
[[nodiscard]] std::vector<Instant> startsOfDays(std::span<const DatedGroup> groups, const Calendar& calendar);

/// The days with jumps, ascending; each count is at least 1.
/// @param dayStarts newest first, one per jump
[[nodiscard]] std::vector<HeatmapDay> jumpsPerDay(std::span<const Instant> dayStarts);

/// @param dayStarts newest first, one per jump
[[nodiscard]] Streaks streaks(std::span<const Instant> dayStarts, const Calendar& calendar);

} // namespace ospra
