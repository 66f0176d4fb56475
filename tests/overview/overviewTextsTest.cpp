#include "overview/overviewTexts.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(HeadlineValues, areSixCardsInTheOrderOfTheScreen)
{
    const auto texts = makeDateTexts("en_GB", "Europe/Zurich");
    const auto cards = [&](const OverviewAggregates& overview) {
        std::string line;
        for (const auto& card : headlineValues(overview, *texts))
            line += std::string(card.title) + "=" + card.value + "|";
        return line;
    };
    EXPECT_EQ(cards({}),
              "Last Jump=-|This Week=0|This Month=0|Current Streak=0 days|Best Streak=0 days|Visible Jumps=0|");
    const Instant last = utc(2026, 7, 3, 16, 42);
    EXPECT_EQ(cards({.visibleJumps = 1'234'567,
                     .lastJumpDate = last,
                     .jumpCountThisWeek = 3,
                     .jumpCountThisMonth = 12,
                     .streaks = {.current = 1, .best = 5}}),
              "Last Jump=" + texts->dateAndTime(last) +
                  "|This Week=3|This Month=12|Current Streak=1 days|Best Streak=5 days|Visible Jumps=1234567|");
}

TEST(OverviewTexts, countJumps)
{
    const auto texts = makeDateTexts("en_GB", "Europe/Zurich");
    const Instant day = utc(2026, 7, 2, 22);
    EXPECT_EQ(selectedDayText(0, day, *texts), "0 jumps on 3 Jul 2026");
    EXPECT_EQ(selectedDayText(1, day, *texts), "1 jump on 3 Jul 2026");
    EXPECT_EQ(hoveredDayText({day, 0}, *texts), "No jumps on 3 Jul 2026");
    EXPECT_EQ(hoveredDayText({day, 1}, *texts), "1 jump on 3 Jul 2026");
    EXPECT_EQ(hoveredDayText({day, 12}, *texts), "12 jumps on 3 Jul 2026");
    EXPECT_EQ(jumpCountText(1), "1 jumps");
}

} // namespace
} // namespace ospra
