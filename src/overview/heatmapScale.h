#pragma once

#include <algorithm>

namespace ospra {

/// The colour level of a day: 0 without jumps, else 1 to 4 by the quarters of the busiest day.
/// @param busiest the largest count of the range
[[nodiscard]] constexpr int heatmapLevel(int count, int busiest)
{
    if (count == 0)
        return 0;
    const double ratio = static_cast<double>(count) / std::max(busiest, 1);
    if (ratio <= 0.25)
        return 1;
    if (ratio <= 0.5)
        return 2;
    return ratio <= 0.75 ? 3 : 4;
}

/// The height of a bar of the weekly trend, in the units of the screen. A week without jumps keeps a stub.
/// @param busiest the largest count of all weeks
[[nodiscard]] constexpr double weeklyBarHeight(int count, int busiest)
{
    constexpr double fullHeight = 18.0;
    constexpr double leastHeight = 2.0;
    return std::max(static_cast<double>(count) / std::max(busiest, 1) * fullHeight, leastHeight);
}

} // namespace ospra
