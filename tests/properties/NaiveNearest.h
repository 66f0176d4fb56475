#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

namespace ospra::naive {

/// The value nearest to `seconds` by a walk over all values: the first value that is not below it, or the one before
/// that. Of two equally near the later counts unless `earlierOnTie`. Where the values do not ascend a walk has no
/// meaning, and what a search by halves finds is right by definition.
inline std::size_t nearest(const std::vector<double>& values, double seconds, bool earlierOnTie)
{
    if (values.size() < 2)
        return 0;
    bool ascends = true;
    for (std::size_t i = 1; i < values.size(); ++i)
        ascends = ascends && values[i - 1] <= values[i];
    std::size_t lo = 0;
    if (ascends) {
        while (lo < values.size() - 1 && values[lo] < seconds)
            ++lo;
    } else {
        std::size_t hi = values.size() - 1;
        while (lo < hi) {
            const std::size_t mid = (lo + hi) / 2;
            if (values[mid] < seconds)
                lo = mid + 1;
            else
                hi = mid;
        }
    }
    if (lo == 0)
        return 0;
    const double before = std::fabs(values[lo - 1] - seconds);
    const double behind = std::fabs(values[lo] - seconds);
    return before < behind || (earlierOnTie && before == behind) ? lo - 1 : lo;
}

} // namespace ospra::naive
