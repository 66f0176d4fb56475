#include "plot/markerLetters.h"

#include <gtest/gtest.h>

#include <vector>

namespace ospra {
namespace {

TEST(MarkerLetters, standOnTheirRulesOrAsNearAsThereIsRoom)
{
    struct Row {
        const char* name;
        std::vector<double> rules;
        double plotWidth;
        std::vector<double> places;
    };
    for (const auto& [name, rules, plotWidth, places] : {
             Row{"room for all", {10.0, 18.0, 94.0}, 100.0, {10.0, 18.0, 94.0}},
             Row{"none", {}, 100.0, {}},
             Row{"not in the order of time", {50.0, 53.0, 60.0, 52.0, 70.0}, 200.0, {50.0, 66.0, 74.0, 58.0, 82.0}},
             Row{"left of its rule at the end", {50.0, 97.0}, 100.0, {50.0, 91.0}},
             Row{"all left of their rules", {80.0, 90.0, 100.0}, 100.0, {78.0, 86.0, 94.0}},
             Row{"pushed over the end by others", {88.0, 89.0, 90.0}, 100.0, {78.0, 86.0, 94.0}},
             Row{"too narrow a plot", {1.0, 2.0, 3.0}, 10.0, {0.0, 8.0, 16.0}},
         }) {
        SCOPED_TRACE(name);
        std::vector<MarkerLetter> letters;
        for (const double rule : rules)
            letters.push_back({rule, 6.0});
        EXPECT_EQ(placeMarkerLetters(letters, plotWidth, 2.0), places);
    }
}

} // namespace
} // namespace ospra
