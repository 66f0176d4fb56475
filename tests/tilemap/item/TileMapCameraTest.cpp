#include "tests/tilemap/item/MapBed.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <limits>

namespace ospra {
namespace {

using TileMapCamera = MapBed;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST_F(TileMapCamera, framesItsFirstContentAtOnceWithThePlacesBesideThePaths)
{
    MapContent content = levelContent();
    content.places = {{nan, 8.0}, {47.0, 8.03}, {47.0, std::numeric_limits<double>::infinity()}};
    m_map->setContent(content);
    pass(30);
    EXPECT_FALSE(m_map->isMoving());
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.04, 320.0), 1e-6); // 40 px free on each side
    EXPECT_LT(distance({47.0, 8.03}, {360.0, 150.0}), 1e-3);
}

TEST_F(TileMapCamera, goesToARegionWithoutAnimationAtFirstAndThenWithOne)
{
    m_map->showRegion({47.0, 8.0}, {0.001, 0.04});
    pass(30);
    EXPECT_FALSE(m_map->isMoving());
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.04, 400.0), 1e-6); // a region brings its own padding
    m_map->showRegion({47.001, 8.001}, {0.001, 0.02});
    pass(50);
    EXPECT_TRUE(m_map->isMoving());
    const double between = m_map->zoom();
    EXPECT_GT(between, zoomFor(0.04, 400.0));
    EXPECT_LT(between, zoomFor(0.02, 400.0));
    settle();
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.02, 400.0), 1e-9);
    EXPECT_LT(distance({47.001, 8.001}, {200.0, 150.0}), 1e-3);
}

TEST_F(TileMapCamera, stillsMotionWhereItIsUnwanted)
{
    m_map->setProperty("cameraDuration", 0);
    for (const double span : {0.04, 0.02}) {
        m_map->showRegion({47.0, 8.0}, {0.001, span});
        pass(20);
        EXPECT_FALSE(m_map->isMoving());
        EXPECT_NEAR(m_map->zoom(), zoomFor(span, 400.0), 1e-9);
    }
    m_map->pressKey(Qt::Key_Plus);
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.02, 400.0) + 1.0, 1e-9);
}

TEST_F(TileMapCamera, jumpsToAFarAwayRegion)
{
    m_map->showRegion({47.0, 8.0}, {0.01, 0.01});
    settle();
    m_map->showRegion({-33.0, 151.0}, {0.01, 0.01});
    pass(20);
    EXPECT_FALSE(m_map->isMoving());
    EXPECT_LT(distance({-33.0, 151.0}, {200.0, 150.0}),
              0.1); // the middle of the latitudes is not quite that of the map
}

TEST_F(TileMapCamera, keepsToItsAimWhileNoHandHasTouchedIt)
{
    showLevelPath();
    m_map->setWidth(200.0);
    pass(20);
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.02, 120.0), 1e-6);
    MapContent wider = levelContent();
    wider.paths.push_back(redPath("more", {{47.0, 8.0}, {47.0, 8.05}}));
    m_map->setContent(wider);
    pass(20);
    EXPECT_FALSE(m_map->isMoving());
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.06, 120.0), 1e-6);

    const Camera moved = panned(m_map->camera(), 30.0, 10.0);
    m_map->setCamera(moved);
    m_map->setWidth(400.0);
    m_map->setContent(levelContent());
    pass(20);
    EXPECT_EQ(m_map->camera(), moved);
    m_map->frameContent();
    settle();
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.02, 320.0), 1e-6);
}

TEST_F(TileMapCamera, leavesARegionOnlyForAnother)
{
    m_map->showRegion({47.0, 8.0}, {0.001, 0.04});
    settle();
    const Camera before = m_map->camera();
    showLevelPath();
    m_map->showRegion({nan, 8.0}, {0.001, 0.04});
    m_map->showRegion({47.0, 8.0}, {0.001, nan});
    settle();
    EXPECT_EQ(m_map->camera(), before);
    QSignalSpy views(m_map, &TileMap::viewChanged);
    m_map->showRegion({47.0, 8.0}, {0.001, 0.04}); // where it is already
    settle();
    EXPECT_EQ(views.count(), 0);
}

TEST_F(TileMapCamera, movesThatComeTogetherAreOne)
{
    showLevelPath();
    QSignalSpy views(m_map, &TileMap::viewChanged);
    m_map->setProperty("cameraDuration", 0);
    m_map->showRegion({10.0, 10.0}, {1.0, 1.0});
    m_map->frameContent();
    m_map->showRegion({47.0, 8.0}, {0.001, 0.04});
    pass(30);
    EXPECT_EQ(views.count(), 1);
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.04, 400.0), 1e-9);
}

TEST_F(TileMapCamera, survivesHavingNoRoom)
{
    m_map->setSize({0.0, 0.0});
    m_map->setContent(levelContent());
    m_map->showRegion({47.0, 8.0}, {0.001, 0.04});
    m_anchor->setPlace({47.0, 8.0});
    pass(30);
    EXPECT_EQ(m_map->pathRasterCount(), 0);
    m_map->setSize({400.0, 300.0});
    pass(30);
    EXPECT_NEAR(m_map->zoom(), zoomFor(0.04, 400.0), 1e-6); // at once: nothing was on screen before
}

TEST_F(TileMapCamera, anchorsStandOnTheirPlaceAndFollow)
{
    showLevelPath();
    const auto foot = [this] { return m_anchor->position() + QPointF(m_anchor->width() / 2.0, 10.0); };
    EXPECT_FALSE(m_anchor->isVisible()); // it has no place yet
    m_anchor->setPlace({47.0, 8.005});
    EXPECT_TRUE(m_anchor->isVisible());
    EXPECT_EQ(foot(), QPointF(280.0, 150.0));
    m_map->setCamera(panned(m_map->camera(), -100.3, 20.2)); // stands on whole pixels, where it is sharp
    EXPECT_EQ(foot(), QPointF(180.0, 170.0));
    m_anchor->setSize({40.0, 10.0});
    EXPECT_EQ(foot(), QPointF(180.0, 170.0));
    m_anchor->setAnchorPoint({0.0, 0.0});
    EXPECT_EQ(m_anchor->position(), QPointF(180.0, 170.0));
    EXPECT_EQ(grab().pixelColor(190, 175), QColor(0, 255, 0));
    m_anchor->setPlace({nan, 8.005});
    EXPECT_FALSE(m_anchor->isVisible());
    EXPECT_EQ(grab().pixelColor(190, 175), QColor(0, 0, 0x40));
}

TEST_F(TileMapCamera, tellsARoundLength)
{
    showLevelPath();
    // 0.02 degrees, at 47 degrees north 1,518 m, lie on 320 px.
    EXPECT_EQ(m_map->scaleBarText(), "500 m");
    EXPECT_NEAR(m_map->scaleBarWidth(), 500.0 / 1518.0 * 320.0, 0.5);
    m_map->setIsImperial(true);
    EXPECT_EQ(m_map->scaleBarText(), "1000 ft");
}

} // namespace
} // namespace ospra
