#include "tilemap/vector/paintOverlay.h"

#include "tests/support/sampleVectorTile.h"

#include <gtest/gtest.h>

#include <functional>

namespace ospra {
namespace {

constexpr TileID middleTile{14, 8192, 8192};

QFont font()
{
    QFont inter("Inter");
    inter.setPixelSize(13);
    return inter;
}

LayerFrame frameAt(double zoom, double scale = 1.0)
{
    return {.camera = {.center = {0.5, 0.5}, .zoom = zoom},
            .columns = static_cast<int>(400 * scale),
            .rows = static_cast<int>(300 * scale),
            .scale = scale};
}

PlacedVectorTile placed(const TileID& tile, VectorTile features)
{
    return {tile, std::make_shared<const VectorTile>(std::move(features))};
}

PlacedVectorTile town(const TileID& tile, const std::string& name, TilePoint point)
{
    return placed(tile, {.places = {{name, PlaceClass::town, 1, point}}});
}

/// The smallest rectangle that holds all pixels that are so.
QRect rectOf(const QImage& picture, const std::function<bool(QRgb)>& isSo)
{
    QRect rect;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (isSo(picture.pixel(x, y)))
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

QRect drawnRect(const QImage& picture)
{
    return rectOf(picture, [](QRgb pixel) { return qAlpha(pixel) > 0; });
}

TEST(PaintOverlay, writesANameWithAHalo)
{
    for (const double scale : {1.0, 2.0}) {
        SCOPED_TRACE(scale);
        const QImage picture =
            paintOverlay(std::vector{town(middleTile, "HOMH", {0.0F, 0.0F})}, frameAt(14.0, scale), font());
        ASSERT_EQ(picture.size(), QSize(static_cast<int>(400 * scale), static_cast<int>(300 * scale)));
        const QRect letters = rectOf(picture, [](QRgb pixel) { return qGray(pixel) > 110; }); // more letter than halo
        const QRect all = drawnRect(picture);
        EXPECT_NEAR(letters.center().x(), 200 * scale, 2.0 * scale);
        EXPECT_NEAR(letters.center().y(), 150 * scale, 2.0 * scale);
        EXPECT_NEAR(letters.height(), 9.5 * scale, 1.6 * scale) << "capitals of 13 px letters";
        for (const int reach : {letters.left() - all.left(), all.right() - letters.right(), letters.top() - all.top(),
                                all.bottom() - letters.bottom()}) {
            EXPECT_GE(reach, 1.0 * scale);
            EXPECT_LE(reach, 1.25 * scale + 2.0);
        }
        const QRgb halo = picture.pixel(letters.left() - static_cast<int>(scale), letters.center().y());
        EXPECT_GT(qAlpha(halo), 100);
        EXPECT_LT(qGray(halo), 80);
    }
}

TEST(PaintOverlay, turnsNamesAlongRoads)
{
    const auto named = [](TilePoint from, TilePoint to, double zoom) {
        const VectorTile tile{.roadNames = {{"Holt Road", RoadClass::secondary, {from, to}}}};
        return drawnRect(paintOverlay(std::vector{placed(middleTile, tile)}, frameAt(zoom), font()));
    };
    const QRect along = named({-0.3F, 0.0F}, {0.3F, 0.0F}, 14.0);
    EXPECT_GT(along.width(), 3 * along.height());
    const QRect down = named({0.0F, -0.3F}, {0.0F, 0.3F}, 14.0);
    EXPECT_NEAR(down.width(), along.height(), 2);
    EXPECT_NEAR(down.height(), along.width(), 2);
    EXPECT_TRUE(named({-0.1F, 0.0F}, {0.1F, 0.0F}, 14.0).isEmpty()) << "no room on so short a road";
    EXPECT_TRUE(named({-0.9F, 0.0F}, {0.9F, 0.0F}, 12.9).isEmpty()) << "too far away for names of roads";
}

TEST(PaintOverlay, doesNotDependOnTheSizeOfThePicture)
{
    std::vector<PlacedVectorTile> tiles;
    for (int i = 0; i < 9; ++i) {
        const TileID tile{14, 8523 + i % 3, 5973 + i / 3};
        tiles.push_back(placed(tile, decodeVectorTile(sampleVectorTile(tile)).value()));
    }
    LayerFrame frame{.camera = {.center = {8524.5 / 16384, 5974.5 / 16384}, .zoom = 14.0}, .columns = 600, .rows = 500};
    const QImage large = paintOverlay(tiles, frame, font());
    frame.columns = 400;
    frame.rows = 300;
    const QImage small = paintOverlay(tiles, frame, font());
    EXPECT_GT(drawnRect(small).width(), 300);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x)
            ASSERT_NEAR(qAlpha(small.pixel(x, y)), qAlpha(large.pixel(x + 100, y + 100)), 8) << x << ", " << y;
    }
}

TEST(PaintOverlay, bearsOddNamesAndEmptyFrames)
{
    const std::vector tiles{town(middleTile, "\n\t", {0.0F, 0.0F}), town(middleTile, "مدينة", {0.1F, 0.2F}),
                            town(middleTile, "東京\u202e", {-0.2F, -0.2F}),
                            town(middleTile, std::string(200, 'W'), {0.0F, -0.4F})};
    EXPECT_FALSE(drawnRect(paintOverlay(tiles, frameAt(14.0), font())).isEmpty());
    EXPECT_TRUE(drawnRect(paintOverlay({}, frameAt(14.0), font())).isEmpty());
    EXPECT_TRUE(paintOverlay(tiles, LayerFrame{}, font()).isNull());
}

} // namespace
} // namespace ospra
