#include "tilemap/vector/VectorTile.h"

#include "tests/support/VectorTileWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <protozero/pbf_writer.hpp>

#include <functional>

namespace ospra {
namespace {

using testing::ElementsAre;
using testing::FieldsAre;

const GridLine anyLine{{0, 0}, {10, 10}};

VectorTile decode(const WrittenTile& written)
{
    const std::optional<VectorTile> tile = decodeVectorTile(writeVectorTile(written));
    EXPECT_TRUE(tile);
    return tile.value_or(VectorTile{});
}

TEST(VectorTile, readsRoads)
{
    const VectorTile tile = decode({
        .roads = {{.roadClass = "motorway",
                   .brunnel = "tunnel",
                   .isRamp = true,
                   .parts = {{{0, 0}, {1024, 2048}, {1000, 1000}}, {{4096, -64}, {4160, 0}}}},
                  {.roadClass = "secondary", .brunnel = "bridge", .parts = {anyLine}}},
    });
    ASSERT_EQ(tile.roads.size(), 3U);
    for (const TileRoad& road : {tile.roads[0], tile.roads[1]}) {
        EXPECT_EQ(road.roadClass, RoadClass::motorway);
        EXPECT_TRUE(road.isTunnel && road.isRamp);
    }
    EXPECT_THAT(tile.roads[0].points,
                ElementsAre(FieldsAre(0.0F, 0.0F), FieldsAre(0.25F, 0.5F), FieldsAre(1000.0F / 4096, 1000.0F / 4096)));
    EXPECT_THAT(tile.roads[1].points, ElementsAre(FieldsAre(1.0F, -0.015625F), FieldsAre(1.015625F, 0.0F)));
    EXPECT_EQ(tile.roads[2].roadClass, RoadClass::secondary);
    EXPECT_FALSE(tile.roads[2].isTunnel || tile.roads[2].isRamp);
}

TEST(VectorTile, knowsTheClassesThatAreShown)
{
    using Row = std::pair<const char*, std::optional<RoadClass>>;
    for (const auto& [name, roadClass] :
         {Row{"minor", RoadClass::minor}, Row{"track", RoadClass::path}, Row{"transit", RoadClass::rail},
          Row{"motorway_construction", std::nullopt}, Row{"Motorway", std::nullopt}, Row{"", std::nullopt}}) {
        SCOPED_TRACE(name);
        const VectorTile tile = decode({.roads = {{.roadClass = name, .parts = {anyLine}}},
                                        .roadNames = {{.name = "Holt Road", .roadClass = name, .parts = {anyLine}}}});
        ASSERT_EQ(tile.roadNames.size(), roadClass ? 1U : 0U);
        ASSERT_EQ(tile.roads.size(), roadClass ? 1U : 0U);
        EXPECT_EQ(tile.roads.empty() ? std::nullopt : std::optional(tile.roads[0].roadClass), roadClass);
    }
    const VectorTile tile = decode({.places = {{.name = "A", .placeClass = "continent"},
                                               {.name = "B", .placeClass = "province"},
                                               {.name = "C", .placeClass = "of a kind to come"}}});
    ASSERT_EQ(tile.places.size(), 2U);
    EXPECT_EQ(tile.places[0].placeClass, PlaceClass::state);
    EXPECT_EQ(tile.places[1].placeClass, PlaceClass::other);
}

TEST(VectorTile, takesTheNameInLatinLetters)
{
    struct Row {
        std::string name;
        std::string latinName;
        std::string shown;
    };
    const std::string longest(200, 'a');
    for (const auto& [name, latinName, shown] :
         {Row{"Хольт", "Kholt", "Kholt"}, Row{"Höllt", "", "Höllt"}, Row{"", "Holt", "Holt"}, Row{"", "", ""},
          Row{"Holt", "H\xff", "Holt"}, Row{"\xc0\xafHolt", "", ""}, Row{longest, "", longest},
          Row{longest + "a", "", ""}}) {
        SCOPED_TRACE(shown);
        const VectorTile tile = decode({
            .places = {{.name = name, .latinName = latinName, .rank = 4, .point = {1024, 3072}}},
            .roadNames = {{.name = name, .latinName = latinName, .ref = "B 12", .parts = {anyLine, anyLine}}},
        });
        ASSERT_EQ(tile.places.size(), shown.empty() ? 0U : 1U);
        if (!shown.empty()) {
            EXPECT_EQ(tile.places[0].name, shown);
            EXPECT_EQ(tile.places[0].rank, 4);
            EXPECT_THAT(tile.places[0].point, FieldsAre(0.25F, 0.75F));
        }
        ASSERT_EQ(tile.roadNames.size(), 2U) << "one for each part of the line";
        EXPECT_EQ(tile.roadNames[1].name, shown.empty() ? "B 12" : shown);
    }
}

/// A tile with one road whose messages are put together by hand.
struct HandMade {
    std::vector<std::uint32_t> tags{0, 0};
    std::vector<std::uint32_t> geometry{9, 0, 0, 10, 8, 8};
    std::string ramp{}; ///< message of the second value; has a key only where not empty
    std::uint32_t extent = 4096;
    std::string layerName = "transportation";

    [[nodiscard]] std::string bytes() const
    {
        std::string result;
        protozero::pbf_writer tile(result);
        protozero::pbf_writer layer(tile, 3);
        layer.add_string(1, layerName);
        layer.add_string(3, "class");
        std::string roadClass;
        protozero::pbf_writer(roadClass).add_string(1, "minor");
        layer.add_message(4, roadClass);
        if (!ramp.empty()) {
            layer.add_string(3, "ramp");
            layer.add_message(4, ramp);
        }
        layer.add_uint32(5, extent);
        layer.add_uint32(15, 2);
        protozero::pbf_writer feature(layer, 2);
        feature.add_packed_uint32(2, tags.begin(), tags.end());
        feature.add_enum(3, 2);
        feature.add_packed_uint32(4, geometry.begin(), geometry.end());
        return result;
    }
};

TEST(VectorTile, readsOtherExtentsAndSkipsWhatItDoesNotKnow)
{
    WrittenTile written{.roads = {{.parts = {{{0, 0}, {256, 512}}}}}, .extent = 512, .version = 1};
    EXPECT_THAT(decode(written).roads.at(0).points.at(1), FieldsAre(0.5F, 1.0F));
    written.version = 3;
    EXPECT_TRUE(decode(written).roads.empty());

    written.version = 2;
    std::string bytes = HandMade{.extent = 0, .layerName = "building"}.bytes() + writeVectorTile(written);
    protozero::pbf_writer tile(bytes);
    tile.add_string(99, "something else");
    tile.add_fixed64(3, 7); // the layers' number, but no message
    ASSERT_TRUE(decodeVectorTile(bytes));
    EXPECT_EQ(decodeVectorTile(bytes)->roads.size(), 1U);
    EXPECT_TRUE(decodeVectorTile("")) << "a tile of the sea";
}

TEST(VectorTile, isAbsentWhereAPartIsBroken)
{
    const std::string whole = HandMade{}.bytes();
    ASSERT_EQ(decodeVectorTile(whole).value().roads.size(), 1U);
    constexpr std::uint32_t huge = 0x1fffffff << 3;
    using Row = std::pair<const char*, std::string>;
    for (const auto& [what, bytes] : {
             Row{"key beyond the table", HandMade{.tags = {1, 0}}.bytes()},
             Row{"value beyond the table", HandMade{.tags = {0, 1}}.bytes()},
             Row{"key without value", HandMade{.tags = {0, 0, 0}}.bytes()},
             Row{"extent 0", HandMade{.extent = 0}.bytes()},
             Row{"line without start", HandMade{.geometry = {10, 8, 8}}.bytes()},
             Row{"unknown command", HandMade{.geometry = {9, 0, 0, 13, 8, 8}}.bytes()},
             Row{"more points than bytes", HandMade{.geometry = {9, 0, 0, 18, 8, 8}}.bytes()},
             Row{"huge count", HandMade{.geometry = {9, 0, 0, huge | 2, 8, 8}}.bytes()},
             Row{"half a point", HandMade{.geometry = {9, 0, 0, 10, 8}}.bytes()},
             Row{"cut off", whole.substr(0, whole.size() - 3)},
             Row{"length beyond the end", std::string("\x1a\x7f", 2)},
             Row{"endless number", std::string(20, '\xff')},
             Row{"field number 0", std::string("\x02\x00", 2)},
             Row{"a page of another kind", "<!DOCTYPE html><html><body>Not found</body></html>"},
             Row{"more bytes than any tile has", std::string((8U << 20) + 1, '\0')},
         }) {
        SCOPED_TRACE(what);
        EXPECT_FALSE(decodeVectorTile(bytes));
    }
}

TEST(VectorTile, readsNumbersOfEveryType)
{
    using Write = std::function<void(protozero::pbf_writer&)>;
    for (const auto& [isRamp, write] : {std::pair<bool, Write>{true, [](auto& value) { value.add_float(2, 1.0F); }},
                                        {true, [](auto& value) { value.add_double(3, 1.0); }},
                                        {false, [](auto& value) { value.add_double(3, 1e300); }},
                                        {true, [](auto& value) { value.add_uint64(5, 1); }},
                                        {true, [](auto& value) { value.add_sint64(6, -1); }},
                                        {true, [](auto& value) { value.add_bool(7, true); }},
                                        {false, [](auto& value) { value.add_bool(7, false); }},
                                        {false, [](auto& value) { value.add_string(40, "of a type to come"); }}}) {
        HandMade tile{.tags = {0, 0, 1, 1}};
        protozero::pbf_writer writer(tile.ramp);
        write(writer);
        EXPECT_EQ(decodeVectorTile(tile.bytes()).value().roads.at(0).isRamp, isRamp)
            << testing::PrintToString(tile.ramp);
    }
}

} // namespace
} // namespace ospra
