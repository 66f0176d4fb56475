#pragma once

#include <QByteArray>

#include <optional>
#include <string>

namespace ospra {

/// What a TileJSON document tells of a source.
struct TileDocument {
    std::string address{}; ///< of a tile, with {z}, {x} and {y}
    int lowestZoom = 0;
    int nativeZoom = 30; ///< the highest one that has tiles
};

/// Reads the first of "tiles", and "minzoom" and "maxzoom" where they are there (TileJSON 3.0.0).
/// @return absent where there is no address that may be asked
[[nodiscard]] std::optional<TileDocument> parseTileDocument(const QByteArray& json);

} // namespace ospra
