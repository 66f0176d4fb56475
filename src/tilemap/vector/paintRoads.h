#pragma once

#include "tilemap/vector/PlacedVectorTile.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace ospra {

/// Draws the roads of tiles, from minor to major, each class after its casing. Where lines of two tiles lie upon each
/// other, as they do along the tiles' common edge, they get no denser.
/// @param pixels premultiplied ARGB, overwritten: `rows` times `pixelStride`, of which the first `columns` count
void paintRoads(std::span<const PlacedVectorTile> tiles, const LayerFrame& frame, std::span<std::uint32_t> pixels,
                std::ptrdiff_t pixelStride);

} // namespace ospra
