#pragma once

#include <array>
#include <string_view>

namespace ospra {

/// Which presentation of the activity the overview shows.
enum class OverviewMode { heatmap, stats };

inline constexpr std::array allOverviewModes{OverviewMode::heatmap, OverviewMode::stats};

/// The name on screen.
[[nodiscard]] constexpr std::string_view displayName(OverviewMode mode)
{
    switch (mode) {
    case OverviewMode::heatmap: return "Heatmap";
    case OverviewMode::stats: return "Stats";
    }
    return "";
}

} // namespace ospra
