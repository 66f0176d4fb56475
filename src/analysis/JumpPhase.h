#pragma once

#include "platform/Uuid.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace ospra {

/// The parts of a jump, in the order in which they are flown.
enum class JumpPhase { aircraft, freefall, deployment, canopy, ground };

inline constexpr std::array allJumpPhases{JumpPhase::aircraft, JumpPhase::freefall, JumpPhase::deployment,
                                          JumpPhase::canopy, JumpPhase::ground};

/// The name on screen.
[[nodiscard]] constexpr std::string_view displayName(JumpPhase phase)
{
    switch (phase) {
    case JumpPhase::aircraft: return "Aircraft";
    case JumpPhase::freefall: return "Freefall";
    case JumpPhase::deployment: return "Deployment";
    case JumpPhase::canopy: return "Canopy";
    case JumpPhase::ground: return "Ground";
    }
    return "";
}

/// One phase of one log. Neighbouring ranges share their boundary sample.
struct JumpPhaseRange {
    Uuid id{};
    JumpPhase phase = JumpPhase::aircraft;
    std::ptrdiff_t startIndex = 0; ///< first sample of the phase
    std::ptrdiff_t endIndex = 0;   ///< last sample of the phase, inclusive; always above `startIndex`
};

} // namespace ospra
