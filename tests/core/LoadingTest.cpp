#include "tests/core/ModelTestBed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <tuple>

namespace ospra {
namespace {

/// A later exit of the same load of jumpers: the logger is switched on a little later and all else is the same.
JumpPlan later(double seconds)
{
    return {.startSeconds = JumpPlan{}.startSeconds + seconds};
}

TEST(ModelLoading, setsAllTracksOnTheAxisOfTheFirst)
{
    ModelTestBed bed;
    bed.addLog("me", "jump.csv", later(10.0));
    bed.addLog("early", "jump.csv");
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    model.addCompanion(bed.folder("early"));
    bed.settle();
    model.selectNextJump();
    EXPECT_TRUE(model.isLoading());
    bed.settle();
    ASSERT_EQ(model.tracks().size(), 2u);
    EXPECT_EQ(model.tracks()[0].elapsed.front(), 0.0);
    EXPECT_DOUBLE_EQ(model.tracks()[1].elapsed.front(), -10.0);
    EXPECT_EQ(model.tracks()[1].jumperName, "early");
    EXPECT_EQ(model.tracks()[1].jumperColor, Color::yellow);
    EXPECT_EQ(model.tracks()[0].file.fileName, "jump");
    EXPECT_EQ(model.distanceData().size(), 1u);
    EXPECT_EQ(model.chartData().size(), 2u);
    EXPECT_EQ(model.cameraUpdateTrigger(), 1);
    ASSERT_TRUE(model.zoomRange());
    EXPECT_GT(model.zoomRange()->lo, 0.0);
    EXPECT_LT(model.visibleChartTracks().front().seriesData[DataSeries::elevation].size(),
              model.chartData().front()[DataSeries::elevation].size());
}

TEST(ModelLoading, aBadPrimaryLogLeavesItsPlaceToTheCompanion)
{
    ModelTestBed bed;
    bed.addLog("me", "jump.csv");
    bed.addLog("friend", "jump.csv");
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    model.addCompanion(bed.folder("friend"));
    bed.settle();
    bed.addFile("me", "jump.csv", "no log");
    model.selectNextJump();
    bed.settle();
    ASSERT_EQ(model.tracks().size(), 1u);
    EXPECT_EQ(model.tracks()[0].jumperName, "friend");
    EXPECT_EQ(model.tracks()[0].elapsed.front(), 0.0);
    EXPECT_FALSE(model.hasError());
    EXPECT_TRUE(model.distanceData().empty());
}

TEST(ModelLoading, aFailedLoadTellsTheReasonAndClearsTheScreen)
{
    struct Row {
        std::string content;
        std::string message;
    };
    const std::string header = "time,lat,lon,hMSL,velN,velE,velD\n\n(units)\n";
    for (const auto& [content, message] :
         {Row{"", "Invalid FlySight CSV format"}, Row{header + "nothing\n", "No data points found"},
          Row{header + "\xff\n", "The file “b.csv” couldn’t be opened because it isn’t "
                                 "UTF-8 text."}}) {
        SCOPED_TRACE(message);
        ModelTestBed bed;
        bed.addLog("me", "a.csv");
        bed.addFile("me", "b.csv", content);
        OspraModel& model = bed.model();
        model.openFolder(bed.folder("me"));
        bed.settle();
        ASSERT_EQ(model.jumpGroups().size(), 2u);
        model.openGroup(model.jumpGroups()[model.jumpGroups()[0].primaryEntry.name == "a" ? 0 : 1]);
        bed.settle();
        ASSERT_TRUE(model.hasTracks());
        model.openGroup(model.jumpGroups()[model.jumpGroups()[0].primaryEntry.name == "b" ? 0 : 1]);
        bed.settle();
        EXPECT_EQ(model.errorMessage(), message);
        EXPECT_FALSE(model.hasTracks());
        EXPECT_TRUE(model.visibleChartTracks().empty() && model.visibleMapSegments().empty());
        EXPECT_EQ(model.activeZoomMode(), ZoomMode::freefallAndCanopy);
        model.dismissError();
        EXPECT_FALSE(model.hasError());
    }
}

TEST(ModelLoading, aLogOfNobodyFailsWithoutAReasonAndSpecialFilesFailQuickly)
{
    ModelTestBed bed;
    bed.model().loadTracks(JumpGroup{.primaryEntry = {.url = "/nowhere", .jumperID = makeUuid()}});
    bed.settle();
    EXPECT_EQ(bed.model().errorMessage(), "Failed to load jump data");

    std::filesystem::create_directories(bed.folder("me") / "x.csv");
    bed.model().openFolder(bed.folder("me"));
    bed.settle();
    bed.model().selectNextJump();
    bed.settle();
    EXPECT_EQ(bed.model().errorMessage(), "The file “x.csv” couldn’t be opened because it isn’t a regular file.");
}

TEST(ModelLoading, onlyTheNewestLoadReachesTheScreen)
{
    ModelTestBed bed;
    bed.addLog("me", "a.csv");
    bed.addLog("me", "b.csv", later(3600.0));
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    bed.settle();
    const JumpGroup newest = model.jumpGroups()[0];
    const JumpGroup oldest = model.jumpGroups()[1];
    int published = 0;
    QObject::connect(&model, &OspraModel::tracksChanged, [&] { ++published; });
    model.openGroup(newest);
    model.openGroup(oldest);
    bed.awaitBackground();
    bed.deliverMail();
    EXPECT_EQ(published, 1);
    EXPECT_EQ(model.tracks().front().file.fileName, "a");
    EXPECT_FALSE(model.isLoading());
}

TEST(ModelLoading, aNamedZoomSurvivesAnotherJumpAndADragDoesNot)
{
    ModelTestBed bed;
    bed.addLog("me", "a.csv");
    bed.addLog("me", "b.csv", later(3600.0));
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    bed.settle();
    model.selectNextJump();
    bed.settle();
    model.chooseZoomMode(ZoomMode::canopy);
    const auto canopy = model.zoomRange();
    model.selectNextJump();
    bed.settle();
    EXPECT_EQ(model.activeZoomMode(), ZoomMode::canopy);
    EXPECT_EQ(model.zoomRange(), canopy) << "the same flight, an hour later";
    model.zoomToDrag(30.0, 20.0);
    EXPECT_EQ(model.zoomRange(), (TimeRange{20.0, 30.0}));
    EXPECT_FALSE(model.activeZoomMode());
    model.selectPreviousJump();
    bed.settle();
    EXPECT_FALSE(model.zoomRange());
}

TEST(ModelLoading, theSameJumpAgainIsLoadedAnewAndShowsHiddenTracks)
{
    ModelTestBed bed;
    bed.addLog("me", "a.csv");
    bed.addLog("friend", "a.csv");
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    model.addCompanion(bed.folder("friend"));
    bed.settle();
    model.selectNextJump();
    bed.settle();
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

TEST(ModelLoading, unitsAreThoseOfTheRequestUntilTheNextRebuild)
{
    ModelTestBed bed;
    bed.addLog("me", "a.csv");
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    bed.settle();
    model.selectNextJump();
    model.setUseMetric(false);
    bed.settle();
    const double loaded = model.chartData().front()[DataSeries::elevation][0].value;
    model.rebuildDisplayData();
    EXPECT_DOUBLE_EQ(model.chartData().front()[DataSeries::elevation][0].value, loaded * 3.28084);

    int told = 0;
    QObject::connect(&model, &OspraModel::chartDataChanged, [&told] { ++told; });
    model.rebuildDisplayData();
    EXPECT_EQ(told, 0);
}

TEST(ModelLoading, leavesTheLogsAndTheirFolderAsTheyWere)
{
    ModelTestBed bed;
    const std::filesystem::path log = bed.addLog("me", "a.csv");
    bed.addFile("me", "bad.csv", "no log");
    const auto state = [&log] {
        std::ifstream file(log, std::ios::binary);
        std::string content(std::istreambuf_iterator<char>(file), {});
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(log.parent_path()))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return std::tuple(content, std::filesystem::last_write_time(log), names,
                          std::filesystem::last_write_time(log.parent_path()));
    };
    // Nothing may be written there, so nothing needs the right to.
    std::filesystem::permissions(log, std::filesystem::perms::owner_read);
    std::filesystem::permissions(log.parent_path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    const auto before = state();
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    bed.settle();
    for (const JumpGroup& group : model.jumpGroups()) {
        model.loadTracks(group);
        bed.settle();
    }
    model.closeFolder();
    EXPECT_EQ(state(), before);
    std::filesystem::permissions(log.parent_path(), std::filesystem::perms::owner_all);
}

} // namespace
} // namespace ospra
