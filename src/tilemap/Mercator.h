#pragma once

#include "platform/Coordinate.h"

#include <optional>

namespace ospra {

/// A place on the Web Mercator square: the world is 1 wide and 1 high, x grows to the east from the antimeridian on, y
/// to the south from 85.05 degrees north on. An x outside 0 to 1 is the same ground on another turn round the world.
struct WorldPoint {
    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const WorldPoint&, const WorldPoint&) = default;
};

/// A part of the world; `left` <= `right` and `top` <= `bottom`.
struct WorldRect {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    [[nodiscard]] WorldPoint center() const { return {(left + right) / 2.0, (top + bottom) / 2.0}; }
    friend bool operator==(const WorldRect&, const WorldRect&) = default;
};

/// Where a coordinate lies. Latitudes beyond the square's edge lie on it. Longitudes are not wrapped: 190 degrees lie
/// east of 180.
/// @return absent where latitude or longitude is not finite, or out of all measure (beyond 1e6 degrees)
/// Source: Web Mercator (EPSG:3857).
[[nodiscard]] std::optional<WorldPoint> worldPoint(Coordinate coordinate);

/// The coordinate of a place, longitude between -180 and 180.
[[nodiscard]] Coordinate coordinateAt(WorldPoint point);

/// Metres on the ground that one unit of the world stands for at a latitude, on the sphere of the projection.
[[nodiscard]] double metersPerWorldUnit(double latitude);

} // namespace ospra
