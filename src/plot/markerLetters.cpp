#include "plot/markerLetters.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <numeric>
#include <ranges>
#include <utility>

namespace ospra {

std::vector<double> placeMarkerLetters(std::span<const MarkerLetter> letters, double plotWidth, double gap)
{
    std::vector<std::size_t> order(letters.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t i) { return std::pair(letters[i].rule, i); });

    std::vector<double> left(letters.size());
    double free = -std::numeric_limits<double>::infinity();
    for (const std::size_t i : order) {
        left[i] = std::max(letters[i].rule, free);
        free = left[i] + letters[i].width + gap;
    }

    double limit = std::numeric_limits<double>::infinity();
    for (const std::size_t i : order | std::views::reverse) {
        const auto& [rule, width] = letters[i];
        const double end = rule + width > plotWidth ? rule : plotWidth;
        left[i] = std::min({left[i], end - width, limit - width});
        limit = left[i] - gap;
    }

    free = 0.0;
    for (const std::size_t i : order) {
        left[i] = std::max(left[i], free);
        free = left[i] + letters[i].width + gap;
    }
    return left;
}

} // namespace ospra
