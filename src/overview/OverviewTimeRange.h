#pragma once

#include <array>
#include <string_view>

namespace ospra {

/// How far back the overview looks from now.
enum class OverviewTimeRange { threeMonths, sixMonths, oneYear, all };

inline constexpr std::array allOverviewTimeRanges{OverviewTimeRange::threeMonths, OverviewTimeRange::sixMonths,
                                                  OverviewTimeRange::oneYear, OverviewTimeRange::all};

/// The name on screen.
[[nodiscard]] constexpr std::string_view displayName(OverviewTimeRange range)
{
    switch (range) {
    case OverviewTimeRange::threeMonths: return "3M";
    case OverviewTimeRange::sixMonths: return "6M";
    case OverviewTimeRange::oneYear: return "1Y";
    case OverviewTimeRange::all: return "All";
    }
    return "";
}

} // namespace ospra
