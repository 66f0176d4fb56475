#include "tilemap/vector/PlacedVectorTile.h"

#include <algorithm>
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

std::vector<TilePart> partsOfFinerTiles(const TileID& tile, std::span<const PlacedVectorTile> tiles)
{
    constexpr int mostSteps = 30; // no pyramid is higher
    std::vector<TilePart> parts;
    for (const PlacedVectorTile& other : tiles) {
        const int steps = other.tile.zoom - tile.zoom;
        if (!other.features || steps <= 0 || steps > mostSteps || other.tile.x >> steps != tile.x ||
            other.tile.y >> steps != tile.y)
            continue;
        const auto size = std::ldexp(1.0F, -steps);
        const int mask = (1 << steps) - 1;
        parts.push_back({.left = static_cast<float>(other.tile.x & mask) * size,
                         .top = static_cast<float>(other.tile.y & mask) * size,
                         .size = size});
    }
    return parts;
}

bool isInAny(std::span<const TilePart> parts, TilePoint point)
{
    return std::any_of(parts.begin(), parts.end(), [&](const TilePart& part) { return part.holds(point); });
}

} // namespace ospra
