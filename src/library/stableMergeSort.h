#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace ospra {

/// Sorts by merging halves. Unlike `std::stable_sort` it is defined for any comparison, also for one that is no strict
/// weak order: it never leaves the bounds, makes at most n comparisons for each doubling up to n, and as long as no two
/// items come before each other it leaves no item directly behind one that it comes before. Items of which neither
/// comes before the other keep their order in a comparison that is a strict weak order.
/// @param isBefore called with two items, tells whether the first comes before the second
template <class Item, class IsBefore>
void stableMergeSort(std::vector<Item>& items, const IsBefore& isBefore)
{
    std::vector<Item> merged(items.size());
    const std::size_t size = items.size();
    for (std::size_t width = 1; width < size; width *= 2) {
        for (std::size_t begin = 0; begin < size; begin += 2 * width) {
            std::size_t left = begin;
            const std::size_t middle = std::min(begin + width, size);
            std::size_t right = middle;
            const std::size_t end = std::min(middle + width, size);
            for (std::size_t out = begin; out < end; ++out) {
                const bool takeRight = left == middle || (right < end && isBefore(items[right], items[left]));
                merged[out] = std::move(items[takeRight ? right++ : left++]);
            }
        }
        std::swap(items, merged);
    }
}

} // namespace ospra
