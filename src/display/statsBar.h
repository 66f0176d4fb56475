#pragma once

#include "analysis/JumpStatistics.h"
#include "display/units.h"

#include <array>
#include <string>
#include <string_view>

namespace ospra {

/// One number of the statistics bar.
struct StatsItem {
    std::string_view label{}; ///< "Exit", "Max V.Spd"
    std::string value{};      ///< with its unit
};

/// The nine key numbers of a jump in the order of the bar. Altitudes are always above mean sea level.
[[nodiscard]] std::array<StatsItem, 9> statsBarItems(const JumpStatistics& statistics, UnitSystem system);

} // namespace ospra
