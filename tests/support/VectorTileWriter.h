#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

/// A point in units of the tile's grid, of which there are `extent` along a side.
struct GridPoint {
    int x = 0;
    int y = 0;

    friend bool operator==(const GridPoint&, const GridPoint&) = default;
};

using GridLine = std::vector<GridPoint>;

/// A feature of the layer `transportation`.
struct WrittenRoad {
    std::string roadClass = "minor";
    std::string brunnel{}; ///< left out where empty
    bool isRamp = false;
    std::vector<GridLine> parts{};
};

/// A feature of the layer `place`. Texts are left out where they are empty.
struct WrittenPlace {
    std::string name{};
    std::string latinName{};
    std::string placeClass = "village";
    std::int64_t rank = 1;
    GridPoint point{};
};

/// A feature of the layer `transportation_name`. Texts are left out where they are empty.
struct WrittenRoadName {
    std::string name{};
    std::string latinName{};
    std::string ref{};
    std::string roadClass = "minor";
    std::vector<GridLine> parts{};
};

struct WrittenTile {
    std::vector<WrittenRoad> roads{};
    std::vector<WrittenPlace> places{};
    std::vector<WrittenRoadName> roadNames{};
    std::uint32_t extent = 4096;
    std::uint32_t version = 2;
};

/// The bytes of a tile in the OpenMapTiles schema; layers without features are left out.
[[nodiscard]] std::string writeVectorTile(const WrittenTile& tile);

} // namespace ospra
