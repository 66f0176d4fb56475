#include "tests/workspace/WindowTest.h"
#include "tilemap/item/MapAnchor.h"
#include "tilemap/item/TileMap.h"
#include "workspace/FlightMapModel.h"
#include "workspace/OspraApp.h"
#include "workspace/flightPaths.h"

#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>

namespace ospra {
namespace {

/// The flight map in a window of 400 x 500 on a model with a jump of two.
class FlightMap : public WindowTest {
protected:
    void SetUp() override
    {
        bed.addLog("me", "a.csv", {.rate = 10.0});
        bed.addLog("friend", "a.csv",
                   {.rate = 10.0,
                    .groundSeconds = 5.0,
                    .start = {.latitude = 47.001, .longitude = 8.0},
                    .startSeconds = JumpPlan{}.startSeconds + 1.0});
        open(R"(
            import QtQuick
            import Ospra.Workspace
            Window {
                id: root
                required property OspraModel source
                width: 400; height: 500; visible: true
                FlightPathMapView { anchors.fill: parent; source: root.source }
            })",
             {{QStringLiteral("source"), QVariant::fromValue(&model)}});
        map = window->findChild<TileMap*>();
        flight = window->findChild<FlightMapModel*>();
        ASSERT_TRUE(map && flight);
    }

    void load()
    {
        bed.openFolders("me", {"friend"});
        bed.openNextJump();
        settle();
    }

    /// Until the camera rests and the paths are drawn for what it sees.
    void settle() const
    {
        QTest::qWait(60);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !map->isMoving(); }));
        QTest::qWait(60);
    }

    /// Where an item of the map stands that has this text.
    Coordinate placeOf(const char* property, const QString& text) const
    {
        return qobject_cast<MapAnchor*>(itemWith(property, text))->place().coordinate();
    }

    /// The markers under the cursor that can be seen, in their order.
    std::vector<MapAnchor*> markers() const
    {
        std::vector<MapAnchor*> list;
        for (MapAnchor* const anchor : visibleItems<MapAnchor>(map))
            if (anchor->property("markerColor").isValid())
                list.push_back(anchor);
        return list;
    }

    QStringList names() const
    {
        QStringList list;
        for (const MapAnchor* const marker : markers())
            list.append(marker->property("name").toString());
        return list;
    }

    TileMap* map = nullptr;
    FlightMapModel* flight = nullptr;
};

TEST(FlightPaths, areDashedByPhaseAndThinnerForCompanions)
{
    VisibleMapSegment segment{.id = "x", .phase = JumpPhase::canopy, .isPrimary = true, .opacity = 0.4};
    const MapPath path = segmentPath(segment, 0x123456);
    EXPECT_EQ(path.opacity, 0.4);
    EXPECT_NEAR(path.casingOpacity, 0.18, 1e-9);
    segment.isPrimary = false;
    EXPECT_NEAR(segmentPath(segment, 0).width, path.width * 2.5 / 3.0, 1e-9);
    segment.phase = JumpPhase::freefall;
    EXPECT_EQ(segmentPath(segment, 0).dash, DashPattern());
    EXPECT_NE(path.dash, DashPattern());
}

TEST(FlightPaths, tellBearings)
{
    EXPECT_NEAR(bearingBetween({0.0, 8.0}, {0.0, 9.0}), 90.0, 1e-9);
    EXPECT_NEAR(bearingBetween({47.0, 8.0}, {46.0, 8.0}), 180.0, 1e-9);
    EXPECT_NEAR(bearingBetween({47.0, 8.0}, {48.0, 8.0}), 0.0, 1e-9);
    // From the north-west corner of a small square to its south-east one, at 60 degrees north half as wide as high.
    EXPECT_NEAR(bearingBetween({60.0, 8.0}, {59.999, 8.002}), 135.0, 0.01);
}

TEST_F(FlightMap, drawsPathsInOrderAndTheJumpRunAboveThem)
{
    load();
    const std::vector<MapPath>& paths = map->content().paths;
    ASSERT_EQ(paths.size(), model.visibleMapSegments().size() + 1);
    for (std::size_t i = 0; i + 1 < paths.size(); ++i) {
        EXPECT_EQ(paths[i].id, model.visibleMapSegments()[i].id);
        EXPECT_EQ(paths[i].coordinates, model.visibleMapSegments()[i].coordinates);
        EXPECT_EQ(paths[i].color, i < paths.size() / 2 ? 0xffffffu : 0xf0c419u); // dark values in a light window
    }
    EXPECT_EQ(paths.back().color, 0xf0c419u);
    EXPECT_EQ(paths.back().width, 2.0);
    EXPECT_EQ(paths.back().dash, (DashPattern{8.0, 6.0}));
    const JumpRunLine line = *jumpRunLine(model.tracks());
    EXPECT_EQ(*paths.back().coordinates, (std::vector{line.start, line.end}));
    EXPECT_NEAR(flight->jumpRunBearing(), 90.0, 1.0); // the climb goes to the east
    EXPECT_EQ(placeOf("text", "Jump Run"), line.start);
}

TEST_F(FlightMap, marksExitAndLandingOfTheFirstVisibleTrack)
{
    load();
    for (const bool isHidden : {false, true}) {
        SCOPED_TRACE(isHidden);
        const JumpTrack& first = model.tracks()[isHidden ? 1 : 0];
        const auto* const freefall = findPhase(first.phases, JumpPhase::freefall);
        ASSERT_TRUE(freefall);
        EXPECT_EQ(placeOf("title", "Exit"),
                  first.file.dataPoints[static_cast<std::size_t>(freefall->startIndex)].coordinate);
        EXPECT_EQ(placeOf("title", "Landing"), first.file.dataPoints.back().coordinate);
        model.toggleTrackVisibility(model.tracks().front().id);
        settle();
    }
}

TEST_F(FlightMap, hasNoExitWithoutAFreefall)
{
    const std::filesystem::path log = bed.addLog("me", "a.csv", {.rate = 10.0});
    std::filesystem::resize_file(log, std::filesystem::file_size(log) / 8); // somewhere in the climb
    load();
    ASSERT_FALSE(findPhase(model.tracks().front().phases, JumpPhase::freefall));
    EXPECT_FALSE(itemWith("title", "Exit"));
    EXPECT_TRUE(itemWith("title", "Landing"));
}

TEST_F(FlightMap, movesMarkersAloneWithTheCursor)
{
    load();
    const int pictures = map->pathRasterCount();
    const Camera camera = map->camera();
    ASSERT_GT(pictures, 0);
    EXPECT_TRUE(markers().empty());
    for (const double seconds : {150.0, 160.0, 200.0}) {
        model.setHoveredSeconds(seconds);
        const auto points = hoveredPoints(model.tracks(), {}, model.hoveredSeconds());
        ASSERT_EQ(markers().size(), 2u);
        for (std::size_t i = 0; i < 2; ++i)
            EXPECT_EQ(markers()[i]->place().coordinate(),
                      model.tracks()[i].file.dataPoints[static_cast<std::size_t>(*points[i])].coordinate);
        QTest::qWait(20);
    }
    EXPECT_EQ(names(), (QStringList{"Me", "friend"}));
    EXPECT_EQ(map->pathRasterCount(), pictures);
    EXPECT_EQ(map->camera(), camera);

    model.setHoveredSeconds(model.tracks()[0].elapsed.back()); // the friend's log has ended
    EXPECT_EQ(names(), QStringList{"Me"});
    model.setHoveredSeconds(std::nullopt);
    EXPECT_TRUE(markers().empty());

    model.toggleTrackVisibility(model.tracks()[0].id);
    model.setHoveredSeconds(160.0);
    EXPECT_EQ(names(), QStringList{"Me"}) << "the first that is visible";
    EXPECT_EQ(markers().front()->property("markerColor").value<QColor>(), QColor(0xf0c419));
}

TEST_F(FlightMap, movesTheCameraAtItsMomentsOnly)
{
    load();
    const Camera zoomed = map->camera(); // freefall and canopy are the first zoom
    model.clearZoom();
    settle();
    const Camera everything = map->camera();
    EXPECT_LT(everything.zoom, zoomed.zoom); // the jump run is 4 km long
    model.chooseZoomMode(ZoomMode::freefallAndCanopy);
    settle();
    EXPECT_EQ(map->camera(), zoomed);

    const Camera moved = panned(zoomed, 50.0, 20.0);
    map->setCamera(moved);
    model.setHoveredSeconds(160.0);
    model.setUseMetric(false);
    model.setEnabledSeries({DataSeries::elevation});
    model.rebuildVisibleData(); // lands on the same region
    model.chooseZoomMode(ZoomMode::freefallAndCanopy);
    settle();
    EXPECT_EQ(map->camera(), moved);
    model.toggleTrackVisibility(model.tracks()[1].id);
    model.toggleTrackVisibility(model.tracks()[1].id);
    settle();
    EXPECT_EQ(map->camera(), zoomed);
}

TEST_F(FlightMap, isEmptyWithoutTracks)
{
    load();
    model.closeFolder();
    bed.settle();
    settle();
    EXPECT_TRUE(markers().empty());
    EXPECT_FALSE(itemWith("title", "Exit") || itemWith("title", "Landing") || itemWith("text", "Jump Run"));
    EXPECT_TRUE(map->content().paths.empty());
}

} // namespace
} // namespace ospra
