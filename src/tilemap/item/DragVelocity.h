#pragma once

#include "tilemap/Camera.h"

#include <cstdint>
#include <vector>

namespace ospra {

/// How fast a drag goes, from where the pointer was a moment ago.
class DragVelocity {
public:
    void begin(ViewPoint position, std::int64_t milliseconds);
    void move(ViewPoint position, std::int64_t milliseconds);
    /// At the moment of letting go; 0 where the pointer has stood still before.
    /// @return logical pixels a second
    [[nodiscard]] ViewPoint atRelease(std::int64_t milliseconds) const;

private:
    struct Sample {
        ViewPoint position{};
        std::int64_t milliseconds = 0;
    };

    std::vector<Sample> m_samples; // of the last moment, oldest first
};

} // namespace ospra
