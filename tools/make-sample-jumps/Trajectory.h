#pragma once

#include "tools/make-sample-jumps/Vector3.h"

#include <algorithm>
#include <vector>

namespace ospra {

/// Where something is and how it moves.
struct Motion {
    Vector3 position{}; ///< m from the landing target
    Vector3 velocity{}; ///< m/s over ground
};

/// A path in even steps of time. Times are seconds since the load's first jumper left the aircraft.
struct Trajectory {
    double start = 0.0; ///< s, time of the first motion
    double step = 0.0;  ///< s
    std::vector<Motion> motions{};

    [[nodiscard]] double end() const { return start + step * static_cast<double>(motions.size() - 1); }

    /// On the straight line between two motions; beyond an end, the motion at that end.
    [[nodiscard]] Motion at(double time) const
    {
        const double last = static_cast<double>(motions.size() - 1);
        const double place = std::clamp((time - start) / step, 0.0, last);
        const auto before = static_cast<std::size_t>(place);
        const auto after = std::min(before + 1, motions.size() - 1);
        const double share = place - static_cast<double>(before);
        const Motion& a = motions[before];
        const Motion& b = motions[after];
        return {.position = a.position * (1.0 - share) + b.position * share,
                .velocity = a.velocity * (1.0 - share) + b.velocity * share};
    }
};

} // namespace ospra
