#pragma once

#include "tests/support/VectorTileWriter.h"
#include "tilemap/MapSource.h"

#include <optional>
#include <utility>

namespace ospra {

/// What a tile of an invented country holds: highways, roads, villages with their streets, a railway, and invented
/// names. The country is the same for every tile, so that roads go on over the tiles' edges; each tile has some units
/// of its neighbours, as real ones do. From zoom 8 or so on there is something in every tile.
[[nodiscard]] WrittenTile sampleTile(const TileID& tile);

/// The same as bytes. There are none for a tile that does not exist.
[[nodiscard]] std::string sampleVectorTile(const TileID& tile);

/// The part of a straight line between two points that lies within `lo` to `hi` on both axes.
[[nodiscard]] std::optional<std::pair<GridPoint, GridPoint>> clippedTo(GridPoint from, GridPoint to, int lo, int hi);

} // namespace ospra
