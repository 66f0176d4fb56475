#include "analysis/movingMedian.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <limits>
#include <random>

namespace ospra {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

bool strongLess(double a, double b)
{
    return std::strong_order(a, b) < 0;
}

double sortedMedian(std::vector<double> window)
{
    std::ranges::sort(window, strongLess);
    return window[window.size() / 2];
}

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

TEST(MovingMedian, agreesWithSortingEveryWindow)
{
    std::mt19937 random(1);
    // Few different values, so that ties, signs of zero, infinities and NaN meet in one window.
    const std::vector<double> choices{-2, -1, -0.0, 0.0, 1, 2, 3, 4, inf, -inf, nan, -nan};
    for (const std::ptrdiff_t width : {2, 3, 5, 6, 9}) {
        std::vector<double> values(2000);
        for (double& value : values)
            value = choices[random() % choices.size()];

        const std::vector<double> medians = movingMedian(values, width);
        for (std::ptrdiff_t i = 0; i < std::ssize(values); ++i) {
            const auto first = values.begin() + std::max<std::ptrdiff_t>(0, i - width / 2);
            const auto last = values.begin() + std::min(std::ssize(values) - 1, i + width / 2);
            const double expected = sortedMedian({first, last + 1});
            ASSERT_TRUE(std::strong_order(medians[static_cast<std::size_t>(i)], expected) == 0) << width << ' ' << i;
        }
    }
}

} // namespace
} // namespace ospra
