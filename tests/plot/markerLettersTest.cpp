#include "plot/markerLetters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace ospra {
namespace {

using testing::ElementsAre;

std::vector<double> place(const std::vector<double>& rules, double plotWidth)
{
    std::vector<MarkerLetter> letters;
    letters.reserve(rules.size());
    for (const double rule : rules)
        letters.push_back({rule, 6.0});
    return placeMarkerLetters(letters, plotWidth, 2.0);
}

TEST(MarkerLetters, standOnTheirRulesWhereThereIsRoom)
{
    EXPECT_THAT(place({10.0, 18.0, 94.0}, 100.0), ElementsAre(10.0, 18.0, 94.0));
    EXPECT_THAT(place({}, 100.0), ElementsAre());
}

TEST(MarkerLetters, moveRightByJustEnough)
{
    // Pitches before saddles, as they are listed; the row is in the order of time.
    EXPECT_THAT(place({50.0, 53.0, 60.0, 52.0, 70.0}, 200.0), ElementsAre(50.0, 66.0, 74.0, 58.0, 82.0));
}

TEST(MarkerLetters, standLeftOfTheirRulesAtTheEnd)
{
    EXPECT_THAT(place({50.0, 97.0}, 100.0), ElementsAre(50.0, 91.0));
    EXPECT_THAT(place({80.0, 90.0, 100.0}, 100.0), ElementsAre(78.0, 86.0, 94.0));
    // Pushed over the end by others, though its own rule is not that near to it.
    EXPECT_THAT(place({88.0, 89.0, 90.0}, 100.0), ElementsAre(78.0, 86.0, 94.0));
}

TEST(MarkerLetters, beginAtTheLeftWhereTheRowIsTooNarrow)
{
    EXPECT_THAT(place({1.0, 2.0, 3.0}, 10.0), ElementsAre(0.0, 8.0, 16.0));
}

} // namespace
} // namespace ospra
