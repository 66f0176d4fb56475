#include "overview/jumpLists.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(RecentGroups, putTheUndatedBehindAllButTheAgesBeforeCounting)
{
    const Instant day = utc(2026, 7, 1);
    EXPECT_EQ(namesOf(recentGroups(makeGroups({std::nullopt, std::nullopt, day}))), "201");
    EXPECT_EQ(namesOf(recentGroups(makeGroups({Instant{-6.3e10}, std::nullopt, day}))), "210");
}

TEST(SelectedDayAfterClick, isTheStartOfTheDayAndClearedByASecondClick)
{
    const auto calendar = makeCalendar("America/Santiago", sunday);
    const Instant day = utc(2019, 9, 8, 4); // begins at one o'clock
    EXPECT_EQ(selectedDayAfterClick(utc(2019, 9, 7, 4), utc(2019, 9, 8, 20), *calendar), day);
    EXPECT_EQ(selectedDayAfterClick(day, utc(2019, 9, 8, 20), *calendar), std::nullopt);
    EXPECT_EQ(selectedDayAfterClick(day, std::nullopt, *calendar), std::nullopt);
}

} // namespace
} // namespace ospra
