#pragma once

#include "tilemap/LayerFrame.h"
#include "tilemap/MapSource.h"
#include "tilemap/vector/VectorTile.h"

#include <QFont>
#include <QImage>

#include <memory>
#include <span>

namespace ospra {

/// A vector tile and where it lies.
struct PlacedVectorTile {
    TileID tile{};
    std::shared_ptr<const VectorTile> features{};
};

/// Paints roads and names for a view over imagery: roads by class with casing and line, names with a halo and without
/// overlaps, the more important first. Can be called on any thread.
/// @param font of the names; its size is for a town
/// @return premultiplied, of the frame's size, transparent where nothing is
[[nodiscard]] QImage paintOverlay(std::span<const PlacedVectorTile> tiles, const LayerFrame& frame, const QFont& font);

} // namespace ospra
