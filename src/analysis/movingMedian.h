#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace ospra {

/// The median of the values around each value. Windows shrink at the ends; with an even number of values the upper of
/// the two middle ones is taken, never a mean. NaN values have a fixed place in the order and do not disturb it.
/// @param width of the window in values; below 2 the values come back unchanged
/// @return one value per value
[[nodiscard]] std::vector<double> movingMedian(std::span<const double> values, std::ptrdiff_t width);

} // namespace ospra
