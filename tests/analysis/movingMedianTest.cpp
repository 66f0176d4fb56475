#include "analysis/movingMedian.h"

#include <gtest/gtest.h>

#include <limits>

namespace ospra {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

TEST(MovingMedian, shrinksAtTheEndsAndTakesTheUpperMiddle)
{
    struct Row {
        std::vector<double> values;
        std::ptrdiff_t width;
        std::vector<double> medians;
    };
    for (const auto& [values, width, medians] : {
             Row{{}, 5, {}},
             Row{{3, 1, 2}, 1, {3, 1, 2}},
             Row{{3, 1, 2}, -5, {3, 1, 2}},
             Row{{4, 1}, 5, {4, 4}},
             Row{{1, 9, 2, 8, 3, 7, 4}, 5, {2, 8, 3, 7, 4, 7, 4}},
             Row{{1, 9, 2, 8, 3, 7, 4}, 4, {2, 8, 3, 7, 4, 7, 4}},
             Row{{1, 9, 2, 8}, 3, {9, 2, 8, 8}},
             Row{{1, 9, 2, 8}, PTRDIFF_MAX, {8, 8, 8, 8}},
         }) {
        SCOPED_TRACE(width);
        EXPECT_EQ(movingMedian(values, width), medians);
    }
}

} // namespace
} // namespace ospra
