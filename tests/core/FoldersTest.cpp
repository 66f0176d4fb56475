#include "tests/core/ModelTestBed.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

using Texts = std::vector<std::string>;

class ModelFolders : public ModelTest {
protected:
    std::vector<Color> colors() const
    {
        std::vector<Color> list;
        for (const Jumper& jumper : model.jumpers())
            list.push_back(jumper.color);
        return list;
    }

    /// How often access to a folder has been started and not stopped.
    int accesses(const char* name) { return bed.access().running[bed.folder(name)]; }
};

TEST_F(ModelFolders, companionsTakeColoursInTurnAndKeepThem)
{
    bed.openFolders("me", {"a", "b", "c"});
    EXPECT_EQ(colors(), (std::vector{Color::white, Color::yellow, Color::cyan, Color::pink}));
    model.removeCompanion(model.jumpers()[1].id);
    model.addCompanion(bed.folder("d"));
    EXPECT_EQ(colors(), (std::vector{Color::white, Color::cyan, Color::pink, Color::pink}));
    EXPECT_EQ(bed.settings().byteList("companionBookmarks"),
              (Texts{bed.folder("b").native(), bed.folder("c").native(), bed.folder("d").native()}));
    EXPECT_EQ(accesses("a"), 0);
}

TEST_F(ModelFolders, aFolderThatIsOpenIsNotAddedAgain)
{
    bed.openFolders("me");
    const std::filesystem::path me = bed.folder("me");
    const int revision = model.jumpGroupsRevision();
    for (const std::filesystem::path& same : {me, me / "", me / ".", me / ".." / "me"})
        model.addCompanion(same);
    EXPECT_EQ(model.jumpers().size(), 1u);
    EXPECT_EQ(model.jumpGroupsRevision(), revision);
    EXPECT_FALSE(bed.settings().contains("companionBookmarks"));
}

TEST_F(ModelFolders, aRefusedPrimaryLeavesNoJumperButIsRemembered)
{
    bed.addLog("me", "a.csv");
    bed.openFolders("me");
    bed.access().refused = {bed.folder("other")};
    model.openFolder(bed.folder("other"));
    EXPECT_TRUE(model.jumpers().empty() && model.jumperAccessingURLs().empty());
    EXPECT_EQ(model.jumpGroups().size(), 1u);
    EXPECT_EQ(bed.settings().bytes("directoryBookmark"), bed.folder("other").native());
    EXPECT_EQ(accesses("me"), 0);
}

TEST_F(ModelFolders, thePrimaryCannotBeRemovedAsACompanion)
{
    bed.openFolders("me");
    model.removeCompanion(model.jumpers().front().id);
    model.removeCompanion(Uuid{.high = 1, .low = 2});
    EXPECT_EQ(model.jumpers().size(), 1u);
    EXPECT_EQ(accesses("me"), 1);
}

TEST(ModelRestart, bringsFoldersBackAndPassesOverWhatIsNotThere)
{
    ModelTestBed bed;
    bed.openFolders("old", {"a", "b", "c"});
    bed.openFolders("c");
    EXPECT_EQ(bed.model().jumpers().size(), 1u) << "a new primary closes the companions until the next start";
    bed.restart();

    bed.access().unreachable = {bed.folder("a")};
    bed.access().stale = {bed.folder("c"), bed.folder("b")};
    bed.access().handlesMade = 0;
    for (int time = 0; time < 2; ++time) { // the second one finds the folders open
        bed.model().restoreFolders();
        bed.settle();
        ASSERT_EQ(bed.model().jumpers().size(), 2u) << "one is the primary now, and one has gone";
    }
    EXPECT_EQ(bed.model().jumpers()[0].name, "c");
    EXPECT_EQ(bed.model().jumpers()[1].name, "b");
    EXPECT_EQ(bed.model().jumpers()[1].color, Color::yellow);
    EXPECT_EQ(bed.access().handlesMade, 1) << "only a stale primary is renewed";
    EXPECT_EQ(bed.settings().byteList("companionBookmarks")->size(), 3u) << "nothing is pruned";
    ASSERT_TRUE(bed.model().sidebarSelection());
    EXPECT_TRUE(bed.model().sidebarSelection()->isOverview());

    bed.restart();
    bed.access().unreachable = {bed.folder("c")};
    bed.model().restoreFolders();
    EXPECT_TRUE(bed.model().jumpers().empty()) << "without its primary nothing is restored";
    EXPECT_FALSE(bed.model().isLoading());
    EXPECT_TRUE(bed.settings().contains("directoryBookmark"));
}

TEST_F(ModelFolders, closingForgetsAllButTheSettings)
{
    bed.addLog("me", "a.csv");
    bed.openFolders("me", {"b"});
    bed.openNextJump();
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
    EXPECT_EQ(accesses("me") + accesses("b"), 0);
}

TEST_F(ModelFolders, closingDuringAScanAndALoadLeavesAnEmptyModel)
{
    bed.addLog("me", "a.csv");
    bed.openFolders("me");
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
