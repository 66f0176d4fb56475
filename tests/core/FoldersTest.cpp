#include "tests/core/ModelTestBed.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

using Texts = std::vector<std::string>;

std::vector<Color> colorsOf(const OspraModel& model)
{
    std::vector<Color> colors;
    for (const Jumper& jumper : model.jumpers())
        colors.push_back(jumper.color);
    return colors;
}

TEST(ModelFolders, companionsTakeColoursInTurnAndKeepThem)
{
    ModelTestBed bed;
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    for (const char* name : {"a", "b", "c"})
        model.addCompanion(bed.folder(name));
    EXPECT_EQ(colorsOf(model), (std::vector{Color::white, Color::yellow, Color::cyan, Color::pink}));
    model.removeCompanion(model.jumpers()[1].id);
    model.addCompanion(bed.folder("d"));
    EXPECT_EQ(colorsOf(model), (std::vector{Color::white, Color::cyan, Color::pink, Color::pink}));
    EXPECT_EQ(bed.settings().byteList("companionBookmarks"),
              (Texts{bed.folder("b").native(), bed.folder("c").native(), bed.folder("d").native()}));
    EXPECT_EQ(bed.access().running[bed.folder("a")], 0);
    bed.settle();
}

TEST(ModelFolders, aFolderThatIsOpenIsNotAddedAgain)
{
    ModelTestBed bed;
    const std::filesystem::path me = bed.folder("me");
    bed.model().openFolder(me);
    bed.settle();
    const int revision = bed.model().jumpGroupsRevision();
    for (const std::filesystem::path& same : {me, me / "", me / ".", me / ".." / "me"})
        bed.model().addCompanion(same);
    EXPECT_EQ(bed.model().jumpers().size(), 1u);
    EXPECT_EQ(bed.model().jumpGroupsRevision(), revision);
    EXPECT_FALSE(bed.settings().contains("companionBookmarks"));
}

TEST(ModelFolders, aRefusedPrimaryLeavesNoJumperButIsRemembered)
{
    ModelTestBed bed;
    bed.addLog("me", "a.csv");
    bed.model().openFolder(bed.folder("me"));
    bed.settle();
    bed.access().refused = {bed.folder("other")};
    bed.model().openFolder(bed.folder("other"));
    EXPECT_TRUE(bed.model().jumpers().empty());
    EXPECT_TRUE(bed.model().jumperAccessingURLs().empty());
    EXPECT_EQ(bed.model().jumpGroups().size(), 1u);
    EXPECT_EQ(bed.settings().bytes("directoryBookmark"), bed.folder("other").native());
    EXPECT_EQ(bed.access().running[bed.folder("me")], 0);
}

TEST(ModelFolders, thePrimaryCannotBeRemovedAsACompanion)
{
    ModelTestBed bed;
    bed.model().openFolder(bed.folder("me"));
    bed.settle();
    bed.model().removeCompanion(bed.model().jumpers().front().id);
    bed.model().removeCompanion(Uuid{.high = 1, .low = 2});
    bed.settle();
    EXPECT_EQ(bed.model().jumpers().size(), 1u);
    EXPECT_EQ(bed.access().running[bed.folder("me")], 1);
}

TEST(ModelFolders, aRestartBringsFoldersBackAndPassesOverWhatIsNotThere)
{
    ModelTestBed bed;
    bed.model().openFolder(bed.folder("old"));
    for (const char* name : {"a", "b", "c"})
        bed.model().addCompanion(bed.folder(name));
    // A new primary closes the companions until the next start.
    bed.model().openFolder(bed.folder("c"));
    EXPECT_EQ(bed.model().jumpers().size(), 1u);
    bed.settle();
    bed.restart();

    bed.access().unreachable = {bed.folder("a")};
    bed.access().stale = {bed.folder("c"), bed.folder("b")};
    bed.access().handlesMade = 0;
    bed.model().restoreFolders();
    bed.settle();
    ASSERT_EQ(bed.model().jumpers().size(), 2u); // "c" is the primary now, "a" has gone
    EXPECT_EQ(bed.model().jumpers()[0].name, "c");
    EXPECT_EQ(bed.model().jumpers()[1].name, "b");
    EXPECT_EQ(bed.model().jumpers()[1].color, Color::yellow);
    EXPECT_EQ(bed.access().handlesMade, 1) << "only a stale primary is renewed";
    EXPECT_EQ(bed.settings().byteList("companionBookmarks")->size(), 3u) << "nothing is pruned";
    ASSERT_TRUE(bed.model().sidebarSelection());
    EXPECT_TRUE(bed.model().sidebarSelection()->isOverview());

    bed.model().restoreFolders();
    EXPECT_EQ(bed.model().jumpers().size(), 2u);
}

TEST(ModelFolders, withoutItsPrimaryNothingIsRestored)
{
    ModelTestBed bed;
    bed.settings().setBytes("directoryBookmark", bed.folder("me").native());
    bed.settings().setByteList("companionBookmarks", {bed.folder("a").native()});
    bed.access().unreachable = {bed.folder("me")};
    bed.model().restoreFolders();
    EXPECT_TRUE(bed.model().jumpers().empty());
    EXPECT_FALSE(bed.model().isLoading());
    EXPECT_TRUE(bed.settings().contains("directoryBookmark"));
}

TEST(ModelFolders, closingForgetsAllButTheSettings)
{
    ModelTestBed bed;
    bed.addLog("me", "a.csv");
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    model.addCompanion(bed.folder("b"));
    bed.settle();
    model.selectNextJump();
    bed.settle();
    model.setUseMetric(false);
    model.setOverviewSelectedDay(Instant{1.7e9});
    model.setHoveredSeconds(3.0);
    model.clearZoom();
    const int loads = model.loadRevision();
    const int scans = model.jumpGroupsRevision();
    model.closeFolder();
    EXPECT_TRUE(model.jumpers().empty() && model.jumpGroups().empty() && model.tracks().empty());
    EXPECT_TRUE(model.chartData().empty() && model.visibleChartTracks().empty());
    EXPECT_TRUE(model.horizontalDistanceData().empty() && model.visibleMapSegments().empty());
    EXPECT_FALSE(model.selectedGroup() || model.sidebarSelection() || model.hoveredSeconds() || model.zoomRange());
    EXPECT_FALSE(model.overviewSelectedDay() || model.isLoading());
    EXPECT_EQ(model.activeZoomMode(), ZoomMode::freefallAndCanopy);
    EXPECT_FALSE(model.useMetric());
    EXPECT_EQ(model.loadRevision(), loads + 1);
    EXPECT_EQ(model.jumpGroupsRevision(), scans + 1);
    EXPECT_FALSE(bed.settings().contains("directoryBookmark") || bed.settings().contains("companionBookmarks"));
    EXPECT_EQ(bed.access().running[bed.folder("me")] + bed.access().running[bed.folder("b")], 0);
}

TEST(ModelFolders, closingDuringAScanAndALoadLeavesAnEmptyModel)
{
    ModelTestBed bed;
    bed.addLog("me", "a.csv");
    OspraModel& model = bed.model();
    model.openFolder(bed.folder("me"));
    bed.settle();
    model.selectNextJump();
    model.rebuildGroups();
    model.closeFolder();
    bed.awaitBackground();
    bed.deliverMail();
    EXPECT_TRUE(model.jumpGroups().empty() && model.tracks().empty());
    EXPECT_FALSE(model.sidebarSelection() || model.isLoading() || model.hasError());
}

} // namespace
} // namespace ospra
