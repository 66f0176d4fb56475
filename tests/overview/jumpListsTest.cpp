#include "overview/jumpLists.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(RecentGroups, areTheThreeNewestWithUndatedOnesAtTheEnd)
{
    struct Row {
        std::vector<std::optional<Instant>> jumps;
        std::string names;
    };
    const Instant a = utc(2026, 7, 1);
    const Instant b = utc(2026, 7, 2);
    const Instant c = utc(2026, 7, 3);
    for (const auto& [jumps, names] :
         {Row{{}, ""}, Row{{a}, "0"}, Row{{a, b, c, a}, "210"}, Row{{a, a, b, a}, "201"},
          Row{{std::nullopt, a, std::nullopt, b}, "310"}, Row{{std::nullopt, std::nullopt, a}, "201"},
          Row{{std::nullopt, std::nullopt, std::nullopt, std::nullopt}, "012"},
          // older than whatever has no date
          Row{{Instant{-6.3e10}, std::nullopt, a}, "210"}}) {
        SCOPED_TRACE(names);
        EXPECT_EQ(namesOf(recentGroups(makeGroups(jumps))), names);
    }
}

TEST(SelectedDayAfterClick, isTheStartOfTheDayAndClearedByASecondClick)
{
    const auto calendar = makeCalendar("America/Santiago", sunday);
    const Instant day = utc(2019, 9, 8, 4); // begins at one o'clock
    EXPECT_EQ(selectedDayAfterClick(std::nullopt, day, *calendar), day);
    EXPECT_EQ(selectedDayAfterClick(utc(2019, 9, 7, 4), utc(2019, 9, 8, 20), *calendar), day);
    EXPECT_EQ(selectedDayAfterClick(day, utc(2019, 9, 8, 20), *calendar), std::nullopt);
    EXPECT_EQ(selectedDayAfterClick(day, std::nullopt, *calendar), std::nullopt);
}

} // namespace
} // namespace ospra
