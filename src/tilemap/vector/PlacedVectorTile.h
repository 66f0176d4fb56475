#pragma once

#include "raster/CoverageMask.h"
#include "tilemap/LayerFrame.h"
#include "tilemap/MapSource.h"
#include "tilemap/vector/VectorTile.h"

#include <memory>
#include <vector>

namespace ospra {

/// A vector tile and where it lies.
struct PlacedVectorTile {
    TileID tile{};
    std::shared_ptr<const VectorTile> features{};
};

/// The square that a tile covers in a picture, in device pixels.
struct TileSquare {
    double left = 0.0;
    double top = 0.0;
    double size = 0.0;

    [[nodiscard]] PixelPoint pixelAt(TilePoint point) const
    {
        return {.x = left + static_cast<double>(point.x) * size, .y = top + static_cast<double>(point.y) * size};
    }
};

/// The squares of a tile that reach into the picture: one for each turn round the world, from west to east.
/// @param margin by which the picture counts as larger on all sides, device pixels
[[nodiscard]] std::vector<TileSquare> tileSquares(const TileID& tile, const LayerFrame& frame, double margin);

} // namespace ospra
