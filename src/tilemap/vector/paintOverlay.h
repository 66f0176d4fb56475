#pragma once

#include "tilemap/vector/PlacedVectorTile.h"

#include <QFont>
#include <QImage>

#include <span>

namespace ospra {

/// Paints roads and names for a view over imagery: roads by class with casing and line, names with a halo and without
/// overlaps, the more important first. Can be called on any thread.
/// @param tiles in any order, each once; where a coarse one and finer ones show the same ground, the finer ones count
/// @param font of the names; its size is for a town
/// @return premultiplied, of the frame's size, transparent where nothing is; null where the frame has no size
[[nodiscard]] QImage paintOverlay(std::span<const PlacedVectorTile> tiles, const LayerFrame& frame, const QFont& font);

} // namespace ospra
