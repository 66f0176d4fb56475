#include "analysis/movingMedian.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(MovingMedian, shrinksAtTheEndsAndTakesTheUpperMiddle)
{
    const std::vector<double> values{1, 9, 2, 8};
    EXPECT_EQ(movingMedian(values, 3), (std::vector<double>{9, 2, 8, 8}));
    EXPECT_EQ(movingMedian(values, PTRDIFF_MAX), (std::vector<double>{8, 8, 8, 8}));
}

} // namespace
} // namespace ospra
