#include "tilemap/vector/chooseNames.h"

#include <algorithm>
#include <tuple>

namespace ospra {
namespace {

constexpr double nameMargin = 600.0;     // logical px around the picture within which names count
constexpr std::size_t mostNames = 4'000; // more do not fit on any screen
constexpr double roadNamesFromZoom = 13.0;

struct PlaceLook {
    double lowestZoom = 0.0;
    double highestZoom = 99.0;
    double size = 1.0; ///< of a town's name
};

PlaceLook lookOf(PlaceClass placeClass)
{
    switch (placeClass) {
    case PlaceClass::country: return {0.0, 6.5, 1.15};
    case PlaceClass::state: return {4.5, 8.0, 1.0};
    case PlaceClass::city: return {4.0, 99.0, 1.25};
    case PlaceClass::town: return {8.5, 99.0, 1.0};
    case PlaceClass::village: return {10.5, 99.0, 0.9};
    case PlaceClass::suburb: return {11.5, 99.0, 0.88};
    case PlaceClass::hamlet: return {12.5, 99.0, 0.85};
    case PlaceClass::other: return {14.0, 99.0, 0.85};
    }
    return {};
}

constexpr int importanceOfRoads = 100; // below all places

/// Names of roads are shown from motorway to tertiary.
bool isNamed(RoadClass roadClass)
{
    return roadClass <= RoadClass::tertiary;
}

void addPlaces(std::vector<MapName>& names, const VectorTile& tile, std::span<const TilePart> hidden,
               const TileSquare& square, const LayerFrame& frame)
{
    for (const TilePlace& place : tile.places) {
        const PlaceLook look = lookOf(place.placeClass);
        const PixelPoint point = square.pixelAt(place.point);
        if (frame.camera.zoom < look.lowestZoom || frame.camera.zoom >= look.highestZoom ||
            isInAny(hidden, place.point) || !countsForNames(point, frame))
            continue;
        names.push_back({.text = place.name,
                         .size = look.size,
                         .importance = static_cast<int>(place.placeClass),
                         .rank = place.rank,
                         .line = {point}});
    }
}

void addRoadNames(std::vector<MapName>& names, const VectorTile& tile, std::span<const TilePart> hidden,
                  const TileSquare& square, const LayerFrame& frame)
{
    constexpr double sizeOfRoadNames = 0.82;
    for (const TileRoadName& road : tile.roadNames) {
        if (!isNamed(road.roadClass) || isInAny(hidden, road.points[road.points.size() / 2]))
            continue;
        std::vector<PixelPoint> line;
        line.reserve(road.points.size());
        for (const TilePoint& point : road.points)
            line.push_back(square.pixelAt(point));
        if (std::none_of(line.begin(), line.end(), [&](PixelPoint point) { return countsForNames(point, frame); }))
            continue;
        names.push_back({.text = road.name,
                         .size = sizeOfRoadNames,
                         .isRoad = true,
                         .importance = importanceOfRoads + static_cast<int>(road.roadClass),
                         .line = std::move(line)});
    }
}

} // namespace

bool countsForNames(PixelPoint point, const LayerFrame& frame)
{
    const double reach = nameMargin * frame.scale;
    return point.x >= -reach && point.x <= frame.columns + reach && point.y >= -reach && point.y <= frame.rows + reach;
}

std::vector<MapName> chooseNames(std::span<const PlacedVectorTile> tiles, const LayerFrame& frame)
{
    std::vector<MapName> names;
    for (const PlacedVectorTile& placed : tiles) {
        if (!placed.features)
            continue;
        const std::vector<TilePart> hidden = partsOfFinerTiles(placed.tile, tiles);
        for (const TileSquare& square : tileSquares(placed.tile, frame, nameMargin * frame.scale)) {
            addPlaces(names, *placed.features, hidden, square, frame);
            if (frame.camera.zoom >= roadNamesFromZoom)
                addRoadNames(names, *placed.features, hidden, square, frame);
        }
    }
    // A moved picture moves all points alike, so their order stays what it is on the ground.
    std::sort(names.begin(), names.end(), [](const MapName& a, const MapName& b) {
        const auto key = [](const MapName& name) {
            return std::tuple(name.importance, name.rank, name.text, name.line.front().y, name.line.front().x);
        };
        return key(a) < key(b);
    });
    if (names.size() > mostNames)
        names.resize(mostNames);
    return names;
}

} // namespace ospra
