#include "overview/views/OverviewState.h"

#include "tests/overview/views/OverviewBed.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace ospra {
namespace {

std::vector<std::string> titlesOf(TextRowsModel* list)
{
    std::vector<std::string> titles;
    for (const TextRow& row : list->rows())
        titles.push_back(row.title.toStdString());
    return titles;
}

TEST(OverviewState, writesWhatTheModelHas)
{
    OverviewBed bed({utc(2023, 7, 3, 10), utc(2023, 7, 3, 12), utc(2023, 8, 5, 9), utc(2021, 2, 1, 9)});
    OverviewState& state = bed.state();
    EXPECT_TRUE(state.hasJumps());
    EXPECT_EQ(state.totalText(), "4 jumps");
    EXPECT_EQ(titlesOf(state.months()), (std::vector<std::string>{"August 2023", "July 2023", "February 2021"}));
    EXPECT_EQ(state.months()->rows()[1], (TextRow{"July 2023", "2 jumps", "0.5/wk"}));
    EXPECT_EQ(state.headlines()->rows().size(), 6U);
    EXPECT_EQ(state.headlines()->rows()[4], (TextRow{"Best Streak", "1 days", ""}));
    ASSERT_EQ(state.recentJumps()->rows().size(), 3U);
    EXPECT_EQ(state.recentJumps()->rows()[0].value, "jump 3");
    EXPECT_TRUE(state.recentJumps()->rows()[0].title.startsWith("Aug 5, 2023"));
}

TEST(OverviewState, followsRangeAndMode)
{
    OverviewBed bed({utc(2023, 7, 3, 10)});
    OverviewState& state = bed.state();
    state.chooseRange(0);
    EXPECT_EQ(bed.model().overviewTimeRange(), OverviewTimeRange::threeMonths);
    EXPECT_EQ(state.totalText(), "0 jumps");
    EXPECT_TRUE(state.months()->rows().empty());
    EXPECT_EQ(state.recentJumps()->rows().size(), 1U); // whatever the range
    state.chooseMode(1);
    EXPECT_FALSE(state.showsHeatmap());
    for (const int none : {-1, 4}) {
        state.chooseRange(none);
        state.chooseMode(none);
    }
    EXPECT_EQ(state.rangeIndex(), 0);
    EXPECT_EQ(state.modeIndex(), 1);
}

TEST(OverviewState, keepsTheListOfADayThatWasClearedWhileItsCardFades)
{
    OverviewBed bed({utc(2023, 7, 3, 10), utc(2023, 7, 3, 12), utc(2023, 7, 9, 9)});
    OverviewState& state = bed.state();
    state.selectDay(utc(2023, 7, 3));
    EXPECT_TRUE(state.hasSelectedDay());
    EXPECT_EQ(state.selectedDayText(), "2 jumps on Jul 3, 2023");
    EXPECT_EQ(state.selectedDayJumps()->rowCount(), 2);
    state.selectDay(utc(2023, 7, 3));
    EXPECT_FALSE(state.hasSelectedDay());
    EXPECT_EQ(state.selectedDayJumps()->rowCount(), 2);
    state.selectDay(utc(2023, 7, 4));
    EXPECT_EQ(state.selectedDayText(), "0 jumps on Jul 4, 2023");
    EXPECT_EQ(state.selectedDayJumps()->rowCount(), 0);
}

TEST(OverviewState, opensTheJumpOfARow)
{
    OverviewBed bed({utc(2023, 7, 3, 10), utc(2023, 7, 3, 12), utc(2023, 7, 9, 9)});
    bed.state().selectDay(utc(2023, 7, 3));
    bed.state().openSelectedDayJump(1);
    ASSERT_TRUE(bed.model().selectedGroup());
    EXPECT_EQ(bed.model().selectedGroup()->primaryEntry.name, "jump 1");
    bed.state().openRecentJump(0);
    EXPECT_EQ(bed.model().selectedGroup()->primaryEntry.name, "jump 3");
    bed.state().openRecentJump(3);
    bed.state().openRecentJump(-1);
    EXPECT_EQ(bed.model().selectedGroup()->primaryEntry.name, "jump 3");
    bed.settle();
}

TEST(TextRowsModel, keepsTheRowsThatStay)
{
    TextRowsModel list;
    list.setRows({{.title = "a"}, {.title = "b"}, {.title = "c"}});
    QSignalSpy inserted(&list, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&list, &QAbstractItemModel::rowsRemoved);
    QSignalSpy changed(&list, &QAbstractItemModel::dataChanged);
    list.setRows({{.title = "a"}, {.title = "x"}});
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(inserted.count(), 0);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(list.data(list.index(1), list.roleNames().key("title")).toString(), "x");
}

} // namespace
} // namespace ospra
