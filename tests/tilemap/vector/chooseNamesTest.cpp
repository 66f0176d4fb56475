#include "tilemap/vector/chooseNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ospra {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TileID middleTile{14, 8192, 8192};

LayerFrame frameAt(double zoom, WorldPoint center = {0.5, 0.5})
{
    return {.camera = {.center = center, .zoom = zoom}, .columns = 800, .rows = 600, .scale = 1.0};
}

PlacedVectorTile placed(const VectorTile& features, const TileID& tile = middleTile)
{
    return {tile, std::make_shared<const VectorTile>(features)};
}

std::vector<std::string> textsOf(const std::vector<PlacedVectorTile>& tiles, const LayerFrame& frame = frameAt(14.0))
{
    std::vector<std::string> texts;
    for (const MapName& name : chooseNames(tiles, frame))
        texts.emplace_back(name.text);
    return texts;
}

TEST(ChooseNames, putsTheImportantFirst)
{
    const VectorTile tile{.places = {{"Hamlet", PlaceClass::hamlet, 1, {0.1F, 0.1F}},
                                     {"Second town", PlaceClass::town, 7, {0.2F, 0.2F}},
                                     {"First town", PlaceClass::town, 5, {0.3F, 0.3F}},
                                     {"City", PlaceClass::city, 9, {0.4F, 0.4F}}},
                          .roadNames = {{"Lane", RoadClass::tertiary, {{0.0F, 0.0F}, {1.0F, 1.0F}}},
                                        {"M1", RoadClass::motorway, {{0.0F, 0.0F}, {1.0F, 1.0F}}},
                                        {"Close", RoadClass::minor, {{0.0F, 0.0F}, {1.0F, 1.0F}}}}};
    EXPECT_THAT(textsOf({placed(tile)}), ElementsAre("City", "First town", "Second town", "Hamlet", "M1", "Lane"));
    EXPECT_THAT(textsOf({placed(tile)}, frameAt(12.9)), ElementsAre("City", "First town", "Second town", "Hamlet"));
    EXPECT_THAT(textsOf({placed(tile)}, frameAt(9.0)), ElementsAre("City", "First town", "Second town"));
    EXPECT_THAT(textsOf({placed(tile)}, frameAt(3.0)), IsEmpty());
}

TEST(ChooseNames, keepsTheOrderWhileThePictureMoves)
{
    VectorTile tile;
    for (int i = 0; i < 40; ++i)
        tile.places.push_back({"Holt " + std::to_string(i % 7),
                               PlaceClass::village,
                               i % 3,
                               {static_cast<float>(i * 37 % 41) / 41.0F, static_cast<float>(i * 11 % 13) / 13.0F}});
    const std::vector tiles{placed(tile)};
    const std::vector<MapName> before = chooseNames(tiles, frameAt(14.0));
    const std::vector<MapName> after = chooseNames(tiles, frameAt(14.0, {0.50001, 0.49999}));
    ASSERT_EQ(before.size(), 40U);
    ASSERT_EQ(after.size(), 40U);
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(before[i].text, after[i].text);
        EXPECT_NEAR(before[i].line[0].x - after[i].line[0].x, 41.94304, 1e-6); // 0.00001 of 2^22 px
    }
}

TEST(ChooseNames, leavesOutWhatIsFarAway)
{
    const VectorTile tile{.places = {{"Near", PlaceClass::city, 1, {0.0F, 0.0F}},
                                     {"Some way off", PlaceClass::city, 2, {3.9F, 0.0F}},
                                     {"Far", PlaceClass::city, 3, {4.0F, 0.0F}}}};
    EXPECT_THAT(textsOf({placed(tile)}), ElementsAre("Near", "Some way off")); // 400 + 600 px; tiles have 256
    EXPECT_THAT(textsOf({placed(tile)}, frameAt(14.0, {0.5, 0.6})), IsEmpty());
}

TEST(ChooseNames, leavesToFinerTilesWhatTheyShow)
{
    const auto withTown = [](const TileID& tile, const char* name, float x) {
        return placed({.places = {{name, PlaceClass::town, 1, {x, 0.25F}}}}, tile);
    };
    const auto textsOfBoth = [&](const TileID& finer) {
        return textsOf({withTown({13, 4096, 4096}, "Coarse", 0.75F), withTown(finer, "Fine", 0.5F)});
    };
    EXPECT_THAT(textsOfBoth(middleTile), ElementsAre("Coarse", "Fine")) << "each in a quarter of its own";
    EXPECT_THAT(textsOfBoth({14, 8193, 8192}), ElementsAre("Fine"));
    EXPECT_THAT(textsOfBoth({14, 8193, 8193}), ElementsAre("Coarse", "Fine"));
}

TEST(ChooseNames, isBounded)
{
    VectorTile tile;
    tile.places.assign(50'000, {"Holt", PlaceClass::city, 1, {0.5F, 0.5F}});
    EXPECT_LE(textsOf({placed(tile)}).size(), 5'000U);
}

} // namespace
} // namespace ospra
