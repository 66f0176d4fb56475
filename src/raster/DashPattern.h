#pragma once

namespace ospra {

/// Lengths along a line, in logical pixels. Solid where either is not above 0.
struct DashPattern {
    double on = 0.0;
    double off = 0.0;

    [[nodiscard]] bool isSolid() const { return !(on > 0.0 && off > 0.0); }
    friend bool operator==(const DashPattern&, const DashPattern&) = default;
};

} // namespace ospra
