#pragma once

#include "platform/Coordinate.h"
#include "tilemap/Mercator.h"

#include <cstddef>
#include <span>
#include <vector>

namespace ospra {

/// Where a path's coordinates lie on the world, one after the other the short way round: a path across the
/// antimeridian goes on beyond 0 or 1. Coordinates that are not finite are left out.
[[nodiscard]] std::vector<WorldPoint> worldPoints(std::span<const Coordinate> coordinates);

/// The smallest rectangle round the points, of which there is at least one.
[[nodiscard]] WorldRect boundsOf(std::span<const WorldPoint> points);

/// A path with no more points than can be told apart at a zoom, and its pieces, so that those out of a picture can be
/// passed over at once.
struct ReducedPath {
    /// Points `first` to `last`, both inclusive; the next piece begins at `last`.
    struct Piece {
        std::size_t first = 0;
        std::size_t last = 0;
        WorldRect bounds{};
        double length = 0.0; ///< in world units
    };

    std::vector<WorldPoint> points{};
    std::vector<Piece> pieces{};
};

/// Leaves out the points that lie nearer than `distance`, in world units, to the last one kept before them; the first
/// and the last point stay.
[[nodiscard]] ReducedPath reducedPath(std::span<const WorldPoint> points, double distance);

} // namespace ospra
