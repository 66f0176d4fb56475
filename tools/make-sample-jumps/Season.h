#pragma once

#include "tools/make-sample-jumps/Freefall.h"
#include "tools/make-sample-jumps/Place.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ospra {

/// What is odd about a log. Real folders have a few of each.
enum class Oddity { none, startsInFreefall, ridesDown, fewSamples };

/// A take-off in the calendar.
struct PlannedLoad {
    std::size_t placeIndex = 0;   ///< in allPlaces()
    std::int64_t exitInstant = 0; ///< ms since 1970
    JumpStyle style = JumpStyle::belly;
    std::vector<std::size_t> people{}; ///< indices, 0 being the owner of the logbook; the first leads the group
    Oddity oddity = Oddity::none;
    bool wholeClimb = false; ///< the loggers run from before the take-off
};

struct SeasonOrder {
    std::uint64_t seed = 1;
    int jumps = 0; ///< of the owner of the logbook
    int companions = 0;
    std::chrono::sys_days end{}; ///< day of the last jump
};

/// Some fifteen months of jumping, oldest first: weekends by preference, more in summer, a holiday week and a journey,
/// the last load a formation of three.
[[nodiscard]] std::vector<PlannedLoad> planSeason(const SeasonOrder& order);

} // namespace ospra
