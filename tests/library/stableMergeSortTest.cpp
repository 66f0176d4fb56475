#include "library/stableMergeSort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace ospra {
namespace {

TEST(StableMergeSort, keepsTheOrderOfEqualItems)
{
    std::mt19937 random(1);
    for (std::size_t size = 0; size < 70; ++size) {
        std::vector<std::pair<unsigned, std::size_t>> items(size);
        for (std::size_t i = 0; i < size; ++i)
            items[i] = {static_cast<unsigned>(random() % 8), i};
        auto expected = items;
        std::sort(expected.begin(), expected.end()); // by both numbers, the second being the first order
        stableMergeSort(items, [](const auto& a, const auto& b) { return a.first < b.first; });
        EXPECT_EQ(items, expected) << size;
    }
}

TEST(StableMergeSort, isDefinedForComparisonsThatRunInCircles)
{
    std::mt19937 random(2);
    for (const unsigned size : {3U, 17U, 64U, 1000U}) {
        std::vector<unsigned> items(size);
        std::iota(items.begin(), items.end(), 0U);
        std::shuffle(items.begin(), items.end(), random);
        // Rock, paper, scissors.
        const auto beats = [](unsigned a, unsigned b) { return (a + 1) % 3 == b % 3; };
        stableMergeSort(items, beats);
        for (std::size_t i = 1; i < items.size(); ++i)
            EXPECT_FALSE(beats(items[i], items[i - 1])) << i;
        std::sort(items.begin(), items.end());
        for (unsigned i = 0; i < size; ++i)
            EXPECT_EQ(items[i], i);
    }
}

TEST(StableMergeSort, losesNothingWhenEachComesBeforeTheOther)
{
    std::vector<int> items{5, 3, 8, 1, 9, 2, 7};
    std::size_t comparisons = 0;
    stableMergeSort(items, [&comparisons](int, int) { return ++comparisons > 0; });
    EXPECT_LE(comparisons, 7U * 3U);
    std::sort(items.begin(), items.end());
    EXPECT_EQ(items, (std::vector<int>{1, 2, 3, 5, 7, 8, 9}));
}

} // namespace
} // namespace ospra
