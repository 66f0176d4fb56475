#pragma once

#include "platform/Coordinate.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace ospra {

/// A tile of the usual pyramid: at zoom z the world is 2^z tiles wide and high, counted from its north-west corner.
struct TileID {
    int zoom = 0;
    int x = 0;
    int y = 0;

    friend auto operator<=>(const TileID&, const TileID&) = default;
};

/// A tile of one of the map's sources.
struct TileKey {
    int source = 0; ///< index in the list of sources
    TileID tile{};

    friend auto operator<=>(const TileKey&, const TileKey&) = default;
};

enum class MapSourceKind {
    imagery, ///< pictures of the ground
    vector,  ///< roads and names
};

/// Somebody who gives map tiles.
struct MapSource {
    std::string id{}; ///< a short word, also the name of its folder in the cache
    MapSourceKind kind = MapSourceKind::imagery;
    std::string address{};  ///< of a tile, with {z}, {x} and {y}; empty where `tileJson` tells it
    std::string tileJson{}; ///< address of the document that tells the tiles' address; empty where there is none
    int lowestZoom = 0;     ///< below it the source is not asked
    int nativeZoom = 14;    ///< above it there are no tiles; those of this zoom are enlarged
    int tileSize = 256;     ///< pixels
    std::vector<std::vector<Coordinate>> bounds{}; ///< polygons of the ground that it shows; everywhere where empty
    std::string attribution{};                     ///< as its terms want it
    std::string attributionLink{};
    std::int64_t leastBytes = 0; ///< a smaller answer is no picture

    friend bool operator==(const MapSource&, const MapSource&) = default;
};

/// How far a tile has come.
enum class TileState {
    unknown, ///< not asked for, or still on its way
    ready,
    missing, ///< its source does not have it, or cannot be reached: the next one below may serve
};

} // namespace ospra

template <>
struct std::hash<ospra::TileKey> {
    [[nodiscard]] std::size_t operator()(const ospra::TileKey& key) const noexcept
    {
        constexpr std::size_t prime = 1'000'003;
        std::size_t mixed = static_cast<std::size_t>(key.source);
        for (const int part : {key.tile.zoom, key.tile.x, key.tile.y})
            mixed = mixed * prime ^ static_cast<std::size_t>(part);
        return mixed;
    }
};
