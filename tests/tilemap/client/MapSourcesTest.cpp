#include "tilemap/client/MapSources.h"

#include "tilemap/showsPlace.h"

#include <gtest/gtest.h>

#include <string>

namespace ospra {
namespace {

QByteArray listOf(const std::string& entries)
{
    return QByteArray::fromStdString(R"({"sources": [)" + entries + "]}");
}

const std::string least = R"({"id": "a", "kind": "imagery", "address": "https://h/{z}/{x}/{y}")";

TEST(MapSources, areReadWithTheirUsualValues)
{
    EXPECT_EQ(parseMapSources(listOf(least + "}")),
              (std::vector<MapSource>{{.id = "a", .address = "https://h/{z}/{x}/{y}"}}));
    const MapSource whole{.id = "b-2",
                          .kind = MapSourceKind::vector,
                          .tileJson = "https://h/doc",
                          .lowestZoom = 3,
                          .nativeZoom = 19,
                          .tileSize = 512,
                          .bounds = {{{47, 8}, {46, 8}, {46, 9}}},
                          .attribution = "© H",
                          .attributionLink = "https://h",
                          .leastBytes = 900};
    EXPECT_EQ(parseMapSources(listOf(R"({"id": "b-2", "kind": "vector", "tileJson": "https://h/doc", "lowestZoom": 3,
        "nativeZoom": 19, "tileSize": 512, "bounds": [[[8, 47], [8, 46], [9, 46]]], "attribution": "© H",
        "attributionLink": "https://h", "leastBytes": 900, "unheard": 1})")),
              std::vector{whole});
}

TEST(MapSources, loseTheEntriesThatAreBroken)
{
    const std::string good = R"({"id": "good", "kind": "vector", "tileJson": "https://h/doc"})";
    std::vector<std::string> entries{
        "7",
        "null",
        "{}",
        R"({"id": "a", "kind": "imagery"})",
        R"({"id": "../a", "kind": "imagery", "address": "https://h/{z}/{x}/{y}"})",
        R"({"id": "a", "kind": "sound", "address": "https://h/{z}/{x}/{y}"})",
        R"({"id": "a", "kind": "imagery", "address": "http://h/{z}/{x}/{y}"})",
        R"({"id": "a", "kind": "imagery", "address": "https://h/{z}/{x}"})",
        good, // twice the same id
    };
    for (const char* rest : {R"("tileJson": "https://h/doc")", R"("nativeZoom": 2.5)", R"("nativeZoom": 99)",
                             R"("lowestZoom": 15)", R"("tileSize": 0)", R"("leastBytes": -1)", R"("bounds": [])",
                             R"("bounds": 3)", R"("bounds": [[[8, 47], [8, 46]]])",
                             R"("bounds": [[[8, 47], [8, 46], [9]]])", R"("bounds": [[[8, 47], [8, 46], [900, 1]]])"})
        entries.push_back(least + ", " + rest + "}");
    for (const std::string& broken : entries) {
        const auto sources = parseMapSources(listOf(good + "," + broken));
        ASSERT_TRUE(sources) << broken;
        EXPECT_EQ(sources->size(), 1U) << broken;
    }
    EXPECT_EQ(parseMapSources(listOf(least + R"(, "attributionLink": "javascript:x"})"))->front().attributionLink, "");
    for (const char* text : {"", "[]", "{", "{}", R"({"sources": 3})"})
        EXPECT_FALSE(parseMapSources(text)) << text;
}

TEST(MapSources, ofTheProgramShowEachCountryItsOwn)
{
    const std::vector<MapSource> sources = loadMapSources(); // what the build put beside the programs
    ASSERT_EQ(sources.size(), 8U);
    EXPECT_EQ(sources.front().id, "eox-sentinel2");
    EXPECT_TRUE(sources.front().bounds.empty());
    EXPECT_EQ(sources.back().kind, MapSourceKind::vector);
    struct Row {
        const char* place;
        Coordinate coordinate;
        const char* source; ///< the topmost with pictures of it
    };
    for (const auto& [place, coordinate, id] : {
             Row{"Perris", {33.76, -117.2}, "usgs-imagery"},
             Row{"Tijuana", {32.5, -117.0}, "eox-sentinel2"},
             Row{"Juneau", {58.3, -134.4}, "usgs-imagery"},
             Row{"Vancouver", {49.25, -123.1}, "eox-sentinel2"},
             Row{"Strasbourg", {48.58, 7.74}, "ign-france"},
             Row{"Geneva", {46.2, 6.14}, "swissimage"},
             Row{"Vaduz", {47.14, 9.52}, "eox-sentinel2"},
             Row{"Salzburg", {47.8, 13.05}, "basemap-austria"},
             Row{"Palma", {39.57, 2.65}, "pnoa-spain"},
             Row{"Lisbon", {38.7, -9.1}, "eox-sentinel2"},
             Row{"Texel", {53.1, 4.8}, "pdok-netherlands"},
             Row{"Antwerp", {51.2, 4.4}, "eox-sentinel2"},
         }) {
        std::string topmost;
        for (const MapSource& source : sources) {
            if (source.kind == MapSourceKind::imagery && showsPlace(source.bounds, coordinate))
                topmost = source.id;
        }
        EXPECT_EQ(topmost, id) << place;
    }
}

} // namespace
} // namespace ospra
