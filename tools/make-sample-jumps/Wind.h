#pragma once

#include "tools/make-sample-jumps/Random.h"
#include "tools/make-sample-jumps/Vector3.h"

#include <array>

namespace ospra {

/// The wind of one load: layers that grow stronger and veer with height, straight lines between them.
class Wind {
public:
    explicit Wind(Random random);

    /// @param height m above the landing area
    /// @return m/s, where the air goes to
    [[nodiscard]] Vector3 at(double height) const;

    /// The mean from the ground to a height.
    [[nodiscard]] Vector3 meanBelow(double height) const;

    /// The direction against the wind at the ground, in which people land.
    [[nodiscard]] Vector3 upwind() const;

private:
    static constexpr std::array heights{0.0, 300.0, 1000.0, 2000.0, 3000.0, 4500.0}; // m
    std::array<Vector3, heights.size()> m_layers{};
};

} // namespace ospra
