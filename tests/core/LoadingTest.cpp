#include "tests/core/ModelTestBed.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

class ModelLoading : public ModelTest {
protected:
    double firstElevation() const { return model.chartData().front()[DataSeries::elevation][0].value; }
};

TEST_F(ModelLoading, setsAllTracksOnTheAxisOfTheFirst)
{
    bed.addLog("me", "jump.csv", later(10.0));
    bed.addLog("early", "jump.csv");
    bed.openFolders("me", {"early"});
    model.selectNextJump();
    EXPECT_TRUE(model.isLoading());
    bed.settle();
    ASSERT_EQ(model.tracks().size(), 2u);
    EXPECT_EQ(model.tracks()[0].elapsed.front(), 0.0);
    EXPECT_DOUBLE_EQ(model.tracks()[1].elapsed.front(), -10.0);
    EXPECT_EQ(model.tracks()[1].jumperName, "early");
    EXPECT_EQ(model.tracks()[1].jumperColor, Color::yellow);
    EXPECT_EQ(model.tracks()[0].file.fileName, "jump");
    EXPECT_EQ(model.cameraUpdateTrigger(), 1);
    ASSERT_TRUE(model.zoomRange());
    EXPECT_GT(model.zoomRange()->lo, 0.0);
    EXPECT_LT(model.visibleChartTracks().front().seriesData[DataSeries::elevation].size(),
              model.chartData().front()[DataSeries::elevation].size());
}

TEST_F(ModelLoading, aBadPrimaryLogLeavesItsPlaceToTheCompanion)
{
    bed.addLog("me", "jump.csv");
    bed.addLog("friend", "jump.csv");
    bed.openFolders("me", {"friend"});
    bed.addFile("me", "jump.csv", "no log");
    bed.openNextJump();
    ASSERT_EQ(model.tracks().size(), 1u);
    EXPECT_EQ(model.tracks()[0].jumperName, "friend");
    EXPECT_EQ(model.tracks()[0].elapsed.front(), 0.0);
    EXPECT_FALSE(model.hasError());
    EXPECT_TRUE(model.distanceData().empty());
}

TEST_F(ModelLoading, aFailedLoadTellsTheReasonAndClearsTheScreen)
{
    const std::string header = "time,lat,lon,hMSL,velN,velE,velD\n\n(units)\n";
    const struct {
        std::string content;
        std::string message;
    } rows[] = {
        {"", "Invalid FlySight CSV format"},
        {header + "nothing\n", "No data points found"},
        {header + "\xff\n", "The file “bad.csv” couldn’t be opened because it isn’t UTF-8 text."},
    };
    bed.addLog("me", "good.csv");
    bed.addFile("me", "bad.csv", "");
    bed.openFolders("me");
    for (const auto& [content, message] : rows) {
        SCOPED_TRACE(message);
        bed.addFile("me", "bad.csv", content);
        model.openGroup(bed.jump("good"));
        bed.settle();
        ASSERT_TRUE(model.hasTracks());
        model.openGroup(bed.jump("bad"));
        bed.settle();
        EXPECT_EQ(model.errorMessage(), message);
        EXPECT_FALSE(model.hasTracks());
        EXPECT_TRUE(model.visibleChartTracks().empty() && model.visibleMapSegments().empty());
        EXPECT_EQ(model.activeZoomMode(), ZoomMode::freefallAndCanopy);
        model.dismissError();
        EXPECT_FALSE(model.hasError());
    }
}

TEST_F(ModelLoading, aLogOfNobodyFailsWithoutAReasonAndSpecialFilesFailQuickly)
{
    model.loadTracks(JumpGroup{.primaryEntry = {.url = "/nowhere", .jumperID = makeUuid()}});
    bed.settle();
    EXPECT_EQ(model.errorMessage(), "Failed to load jump data");

    std::filesystem::create_directories(bed.folder("me") / "x.csv");
    bed.openFolders("me");
    bed.openNextJump();
    EXPECT_EQ(model.errorMessage(), "The file “x.csv” couldn’t be opened because it isn’t a regular file.");
}

TEST_F(ModelLoading, onlyTheNewestLoadReachesTheScreen)
{
    bed.addLog("me", "a.csv");
    bed.addLog("me", "b.csv", later(3600.0));
    bed.openFolders("me");
    int published = 0;
    QObject::connect(&model, &OspraModel::tracksChanged, [&] { ++published; });
    model.openGroup(bed.jump("b"));
    model.openGroup(bed.jump("a"));
    bed.awaitBackground();
    bed.deliverMail();
    EXPECT_EQ(published, 1);
    EXPECT_EQ(model.tracks().front().file.fileName, "a");
    EXPECT_FALSE(model.isLoading());
}

TEST_F(ModelLoading, aNamedZoomSurvivesAnotherJumpAndADragDoesNot)
{
    bed.addLog("me", "a.csv");
    bed.addLog("me", "b.csv", later(3600.0));
    bed.openFolders("me");
    bed.openNextJump();
    model.chooseZoomMode(ZoomMode::canopy);
    const auto canopy = model.zoomRange();
    bed.openNextJump();
    EXPECT_EQ(model.activeZoomMode(), ZoomMode::canopy);
    EXPECT_EQ(model.zoomRange(), canopy) << "the same flight, an hour later";
    model.zoomToDrag(30.0, 20.0);
    EXPECT_EQ(model.zoomRange(), (TimeRange{20.0, 30.0}));
    EXPECT_FALSE(model.activeZoomMode());
    model.selectPreviousJump();
    bed.settle();
    EXPECT_FALSE(model.zoomRange());
}

TEST_F(ModelLoading, theSameJumpAgainIsLoadedAnewAndShowsHiddenTracks)
{
    bed.addLog("me", "a.csv");
    bed.addLog("friend", "a.csv");
    bed.openFolders("me", {"friend"});
    bed.openNextJump();
    const Uuid before = model.tracks().front().id;
    model.toggleTrackVisibility(before);
    EXPECT_TRUE(model.visibleDistanceDataCache().empty());
    EXPECT_EQ(model.cameraUpdateTrigger(), 2);
    model.openGroup(*model.selectedGroup());
    bed.settle();
    EXPECT_NE(model.tracks().front().id, before);
    EXPECT_TRUE(model.hiddenTrackIDs().empty());
    EXPECT_EQ(model.visibleDistanceDataCache().size(), 1u);
}

TEST_F(ModelLoading, unitsAreThoseOfTheRequestUntilTheNextRebuild)
{
    bed.addLog("me", "a.csv");
    bed.openFolders("me");
    model.selectNextJump();
    model.setUseMetric(false);
    bed.settle();
    const double loaded = firstElevation();
    model.rebuildDisplayData();
    EXPECT_DOUBLE_EQ(firstElevation(), loaded * 3.28084);

    int told = 0;
    QObject::connect(&model, &OspraModel::chartDataChanged, [&told] { ++told; });
    model.rebuildDisplayData();
    EXPECT_EQ(told, 0);
}

} // namespace
} // namespace ospra
