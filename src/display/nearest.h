#pragma once

#include <cmath>
#include <cstddef>
#include <functional>

namespace ospra {

/// Which of two values at the same distance is the nearest.
enum class Tie { earlier, later };

/// The index of the value nearest to `seconds` by binary search.
/// @param values a random-access list, ascending by `secondsOf`; on other lists the result is in bounds, but need not
///     be the nearest
/// @return 0 for fewer than two values
template <typename Values, typename SecondsOf = std::identity>
[[nodiscard]] std::ptrdiff_t nearestBy(const Values& values, double seconds, Tie tie, SecondsOf secondsOf = {})
{
    const auto at = [&](std::ptrdiff_t i) { return std::invoke(secondsOf, values[static_cast<std::size_t>(i)]); };
    std::ptrdiff_t lo = 0;
    std::ptrdiff_t hi = static_cast<std::ptrdiff_t>(values.size()) - 1;
    while (lo < hi) {
        const std::ptrdiff_t middle = lo + (hi - lo) / 2;
        if (at(middle) < seconds)
            lo = middle + 1;
        else
            hi = middle;
    }
    if (lo == 0)
        return 0;
    const double before = std::abs(at(lo - 1) - seconds);
    const double behind = std::abs(at(lo) - seconds);
    const bool isBefore = tie == Tie::earlier ? before <= behind : before < behind;
    return isBefore ? lo - 1 : lo;
}

} // namespace ospra
