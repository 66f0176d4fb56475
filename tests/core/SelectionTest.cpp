#include "tests/core/ModelTestBed.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace ospra {
namespace {

/// Three jumps, an hour apart; the newest is "c".
class Selection : public ModelTest {
protected:
    void SetUp() override
    {
        double start = 0.0;
        for (const char* name : {"a.csv", "b.csv", "c.csv"})
            bed.addLog("me", name, later(start += 3600.0));
        bed.openFolders("me");
    }

    std::string selectedName() const
    {
        if (!model.sidebarSelection() || model.sidebarSelection()->isOverview())
            return "overview";
        return model.sidebarSelection()->group()->primaryEntry.name;
    }
};

TEST_F(Selection, keysWalkTheListFromTheOverviewToTheOldestJumpAndBack)
{
    EXPECT_EQ(selectedName(), "overview") << "from the first scan on";
    for (const char* name : {"c", "b", "a", "a"}) {
        model.selectNextJump();
        EXPECT_EQ(selectedName(), name);
    }
    bed.settle();
    EXPECT_EQ(model.loadRevision(), 3) << "at the last jump nothing happens";
    for (const char* name : {"b", "c", "overview", "overview"}) {
        model.selectPreviousJump();
        EXPECT_EQ(selectedName(), name);
    }
    bed.settle();
    EXPECT_FALSE(model.selectedGroup());
    EXPECT_EQ(model.tracks().front().file.fileName, "c") << "the loaded tracks stay";
    model.selectNextJump();
    EXPECT_TRUE(model.isLoading()) << "also when they are the ones to load";
    bed.settle();
}

TEST_F(Selection, theListCannotClearTheSelection)
{
    model.selectNextJump();
    model.selectSidebarItem(std::nullopt);
    EXPECT_EQ(selectedName(), "c");
    bed.settle();
}

TEST_F(Selection, regroupingKeepsTheJumpAndReloadsIt)
{
    bed.openNextJump();
    const Uuid before = model.selectedGroup()->id;
    bed.addLog("friend", "x.csv", later(3 * 3600.0 + 2.0));
    model.addCompanion(bed.folder("friend"));
    bed.settle();
    bed.settle();
    EXPECT_NE(model.selectedGroup()->id, before);
    EXPECT_EQ(selectedName(), "c");
    EXPECT_EQ(model.tracks().size(), 2u);
    model.selectNextJump();
    EXPECT_EQ(selectedName(), "b") << "the selection stands on the new list";
    bed.settle();
}

TEST_F(Selection, regroupingUnderTheOverviewLoadsNothing)
{
    bed.addLog("friend", "x.csv");
    model.addCompanion(bed.folder("friend"));
    bed.settle();
    EXPECT_EQ(selectedName(), "overview");
    EXPECT_EQ(model.loadRevision(), 0);
}

TEST_F(Selection, aJumpThatHasGoneFromTheDiskStaysOnScreen)
{
    bed.openNextJump();
    std::filesystem::remove(model.selectedGroup()->primaryEntry.url);
    model.rebuildGroups();
    bed.settle();
    EXPECT_EQ(model.jumpGroups().size(), 2u);
    EXPECT_EQ(selectedName(), "c");
    EXPECT_TRUE(model.hasTracks());
    model.selectNextJump();
    EXPECT_EQ(selectedName(), "c") << "it is not on the list any more";
}

TEST_F(Selection, onlyTheNewestScanReachesTheList)
{
    model.rebuildGroups();
    bed.addLog("me", "d.csv");
    model.rebuildGroups();
    bed.awaitBackground();
    int told = 0;
    QObject::connect(&model, &OspraModel::jumpGroupsChanged, [&told] { ++told; });
    bed.deliverMail();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(model.jumpGroups().size(), 4u);
    EXPECT_FALSE(model.isLoading());
}

TEST_F(Selection, hoveringTellsOncePerSample)
{
    bed.openNextJump();
    int told = 0;
    QObject::connect(&model, &OspraModel::hoveredSecondsChanged, [&told] { ++told; });
    for (const double seconds : {10.01, 10.02, 10.05, 10.19, 10.2})
        model.setHoveredSeconds(seconds);
    EXPECT_EQ(told, 2);
    EXPECT_DOUBLE_EQ(*model.hoveredSeconds(), model.tracks().front().elapsed[51]);
    model.setHoveredSeconds(std::nullopt);
    EXPECT_FALSE(model.hoveredSeconds());
}

} // namespace
} // namespace ospra
