#pragma once

#include "raster/CoverageMask.h"
#include "tilemap/LayerFrame.h"
#include "tilemap/MapSource.h"
#include "tilemap/vector/VectorTile.h"

#include <memory>
#include <span>
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

/// A square part of a tile, in the tile's own measure.
struct TilePart {
    float left = 0.0F;
    float top = 0.0F;
    float size = 1.0F;

    [[nodiscard]] bool holds(TilePoint point) const
    {
        return point.x >= left && point.x < left + size && point.y >= top && point.y < top + size;
    }
};

/// The parts of a tile that finer ones among `tiles` show better, so that it has nothing to show there.
[[nodiscard]] std::vector<TilePart> partsOfFinerTiles(const TileID& tile, std::span<const PlacedVectorTile> tiles);

/// Whether one of the parts holds a point.
[[nodiscard]] bool isInAny(std::span<const TilePart> parts, TilePoint point);

} // namespace ospra
