#pragma once

#include "tilemap/Camera.h"

#include <vector>

namespace ospra {

/// Where the lines of the grid cross a view, in logical pixels.
struct GridLines {
    std::vector<double> x{}; ///< of the upright lines, ascending
    std::vector<double> y{}; ///< of the level ones, ascending
};

/// Lines on the ground every 500 m, or a power of ten times that, so that they are neither crowded nor out of sight.
/// They stay with the ground while the view moves; only on a long way to the north or south their distance is set
/// anew, as the projection enlarges the ground towards the poles.
[[nodiscard]] GridLines gridLines(const MapView& view);

} // namespace ospra
