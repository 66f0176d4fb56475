#include "tilemap/vector/PlacedVectorTile.h"

#include <cmath>

namespace ospra {

std::vector<TileSquare> tileSquares(const TileID& tile, const LayerFrame& frame, double margin)
{
    constexpr double mostTurns = 16.0; // a picture of the whole world shows some more than once
    const double worldSize = frame.camera.worldSize() * frame.scale;
    const double size = std::ldexp(worldSize, -tile.zoom);
    const double worldLeft = frame.columns / 2.0 - frame.camera.center.x * worldSize;
    const double worldTop = frame.rows / 2.0 - frame.camera.center.y * worldSize;
    const double left = worldLeft + tile.x * size;
    const double top = worldTop + tile.y * size;
    if (top >= frame.rows + margin || top + size <= -margin)
        return {};
    std::vector<TileSquare> squares;
    const double firstTurn = std::floor((-margin - left - size) / worldSize) + 1.0;
    const double endTurn = std::ceil((frame.columns + margin - left) / worldSize);
    for (double turn = firstTurn; turn < std::min(endTurn, firstTurn + mostTurns); turn += 1.0)
        squares.push_back({.left = left + turn * worldSize, .top = top, .size = size});
    return squares;
}

} // namespace ospra
