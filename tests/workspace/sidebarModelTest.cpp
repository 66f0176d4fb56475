#include "workspace/SidebarModel.h"

#include "tests/core/ModelTestBed.h"
#include "workspace/ContentState.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

class Sidebar : public ModelTest {
protected:
    void SetUp() override
    {
        sidebar.setSource(&model);
        state.setSource(&model);
    }

    QVariant value(int row, const char* role) const
    {
        return sidebar.data(sidebar.index(row), sidebar.roleNames().key(role));
    }

    SidebarModel sidebar;
    ContentState state;
};

TEST_F(Sidebar, isEmptyWithoutJumpsAlsoWhenTheOverviewIsSelected)
{
    EXPECT_EQ(state.screen(), ContentState::Welcome);
    model.openFolder(bed.folder("me"));
    EXPECT_EQ(state.screen(), ContentState::LoadingJumps);
    EXPECT_TRUE(state.sidebarIsLoading());
    bed.settle();
    EXPECT_EQ(state.screen(), ContentState::Overview);
    EXPECT_FALSE(state.sidebarIsLoading());
    EXPECT_EQ(sidebar.rowCount(), 0);
    EXPECT_EQ(sidebar.selectedRow(), -1);
}

TEST_F(Sidebar, listsTheOverviewAndTheJumpsUnderTheirDays)
{
    bed.addLog("me", "a.csv");
    bed.addLog("friend", "x.csv", later(3.0));
    bed.addFile("me", "empty.csv", "");
    bed.openFolders("me", {"friend"});
    ASSERT_EQ(sidebar.rowCount(), 5);
    EXPECT_EQ(value(0, "title"), "Overview");
    EXPECT_EQ(sidebar.selectedRow(), 0);
    EXPECT_EQ(value(1, "kind"), SidebarModel::Heading);
    EXPECT_EQ(value(2, "name"), "a");
    EXPECT_EQ(value(2, "dots"), QVariantList{static_cast<int>(Color::yellow)});
    EXPECT_EQ(value(3, "title"), "Unknown Date");
    EXPECT_EQ(value(4, "title"), "empty");
    EXPECT_EQ(value(4, "age"), "");

    sidebar.activate(2);
    EXPECT_EQ(state.screen(), ContentState::LoadingJump);
    bed.settle();
    EXPECT_EQ(state.screen(), ContentState::JumpDetail);
    EXPECT_EQ(sidebar.selectedRow(), 2);
    sidebar.activate(4);
    bed.settle();
    EXPECT_EQ(state.screen(), ContentState::Welcome) << "the load failed";
    sidebar.activate(1);
    EXPECT_EQ(sidebar.selectedRow(), 4) << "a heading is nothing to select";
    sidebar.activate(0);
    EXPECT_EQ(state.screen(), ContentState::Overview);
}

} // namespace
} // namespace ospra
