#include "overview/heatmapScale.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(HeatmapLevel, risesByQuartersOfTheBusiestDay)
{
    struct Row {
        int count;
        int busiest;
        int level;
    };
    for (const auto& [count, busiest, level] :
         {Row{0, 0, 0}, Row{0, 4, 0}, Row{1, 4, 1}, Row{2, 4, 2}, Row{3, 4, 3}, Row{4, 4, 4}, Row{1, 1, 4},
          Row{25, 100, 1}, Row{26, 100, 2}, Row{50, 100, 2}, Row{51, 100, 3}, Row{75, 100, 3}, Row{76, 100, 4}}) {
        SCOPED_TRACE(count);
        EXPECT_EQ(heatmapLevel(count, busiest), level);
    }
}

TEST(WeeklyBarHeight, isAShareOfTheBusiestWeekWithAStubForNone)
{
    EXPECT_EQ(weeklyBarHeight(0, 0), 2.0);
    EXPECT_EQ(weeklyBarHeight(0, 12), 2.0);
    EXPECT_EQ(weeklyBarHeight(1, 12), 2.0); // 1.5 would be too low
    EXPECT_EQ(weeklyBarHeight(3, 12), 4.5);
    EXPECT_EQ(weeklyBarHeight(12, 12), 18.0);
}

} // namespace
} // namespace ospra
