#pragma once

#include "tilemap/vector/VectorTile.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace ospra {

/// Reads the parts of a line's geometry, or the points of a point's, each a part of its own. Throws
/// `protozero::exception` where the bytes end too early.
/// @param commands the packed field of a feature
/// @param extent units along a side of the tile, above 0
/// @return absent where a command is unknown, out of place, or tells of more points than there are bytes for
[[nodiscard]] std::optional<std::vector<std::vector<TilePoint>>> readTileGeometry(std::string_view commands,
                                                                                  std::uint32_t extent);

} // namespace ospra
