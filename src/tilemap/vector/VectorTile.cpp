#include "tilemap/vector/VectorTile.h"

#include "platform/Files.h"
#include "tilemap/vector/TileLayer.h"
#include "tilemap/vector/tileGeometry.h"

#include <protozero/exception.hpp>
#include <protozero/pbf_reader.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace ospra {
namespace {

constexpr std::size_t greatestTile = std::size_t{8} << 20; // bytes; real ones have less than 2 MB
constexpr std::size_t longestName = 200; // bytes; a longer one is no name, and many parts may share it
constexpr auto layerField = protozero::tag_and_type(3, protozero::pbf_wire_type::length_delimited);

/// Values of `class` in the layers of roads. Roads under construction, ferries and the like are not shown.
constexpr std::array roadClasses{
    std::pair<std::string_view, RoadClass>{"motorway", RoadClass::motorway},
    std::pair<std::string_view, RoadClass>{"trunk", RoadClass::trunk},
    std::pair<std::string_view, RoadClass>{"primary", RoadClass::primary},
    std::pair<std::string_view, RoadClass>{"secondary", RoadClass::secondary},
    std::pair<std::string_view, RoadClass>{"tertiary", RoadClass::tertiary},
    std::pair<std::string_view, RoadClass>{"minor", RoadClass::minor},
    std::pair<std::string_view, RoadClass>{"service", RoadClass::service},
    std::pair<std::string_view, RoadClass>{"track", RoadClass::path},
    std::pair<std::string_view, RoadClass>{"path", RoadClass::path},
    std::pair<std::string_view, RoadClass>{"rail", RoadClass::rail},
    std::pair<std::string_view, RoadClass>{"transit", RoadClass::rail},
};

/// Values of `class` in the layer of places; all others are `PlaceClass::other`.
constexpr std::array placeClasses{
    std::pair<std::string_view, PlaceClass>{"country", PlaceClass::country},
    std::pair<std::string_view, PlaceClass>{"state", PlaceClass::state},
    std::pair<std::string_view, PlaceClass>{"province", PlaceClass::state},
    std::pair<std::string_view, PlaceClass>{"city", PlaceClass::city},
    std::pair<std::string_view, PlaceClass>{"town", PlaceClass::town},
    std::pair<std::string_view, PlaceClass>{"village", PlaceClass::village},
    std::pair<std::string_view, PlaceClass>{"borough", PlaceClass::suburb},
    std::pair<std::string_view, PlaceClass>{"suburb", PlaceClass::suburb},
    std::pair<std::string_view, PlaceClass>{"quarter", PlaceClass::suburb},
    std::pair<std::string_view, PlaceClass>{"hamlet", PlaceClass::hamlet},
};

template <typename Table>
auto classNamed(const Table& table, std::string_view name) -> std::optional<decltype(table.front().second)>
{
    const auto* const found =
        std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.first == name; });
    if (found == table.end())
        return std::nullopt;
    return found->second;
}

/// The first of the names that can be shown; empty where none can.
std::string chosenName(std::initializer_list<std::string_view> names)
{
    for (const std::string_view name : names) {
        if (!name.empty() && name.size() <= longestName && isValidUtf8(name))
            return std::string(name);
    }
    return {};
}

using Parts = std::vector<std::vector<TilePoint>>;

void addRoad(VectorTile& tile, const TileProperties& properties, Parts parts)
{
    const std::optional<RoadClass> roadClass = classNamed(roadClasses, properties.featureClass);
    if (!roadClass)
        return;
    for (std::vector<TilePoint>& points : parts) {
        if (points.size() >= 2)
            tile.roads.push_back({.roadClass = *roadClass,
                                  .isRamp = properties.isRamp,
                                  .isTunnel = properties.brunnel == "tunnel",
                                  .points = std::move(points)});
    }
}

void addRoadName(VectorTile& tile, const TileProperties& properties, Parts parts)
{
    const std::optional<RoadClass> roadClass = classNamed(roadClasses, properties.featureClass);
    const std::string name = chosenName({properties.latinName, properties.name, properties.ref});
    if (!roadClass || name.empty())
        return;
    for (std::vector<TilePoint>& points : parts) {
        if (points.size() >= 2)
            tile.roadNames.push_back({.name = name, .roadClass = *roadClass, .points = std::move(points)});
    }
}

void addPlace(VectorTile& tile, const TileProperties& properties, const Parts& parts)
{
    std::string name = chosenName({properties.latinName, properties.name});
    if (name.empty() || parts.empty() || properties.featureClass == "continent")
        return;
    tile.places.push_back({.name = std::move(name),
                           .placeClass = classNamed(placeClasses, properties.featureClass).value_or(PlaceClass::other),
                           .rank = properties.rank,
                           .point = parts.front().front()});
}

/// @return whether the layer is sound
bool addLayer(VectorTile& tile, std::string_view message)
{
    const std::string_view name = tileLayerName(message);
    const bool isPlaces = name == "place";
    const bool isRoads = name == "transportation";
    if (!isPlaces && !isRoads && name != "transportation_name")
        return true;
    const TileLayer layer = readTileLayer(message);
    if (layer.version != 1 && layer.version != 2)
        return true; // what a later version means is not known
    if (layer.extent == 0)
        return false;
    for (const std::string_view featureMessage : layer.features) {
        const TileFeature feature = readTileFeature(featureMessage);
        const auto properties = readTileProperties(feature.tags, layer);
        if (!properties)
            return false;
        if (feature.type != (isPlaces ? TileGeometryType::point : TileGeometryType::line))
            continue;
        auto parts = readTileGeometry(feature.geometry, layer.extent);
        if (!parts)
            return false;
        if (isPlaces)
            addPlace(tile, *properties, *parts);
        else if (isRoads)
            addRoad(tile, *properties, std::move(*parts));
        else
            addRoadName(tile, *properties, std::move(*parts));
    }
    return true;
}

} // namespace

std::optional<VectorTile> decodeVectorTile(std::string_view bytes)
{
    if (bytes.size() > greatestTile)
        return std::nullopt;
    try {
        VectorTile tile;
        protozero::pbf_reader reader(bytes.data(), bytes.size());
        while (reader.next()) {
            if (reader.tag_and_type() != layerField) {
                reader.skip();
                continue;
            }
            const protozero::data_view layer = reader.get_view();
            if (!addLayer(tile, {layer.data(), layer.size()}))
                return std::nullopt;
        }
        return tile;
    } catch (const protozero::exception&) {
        return std::nullopt;
    }
}

} // namespace ospra
