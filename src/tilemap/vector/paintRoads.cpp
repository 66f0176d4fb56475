#include "tilemap/vector/paintRoads.h"

#include "raster/DashedPen.h"
#include "tilemap/vector/RoadStyle.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>

namespace ospra {
namespace {

constexpr std::uint32_t opaque = 0xff000000;
constexpr std::uint32_t casingColor = 0x000000;

struct PlacedRoad {
    const TileRoad* road = nullptr;
    TileSquare square{};
};

/// The roads of a class that look alike.
struct RoadGroup {
    std::vector<PlacedRoad> roads{};
    RoadStyle style{};
};

/// The roads that are shown, from the group drawn first to the one drawn last: tunnels lie below all others.
std::vector<RoadGroup> groupRoads(std::span<const PlacedVectorTile> tiles, const LayerFrame& frame)
{
    constexpr std::size_t classCount = roadClassesFromBelow.size();
    const double zoom = frame.camera.zoom;
    std::array<std::size_t, classCount> orderOf{};
    std::vector<RoadGroup> groups(classCount * 4);
    for (std::size_t i = 0; i < classCount; ++i) {
        const RoadClass roadClass = roadClassesFromBelow[i];
        orderOf[static_cast<std::size_t>(roadClass)] = i;
        for (const bool isTunnel : {true, false}) {
            for (const bool isRamp : {true, false})
                groups[(isTunnel ? 0 : 2 * classCount) + 2 * i + (isRamp ? 0 : 1)].style =
                    roadStyle(roadClass, isRamp, isTunnel, zoom);
        }
    }
    constexpr double widest = 40.0; // logical px; what a line at the tile's edge may reach beyond it
    for (const PlacedVectorTile& placed : tiles) {
        if (!placed.features)
            continue;
        for (const TileSquare& square : tileSquares(placed.tile, frame, widest * frame.scale)) {
            for (const TileRoad& road : placed.features->roads) {
                if (zoom < lowestZoomOf(road.roadClass, road.isRamp))
                    continue;
                const std::size_t order = orderOf[static_cast<std::size_t>(road.roadClass)];
                groups[(road.isTunnel ? 0 : 2 * classCount) + 2 * order + (road.isRamp ? 0 : 1)].roads.push_back(
                    {&road, square});
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
    for (std::size_t i = 1; i < points.size(); ++i) {
        const PixelPoint next = placed.square.pixelAt(points[i]);
        const double step = std::abs(next.x - last.x) + std::abs(next.y - last.y);
        if (step < leastStep && i + 1 < points.size())
            continue;
        pen.lineTo(last, next);
        last = next;
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
    const std::vector<RoadGroup> groups = groupRoads(tiles, frame);
    CoverageMask mask;
    mask.resize(frame.columns, frame.rows);
    std::vector<std::uint32_t> layer(static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows));
    // All casings lie below all lines, so that crossings stay open.
    const auto casings = [&](const RoadGroup& group) {
        mask.setStrokeWidth(group.style.casingWidth * frame.scale);
        for (const PlacedRoad& road : group.roads)
            strokeRoad(mask, road, {}, frame.scale);
    };
    bool hasCasings = false;
    for (const RoadGroup& group : groups) {
        if (group.style.casingWidth > 0.0 && !group.roads.empty()) {
            casings(group);
            hasCasings = true;
        }
    }
    if (hasCasings)
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
