#include "tests/support/TileServer.h"
#include "tests/tilemap/item/MapBed.h"
#include "tilemap/item/MapImagery.h"
#include "tilemap/item/attributionText.h"

#include <QTest>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace ospra {
namespace {

class MapPicture : public MapBed {
protected:
    /// Until another picture of the paths than the first `count` is there.
    void awaitPicture(int count)
    {
        ASSERT_TRUE(QTest::qWaitFor([&] {
            m_window->update();
            return m_map->pathRasterCount() > count;
        }));
    }

    /// Until no pixel of the bare ground can be seen.
    bool awaitTiles()
    {
        return QTest::qWaitFor([this] {
            const QImage image = grab().convertToFormat(QImage::Format_RGB32);
            const auto* const pixels = reinterpret_cast<const QRgb*>(image.constBits());
            return std::count(pixels, pixels + image.width() * image.height(), qRgb(0, 0, 0x40)) == 0;
        });
    }

    static bool isRed(const QImage& image, QPointF at) { return image.pixelColor(at.toPoint()).red() > 200; }
};

TEST_F(MapPicture, drawsPathsWhereTheyLieAndNoneAnewForAShortWayOrAHover)
{
    showLevelPath();
    const QImage image = grab();
    EXPECT_TRUE(isRed(image, {50, 150}));
    EXPECT_FALSE(isRed(image, {30, 150}));
    EXPECT_FALSE(isRed(image, {200, 155}));
    EXPECT_EQ(image.pixelColor(10, 10), QColor(0, 0, 0x40));
    const int before = m_map->pathRasterCount();
    for (int step = 0; step < 20; ++step) {
        m_map->setCamera(panned(m_map->camera(), 2.0, 1.0));
        m_anchor->setPlace({47.0, 8.0 + step * 1e-4});
        pass(5);
    }
    EXPECT_EQ(m_map->pathRasterCount(), before);
    EXPECT_TRUE(isRed(grab(), {200 + 40, 150 + 20})); // it has moved all the same
    m_map->setCamera(panned(m_map->camera(), 100.0, 0.0));
    awaitPicture(before);
    EXPECT_TRUE(isRed(grab(), {300, 170}));
}

TEST_F(MapPicture, keepsTheOldOneUntilTheNewOneIsThere)
{
    showLevelPath();
    const int before = m_map->pathRasterCount();
    MapContent thinner = levelContent();
    thinner.paths.front().opacity = 0.99;
    m_map->setContent(thinner);
    m_map->setCamera(zoomedAbout(m_map->view(), {200.0, 150.0}, m_map->zoom() + 1.0));
    // Grabbing draws the window without running the event loop, so that no new picture can have come back.
    const QImage meanwhile = grab();
    EXPECT_EQ(m_map->pathRasterCount(), before);
    EXPECT_TRUE(isRed(meanwhile, {200, 150}));
    EXPECT_TRUE(isRed(meanwhile, {10, 150}));
    EXPECT_TRUE(isRed(meanwhile, {200, 152})); // enlarged with the ground
    awaitPicture(before);
    settle();
    EXPECT_FALSE(isRed(grab(), {200, 152}));
}

TEST_F(MapPicture, showsNothingOfAnotherContent)
{
    m_map->setContent(levelContent());
    awaitPicture(0);
    m_map->setCamera(m_map->camera()); // by hand, so that it stays
    m_map->setContent({.paths = {redPath("elsewhere", {{10.0, 10.0}, {10.0, 11.0}})}});
    EXPECT_FALSE(isRed(grab(), {200, 150}));
    m_map->setContent(levelContent());
    awaitPicture(m_map->pathRasterCount());
    EXPECT_TRUE(isRed(grab(), {200, 150}));
    m_map->setContent({});
    EXPECT_FALSE(isRed(grab(), {200, 150}));
}

TEST_F(MapPicture, canGoWhileItsPictureIsDrawn)
{
    for (int round = 0; round < 10; ++round) {
        m_map->setContent({.paths = {redPath(std::to_string(round), {{47.0, 8.0}, {47.0, 8.0 + round}})}});
        grab();
    }
    m_window.reset();
    QCoreApplication::processEvents();
}

TEST_F(MapPicture, hasOneTextureForEachTileThatIsShown)
{
    TileServer server;
    const MapSource source{.id = "ground",
                           .address = server.address() + "/imagery/{z}/{x}/{y}.jpg",
                           .nativeZoom = 16,
                           .attribution = "Ground & Co",
                           .attributionLink = "https://example.org"};
    MapImagery imagery(std::make_unique<TileStore>(std::vector{source}, TileStoreOptions{.userAgent = "test/1"}));
    MapBed::SetUp(); // a new window, with tiles
    m_map->setContent(levelContent());
    // 400 x 300 px; at zoom 14, tiles of 256 px: two or three by two or three, without a seam.
    for (const auto& [zoom, least, most] :
         {std::tuple{14.0, 4, 9}, {17.0, 1, 16}, {14.5, 4, 16}, {12.0, 4, 16}, {16.3, 1, 16}}) {
        SCOPED_TRACE(zoom);
        m_map->setCamera({.center = *worldPoint({47.0, 8.0}), .zoom = zoom});
        ASSERT_TRUE(awaitTiles());
        EXPECT_GE(m_map->textureCount(), least);
        EXPECT_LE(m_map->textureCount(), most); // those of the views before have gone
    }
    EXPECT_EQ(m_map->attribution(), "<a href=\"https://example.org\">Ground &amp; Co</a>");
    m_map->setVisible(false);
    pass(20);
    m_map->setVisible(true);
    ASSERT_TRUE(awaitTiles());
    m_window.reset(); // before the tiles go
}

TEST(AttributionText, namesEachSourceOnce)
{
    const MapSource a{.attribution = "A <b>", .attributionLink = "https://a.example"};
    const MapSource b{.attribution = "B"};
    const std::vector<MapSource> sources{a, b, a, MapSource{}};
    EXPECT_EQ(attributionText(sources), "<a href=\"https://a.example\">A &lt;b&gt;</a> · B");
    EXPECT_EQ(attributionText({}), "");
}

} // namespace
} // namespace ospra
