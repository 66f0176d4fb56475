#pragma once

#include "tilemap/vector/PlacedVectorTile.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace ospra {

/// A name that may be shown in a picture.
struct MapName {
    std::string_view text{}; ///< of the tile's
    double size = 1.0;       ///< of the letters, in those of a town's name
    bool isRoad = false;
    int importance = 0; ///< the lower the more
    std::int64_t rank = 0;
    std::vector<PixelPoint> line{}; ///< along which it stands; the one point at which, of a place
};

/// Whether a point lies in the picture, or so near that a name there may take room in it.
[[nodiscard]] bool countsForNames(PixelPoint point, const LayerFrame& frame);

/// The names that are shown at the frame's zoom, the most important first, and among equals in an order that does not
/// depend on where the picture lies. Names some way outside the picture are among them, since they take their room
/// too. At most some thousand.
[[nodiscard]] std::vector<MapName> chooseNames(std::span<const PlacedVectorTile> tiles, const LayerFrame& frame);

} // namespace ospra
