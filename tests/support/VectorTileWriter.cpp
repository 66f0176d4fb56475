#include "tests/support/VectorTileWriter.h"

#include <protozero/pbf_writer.hpp>
#include <protozero/varint.hpp>

#include <map>

namespace ospra {
namespace {

constexpr protozero::pbf_tag_type layerField = 3;

std::uint32_t zigzag(int value)
{
    return protozero::encode_zigzag32(value);
}

/// One layer in the making.
class LayerWriter {
public:
    /// @param texts by their keys; left out where they are empty
    void addFeature(std::uint32_t type, const std::vector<std::uint32_t>& geometry,
                    const std::vector<std::pair<std::string, std::string>>& texts,
                    const std::map<std::string, std::int64_t>& numbers = {})
    {
        std::vector<std::uint32_t> tags;
        const auto addTag = [&](const std::string& key, const std::string& value) {
            tags.push_back(indexOf(m_keyIndices, m_keys, key));
            tags.push_back(indexOf(m_valueIndices, m_values, value));
        };
        for (const auto& [key, text] : texts) {
            std::string value;
            protozero::pbf_writer(value).add_string(1, text);
            if (!text.empty())
                addTag(key, value);
        }
        for (const auto& [key, number] : numbers) {
            std::string value;
            protozero::pbf_writer(value).add_int64(4, number);
            addTag(key, value);
        }
        protozero::pbf_writer feature(m_features.emplace_back());
        feature.add_packed_uint32(2, tags.begin(), tags.end());
        feature.add_enum(3, static_cast<std::int32_t>(type));
        feature.add_packed_uint32(4, geometry.begin(), geometry.end());
    }

    [[nodiscard]] bool isEmpty() const { return m_features.empty(); }

    /// The layer as a field of the tile.
    [[nodiscard]] std::string finished(std::string_view name, std::uint32_t extent, std::uint32_t version) const
    {
        std::string bytes;
        protozero::pbf_writer tile(bytes);
        protozero::pbf_writer layer(tile, layerField);
        layer.add_uint32(15, version);
        layer.add_string(1, name.data(), name.size());
        for (const std::string& feature : m_features)
            layer.add_message(2, feature);
        for (const std::string& key : m_keys)
            layer.add_string(3, key);
        for (const std::string& value : m_values)
            layer.add_message(4, value);
        layer.add_uint32(5, extent);
        return bytes;
    }

private:
    static std::uint32_t indexOf(std::map<std::string, std::uint32_t>& indices, std::vector<std::string>& table,
                                 const std::string& entry)
    {
        const auto [found, isNew] = indices.try_emplace(entry, static_cast<std::uint32_t>(table.size()));
        if (isNew)
            table.push_back(entry);
        return found->second;
    }

    std::vector<std::string> m_features;
    std::vector<std::string> m_keys;
    std::vector<std::string> m_values;
    std::map<std::string, std::uint32_t> m_keyIndices;
    std::map<std::string, std::uint32_t> m_valueIndices;
};

/// The commands that draw lines: each a move to its first point and steps from there.
std::vector<std::uint32_t> lineCommands(const std::vector<GridLine>& parts)
{
    std::vector<std::uint32_t> commands;
    GridPoint last;
    for (const GridLine& part : parts) {
        for (std::size_t i = 0; i < part.size(); ++i) {
            if (i == 0)
                commands.push_back((1U << 3) | 1U);
            if (i == 1)
                commands.push_back((static_cast<std::uint32_t>(part.size() - 1) << 3) | 2U);
            commands.push_back(zigzag(part[i].x - last.x));
            commands.push_back(zigzag(part[i].y - last.y));
            last = part[i];
        }
    }
    return commands;
}

} // namespace

std::string writeVectorTile(const WrittenTile& tile)
{
    constexpr std::uint32_t point = 1;
    constexpr std::uint32_t line = 2;
    LayerWriter roads;
    for (const WrittenRoad& road : tile.roads) {
        const std::map<std::string, std::int64_t> ramp{{"ramp", 1}};
        roads.addFeature(line, lineCommands(road.parts), {{"class", road.roadClass}, {"brunnel", road.brunnel}},
                         road.isRamp ? ramp : decltype(ramp){});
    }
    LayerWriter places;
    for (const auto& [name, latinName, placeClass, rank, place] : tile.places)
        places.addFeature(point, lineCommands({{place}}),
                          {{"name", name}, {"name:latin", latinName}, {"class", placeClass}}, {{"rank", rank}});
    LayerWriter roadNames;
    for (const auto& [name, latinName, ref, roadClass, parts] : tile.roadNames)
        roadNames.addFeature(line, lineCommands(parts),
                             {{"name", name}, {"name:latin", latinName}, {"ref", ref}, {"class", roadClass}});
    std::string bytes;
    for (const auto& [name, layer] :
         {std::pair<std::string_view, const LayerWriter&>{"transportation", roads},
          std::pair<std::string_view, const LayerWriter&>{"place", places},
          std::pair<std::string_view, const LayerWriter&>{"transportation_name", roadNames}}) {
        if (!layer.isEmpty())
            bytes += layer.finished(name, tile.extent, tile.version);
    }
    return bytes;
}

} // namespace ospra
