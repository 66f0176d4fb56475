#pragma once

#include "platform/Coordinate.h"

#include <span>
#include <vector>

namespace ospra {

/// Whether a place lies within one of the polygons; everywhere where there are none. Their sides are straight in
/// degrees, the last point is joined to the first, and a polygon across the antimeridian goes on beyond 180 degrees.
[[nodiscard]] bool showsPlace(std::span<const std::vector<Coordinate>> polygons, Coordinate place);

} // namespace ospra
