#pragma once

#include "tilemap/MapSource.h"

#include <string>

namespace ospra {

/// The bytes of a tile of an invented country: highways, roads, villages with their streets, a railway, and invented
/// names. The country is the same for every tile, so that roads go on over the tiles' edges; each tile has some units
/// of its neighbours, as real ones do. From zoom 8 or so on there is something in every tile; there are no bytes for a
/// tile that does not exist.
[[nodiscard]] std::string sampleVectorTile(const TileID& tile);

} // namespace ospra
