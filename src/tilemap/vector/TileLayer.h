#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace ospra {

/// A value of a layer's table.
struct TileValue {
    std::string_view text{};              ///< empty where it is no text
    std::optional<std::int64_t> number{}; ///< of the numbers and booleans; without its fraction
};

/// What a feature tells about itself, as far as it is of use. Texts are empty where it says nothing.
struct TileProperties {
    std::string_view featureClass{};
    std::string_view brunnel{}; ///< "bridge", "tunnel" or "ford"
    std::string_view name{};
    std::string_view latinName{};
    std::string_view ref{};
    std::int64_t rank = 0;
    bool isRamp = false;
};

/// The tables of a layer. Everything points into the tile's bytes.
struct TileLayer {
    std::string_view name{};
    std::uint32_t version = 1;
    std::uint32_t extent = 4096; ///< units along a side of the tile
    std::vector<std::string_view> keys{};
    std::vector<TileValue> values{};
    std::vector<std::string_view> features{}; ///< their messages, unread
};

enum class TileGeometryType { unknown, point, line, polygon };

struct TileFeature {
    TileGeometryType type = TileGeometryType::unknown;
    std::string_view tags{};     ///< pairs of indices of key and value, packed
    std::string_view geometry{}; ///< commands, packed
};

/// The name of a layer, empty where it has none. Throws `protozero::exception` on broken bytes, as the others here do.
[[nodiscard]] std::string_view tileLayerName(std::string_view message);
[[nodiscard]] TileLayer readTileLayer(std::string_view message);
[[nodiscard]] TileFeature readTileFeature(std::string_view message);

/// Looks a feature's tags up in its layer.
/// @return absent where a tag points beyond the tables, or has no value
[[nodiscard]] std::optional<TileProperties> readTileProperties(std::string_view tags, const TileLayer& layer);

} // namespace ospra
