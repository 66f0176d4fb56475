#include "tilemap/vector/TileLayer.h"

#include <protozero/pbf_reader.hpp>
#include <protozero/varint.hpp>

#include <cmath>

namespace ospra {
namespace {

using protozero::pbf_reader;
using protozero::pbf_wire_type;
using protozero::tag_and_type;

// Fields of the messages. Source: Mapbox vector tile format 2.1, section 4.
constexpr auto layerNameField = tag_and_type(1, pbf_wire_type::length_delimited);
constexpr auto layerFeatureField = tag_and_type(2, pbf_wire_type::length_delimited);
constexpr auto layerKeyField = tag_and_type(3, pbf_wire_type::length_delimited);
constexpr auto layerValueField = tag_and_type(4, pbf_wire_type::length_delimited);
constexpr auto layerExtentField = tag_and_type(5, pbf_wire_type::varint);
constexpr auto layerVersionField = tag_and_type(15, pbf_wire_type::varint);
constexpr auto featureTagsField = tag_and_type(2, pbf_wire_type::length_delimited);
constexpr auto featureTypeField = tag_and_type(3, pbf_wire_type::varint);
constexpr auto featureGeometryField = tag_and_type(4, pbf_wire_type::length_delimited);
constexpr auto valueTextField = tag_and_type(1, pbf_wire_type::length_delimited);
constexpr auto valueFloatField = tag_and_type(2, pbf_wire_type::fixed32);
constexpr auto valueDoubleField = tag_and_type(3, pbf_wire_type::fixed64);
constexpr auto valueIntField = tag_and_type(4, pbf_wire_type::varint);
constexpr auto valueUnsignedField = tag_and_type(5, pbf_wire_type::varint);
constexpr auto valueSignedField = tag_and_type(6, pbf_wire_type::varint);
constexpr auto valueBoolField = tag_and_type(7, pbf_wire_type::varint);

pbf_reader readerOf(std::string_view message)
{
    return pbf_reader(message.data(), message.size());
}

std::string_view readText(pbf_reader& reader)
{
    const protozero::data_view view = reader.get_view();
    return {view.data(), view.size()};
}

/// The whole part of a number; nothing where it is not finite or out of all measure.
std::optional<std::int64_t> wholePart(double number)
{
    constexpr double greatest = 1e15;
    if (!(std::abs(number) <= greatest))
        return std::nullopt;
    return static_cast<std::int64_t>(number);
}

TileValue readValue(std::string_view message)
{
    TileValue value;
    pbf_reader reader = readerOf(message);
    while (reader.next()) {
        switch (reader.tag_and_type()) {
        case valueTextField: value.text = readText(reader); break;
        case valueFloatField: value.number = wholePart(static_cast<double>(reader.get_float())); break;
        case valueDoubleField: value.number = wholePart(reader.get_double()); break;
        case valueIntField: value.number = reader.get_int64(); break;
        case valueUnsignedField: value.number = static_cast<std::int64_t>(reader.get_uint64()); break;
        case valueSignedField: value.number = reader.get_sint64(); break;
        case valueBoolField: value.number = reader.get_bool() ? 1 : 0; break;
        default: reader.skip();
        }
    }
    return value;
}

void setProperty(TileProperties& properties, std::string_view key, const TileValue& value)
{
    if (key == "class")
        properties.featureClass = value.text;
    else if (key == "brunnel")
        properties.brunnel = value.text;
    else if (key == "name")
        properties.name = value.text;
    else if (key == "name:latin")
        properties.latinName = value.text;
    else if (key == "ref")
        properties.ref = value.text;
    else if (key == "rank")
        properties.rank = value.number.value_or(0);
    else if (key == "ramp")
        properties.isRamp = value.number.value_or(0) != 0;
}

} // namespace

std::string_view tileLayerName(std::string_view message)
{
    std::string_view name;
    pbf_reader reader = readerOf(message);
    while (reader.next()) {
        if (reader.tag_and_type() == layerNameField)
            name = readText(reader);
        else
            reader.skip();
    }
    return name;
}

TileLayer readTileLayer(std::string_view message)
{
    TileLayer layer;
    pbf_reader reader = readerOf(message);
    while (reader.next()) {
        switch (reader.tag_and_type()) {
        case layerNameField: layer.name = readText(reader); break;
        case layerFeatureField: layer.features.push_back(readText(reader)); break;
        case layerKeyField: layer.keys.push_back(readText(reader)); break;
        case layerValueField: layer.values.push_back(readValue(readText(reader))); break;
        case layerExtentField: layer.extent = reader.get_uint32(); break;
        case layerVersionField: layer.version = reader.get_uint32(); break;
        default: reader.skip();
        }
    }
    return layer;
}

TileFeature readTileFeature(std::string_view message)
{
    TileFeature feature;
    pbf_reader reader = readerOf(message);
    while (reader.next()) {
        switch (reader.tag_and_type()) {
        case featureTagsField: feature.tags = readText(reader); break;
        case featureTypeField: {
            const std::uint32_t type = reader.get_uint32();
            feature.type = type <= 3 ? static_cast<TileGeometryType>(type) : TileGeometryType::unknown;
            break;
        }
        case featureGeometryField: feature.geometry = readText(reader); break;
        default: reader.skip();
        }
    }
    return feature;
}

std::optional<TileProperties> readTileProperties(std::string_view tags, const TileLayer& layer)
{
    TileProperties properties;
    const char* next = tags.data();
    const char* const end = tags.data() + tags.size();
    while (next != end) {
        const std::uint64_t key = protozero::decode_varint(&next, end);
        if (next == end)
            return std::nullopt;
        const std::uint64_t value = protozero::decode_varint(&next, end);
        if (key >= layer.keys.size() || value >= layer.values.size())
            return std::nullopt;
        setProperty(properties, layer.keys[key], layer.values[value]);
    }
    return properties;
}

} // namespace ospra
