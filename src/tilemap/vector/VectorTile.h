#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

/// A point in a vector tile: 0, 0 is its north-west corner, 1, 1 its south-east one; some lie a little outside.
struct TilePoint {
    float x = 0.0F;
    float y = 0.0F;
};

enum class RoadClass { motorway, trunk, primary, secondary, tertiary, minor, service, path, rail };

struct TileRoad {
    RoadClass roadClass = RoadClass::minor;
    bool isRamp = false;
    bool isTunnel = false;
    std::vector<TilePoint> points{}; ///< at least two
};

enum class PlaceClass { country, state, city, town, village, suburb, hamlet, other };

/// The name of a place.
struct TilePlace {
    std::string name{}; ///< UTF-8
    PlaceClass placeClass = PlaceClass::other;
    std::int64_t rank = 0; ///< the lower the more important
    TilePoint point{};
};

/// The name of a road, along its line.
struct TileRoadName {
    std::string name{}; ///< UTF-8
    RoadClass roadClass = RoadClass::minor;
    std::vector<TilePoint> points{}; ///< at least two
};

/// What is drawn of a vector tile.
struct VectorTile {
    std::vector<TileRoad> roads{};
    std::vector<TilePlace> places{};
    std::vector<TileRoadName> roadNames{};
};

/// Reads a tile of the Mapbox vector tile format in the OpenMapTiles schema: the layers `transportation`, `place` and
/// `transportation_name`; other layers and fields are skipped, as are layers of versions above 2. Of a name the form in
/// Latin letters is taken where there is one; names that are not UTF-8 or longer than 200 bytes count as missing.
/// Takes time in proportion to the bytes, and memory of at most some fifty times theirs.
/// @return absent where the bytes are no such tile, or a part of it is broken, or they are more than 8 MB
[[nodiscard]] std::optional<VectorTile> decodeVectorTile(std::string_view bytes);

} // namespace ospra
