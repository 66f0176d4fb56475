#include "overview/overviewTexts.h"

#include "tests/overview/OverviewSupport.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(HeadlineValues, areSixCardsInTheOrderOfTheScreen)
{
    const auto texts = makeDateTexts("en_GB", "Europe/Zurich");
    const auto empty = headlineValues({}, *texts);
    EXPECT_EQ(empty[0].title, "Last Jump");
    EXPECT_EQ(empty[0].value, "-");
    EXPECT_EQ(empty[3].value, "0 days");

    const Instant last = utc(2026, 7, 3, 16, 42);
    const auto values = headlineValues({.visibleJumps = 1'234'567,
                                        .lastJumpDate = last,
                                        .jumpCountThisWeek = 3,
                                        .jumpCountThisMonth = 12,
                                        .streaks = {.current = 1, .best = 5}},
                                       *texts);
    EXPECT_EQ(values[0].value, texts->dateAndTime(last));
    EXPECT_EQ(values[1].title, "This Week");
    EXPECT_EQ(values[1].value, "3");
    EXPECT_EQ(values[2].title, "This Month");
    EXPECT_EQ(values[2].value, "12");
    EXPECT_EQ(values[3].title, "Current Streak");
    EXPECT_EQ(values[3].value, "1 days");
    EXPECT_EQ(values[4].title, "Best Streak");
    EXPECT_EQ(values[4].value, "5 days");
    EXPECT_EQ(values[5].title, "Visible Jumps");
    EXPECT_EQ(values[5].value, "1234567");
}

TEST(OverviewTexts, countJumps)
{
    const auto texts = makeDateTexts("en_GB", "Europe/Zurich");
    const Instant day = utc(2026, 7, 2, 22);
    EXPECT_EQ(selectedDayText(0, day, *texts), "0 jumps on 3 Jul 2026");
    EXPECT_EQ(selectedDayText(1, day, *texts), "1 jump on 3 Jul 2026");
    EXPECT_EQ(selectedDayText(2, day, *texts), "2 jumps on 3 Jul 2026");
    EXPECT_EQ(hoveredDayText({day, 0}, *texts), "No jumps on 3 Jul 2026");
    EXPECT_EQ(hoveredDayText({day, 1}, *texts), "1 jump on 3 Jul 2026");
    EXPECT_EQ(hoveredDayText({day, 12}, *texts), "12 jumps on 3 Jul 2026");
    EXPECT_EQ(jumpCountText(1), "1 jumps");
}

TEST(OverviewTexts, roundAveragesToOneDecimal)
{
    struct Row {
        double average;
        std::string_view text;
    };
    for (const auto& [average, text] : {Row{7.0 / 31.0, "0.2/wk"}, Row{0.25, "0.2/wk"}, Row{0.75, "0.8/wk"},
                                        Row{0.05, "0.1/wk"}, Row{12.0, "12.0/wk"}, Row{99.96, "100.0/wk"}}) {
        SCOPED_TRACE(average);
        EXPECT_EQ(averageText(average), text);
    }
}

} // namespace
} // namespace ospra
