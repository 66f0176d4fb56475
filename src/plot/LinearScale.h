#pragma once

#include <cmath>
#include <limits>

namespace ospra {

/// Two ends of a range of values; `lo` <= `hi` where nothing else is said.
struct ValueRange {
    double lo = 0.0;
    double hi = 0.0;

    friend bool operator==(const ValueRange&, const ValueRange&) = default;
};

/// The straight line between values and positions in pixels: `domain.lo` lies at `from`, `domain.hi` at `to`.
/// A y scale has its `from` at the bottom, so that values grow upwards.
struct LinearScale {
    ValueRange domain{0.0, 1.0};
    double from = 0.0;
    double to = 1.0;

    /// Whether the domain has a width that can be counted in. Without one there is no position for any value.
    [[nodiscard]] bool isValid() const
    {
        const double width = domain.hi - domain.lo;
        return std::isfinite(width) && width != 0.0 && std::isfinite(from) && std::isfinite(to);
    }

    /// @return the position, also beyond the ends; the middle of the pixels where the scale is not valid
    [[nodiscard]] double pixelAt(double value) const
    {
        if (!isValid())
            return (from + to) / 2.0;
        return from + (value - domain.lo) / (domain.hi - domain.lo) * (to - from);
    }

    /// @return the value, also beyond the ends; NaN where the scale is not valid or has no pixels
    [[nodiscard]] double valueAt(double pixel) const
    {
        if (!isValid() || from == to)
            return std::numeric_limits<double>::quiet_NaN();
        return domain.lo + (pixel - from) / (to - from) * (domain.hi - domain.lo);
    }
};

} // namespace ospra
