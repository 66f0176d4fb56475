#include "tilemap/vector/paintRoads.h"

#include "raster/DashedPen.h"
#include "tilemap/vector/RoadStyle.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace ospra {
namespace {

constexpr std::uint32_t opaque = 0xff000000;
constexpr std::uint32_t casingColor = 0x000000;

struct PlacedRoad {
    const TileRoad* road = nullptr;
    TileSquare square{};
    std::span<const TilePart> hidden{}; ///< of the road's tile
};

/// The roads of a class that look alike.
struct RoadGroup {
    std::vector<PlacedRoad> roads{};
    RoadStyle style{};
};

/// The place of a road's group among all: tunnels lie below all others, ramps below what they lead to.
std::size_t groupIndex(RoadClass roadClass, bool isRamp, bool isTunnel)
{
    constexpr std::size_t classCount = roadClassesFromBelow.size();
    const auto* const found = std::find(roadClassesFromBelow.begin(), roadClassesFromBelow.end(), roadClass);
    const auto order = static_cast<std::size_t>(found - roadClassesFromBelow.begin());
    return 2 * (order + (isTunnel ? 0 : classCount)) + (isRamp ? 0 : 1);
}

/// The roads that are shown, from the group drawn first to the one drawn last.
/// @param hiddenParts of each tile
std::vector<RoadGroup> groupRoads(std::span<const PlacedVectorTile> tiles,
                                  std::span<const std::vector<TilePart>> hiddenParts, const LayerFrame& frame)
{
    constexpr double widest = 40.0; // logical px; what a line at the tile's edge may reach beyond it
    const double zoom = frame.camera.zoom;
    std::vector<RoadGroup> groups(4 * roadClassesFromBelow.size());
    for (const RoadClass roadClass : roadClassesFromBelow) {
        for (const bool isRamp : {false, true}) {
            for (const bool isTunnel : {false, true})
                groups[groupIndex(roadClass, isRamp, isTunnel)].style = roadStyle(roadClass, isRamp, isTunnel, zoom);
        }
    }
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        if (!tiles[i].features)
            continue;
        for (const TileSquare& square : tileSquares(tiles[i].tile, frame, widest * frame.scale)) {
            for (const TileRoad& road : tiles[i].features->roads) {
                if (zoom >= lowestZoomOf(road.roadClass, road.isRamp))
                    groups[groupIndex(road.roadClass, road.isRamp, road.isTunnel)].roads.push_back(
                        {&road, square, hiddenParts[i]});
            }
        }
    }
    return groups;
}

/// Draws a road into the mask. Points that lie closer together than the eye tells are passed over.
void strokeRoad(CoverageMask& mask, const PlacedRoad& placed, DashPattern dash, double scale)
{
    constexpr double leastStep = 0.6; // px
    DashedPen pen(mask, dash, scale);
    const std::vector<TilePoint>& points = placed.road->points;
    PixelPoint last = placed.square.pixelAt(points.front());
    std::size_t lastIndex = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const PixelPoint next = placed.square.pixelAt(points[i]);
        const double step = std::abs(next.x - last.x) + std::abs(next.y - last.y);
        if (step < leastStep && i + 1 < points.size())
            continue;
        const TilePoint middle{.x = (points[lastIndex].x + points[i].x) / 2.0F,
                               .y = (points[lastIndex].y + points[i].y) / 2.0F};
        if (!isInAny(placed.hidden, middle))
            pen.lineTo(last, next);
        last = next;
        lastIndex = i;
    }
}

/// The opaque layer made see-through: black as the casings are, white as the lines are. Both layer and result are
/// premultiplied, so that soft edges come out right.
std::uint32_t seeThrough(std::uint32_t pixel)
{
    constexpr auto lineShare = static_cast<std::uint32_t>(roadLineOpacity * 256.0);
    constexpr auto casingShare = static_cast<std::uint32_t>(roadCasingOpacity * 256.0);
    const std::uint32_t alpha = pixel >> 24;
    const std::uint32_t lightness = (pixel >> 16) & 0xff; // red is the strongest channel of every road's colour
    const std::uint32_t faded = (alpha * casingShare + lightness * (lineShare - casingShare)) >> 8;
    const std::uint32_t redAndBlue = (((pixel & 0xff00ff) * lineShare) >> 8) & 0xff00ff;
    const std::uint32_t green = (((pixel & 0x00ff00) * lineShare) >> 8) & 0x00ff00;
    return (faded << 24) | redAndBlue | green;
}

/// Turns the layer, which is kept column by column, into the picture's rows. Goes in blocks that stay in the cache.
void copyToRows(const std::vector<std::uint32_t>& layer, const LayerFrame& frame, std::span<std::uint32_t> pixels,
                std::ptrdiff_t pixelStride)
{
    constexpr int block = 32;
    for (int left = 0; left < frame.columns; left += block) {
        for (int top = 0; top < frame.rows; top += block) {
            for (int y = top; y < std::min(top + block, frame.rows); ++y) {
                for (int x = left; x < std::min(left + block, frame.columns); ++x) {
                    const std::uint32_t pixel = layer[static_cast<std::size_t>(std::ptrdiff_t{x} * frame.rows + y)];
                    pixels[static_cast<std::size_t>(std::ptrdiff_t{y} * pixelStride + x)] = seeThrough(pixel);
                }
            }
        }
    }
}

} // namespace

void paintRoads(std::span<const PlacedVectorTile> tiles, const LayerFrame& frame, std::span<std::uint32_t> pixels,
                std::ptrdiff_t pixelStride)
{
    assert(frame.columns <= pixelStride && std::ssize(pixels) >= pixelStride * frame.rows);
    std::vector<std::vector<TilePart>> hiddenParts;
    hiddenParts.reserve(tiles.size());
    for (const PlacedVectorTile& placed : tiles)
        hiddenParts.push_back(partsOfFinerTiles(placed.tile, tiles));
    const std::vector<RoadGroup> groups = groupRoads(tiles, hiddenParts, frame);
    CoverageMask mask;
    mask.resize(frame.columns, frame.rows);
    std::vector<std::uint32_t> layer(static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows));
    // All casings lie below all lines, so that crossings stay open.
    for (const RoadGroup& group : groups) {
        if (group.style.casingWidth <= 0.0)
            continue;
        mask.setStrokeWidth(group.style.casingWidth * frame.scale);
        for (const PlacedRoad& road : group.roads)
            strokeRoad(mask, road, {}, frame.scale);
    }
    mask.paintOver(layer, opaque | casingColor);
    for (const RoadGroup& group : groups) {
        if (group.roads.empty())
            continue;
        mask.setStrokeWidth(group.style.width * frame.scale);
        for (const PlacedRoad& road : group.roads)
            strokeRoad(mask, road, group.style.dash, frame.scale);
        mask.paintOver(layer, opaque | group.style.color);
    }
    copyToRows(layer, frame, pixels, pixelStride);
}

} // namespace ospra
