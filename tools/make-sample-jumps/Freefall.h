#pragma once

#include "tools/make-sample-jumps/Place.h"
#include "tools/make-sample-jumps/Random.h"
#include "tools/make-sample-jumps/Trajectory.h"
#include "tools/make-sample-jumps/Wind.h"

#include <vector>

namespace ospra {

enum class JumpStyle { belly, tracking, wingsuit, hopAndPop };

constexpr double flightStep = 0.02; // s, of everything outside the aircraft

/// What a jumper means to do between the aircraft and the open canopy.
struct FreefallPlan {
    JumpStyle style = JumpStyle::belly;
    double fallRate = 53.0;             ///< m/s, the terminal speed of this body lying flat at 2,500 m above the sea
    double pitchHeight = 1200.0;        ///< m above the landing area, where the pilot chute is thrown
    double inflation = 3.3;             ///< s from the first pull of the canopy to its full size
    Vector3 sideways{};                 ///< direction of the first leg of a flight across the sky
    Vector3 openingPoint{};             ///< where the canopy should open; flights across the sky return to it
    Vector3 breakOff{};                 ///< direction away from the group; nought for a jumper alone
    const Trajectory* leader = nullptr; ///< whom to fly with; none for the leader
    Vector3 slot{};                     ///< m from the leader
};

/// A fall from the aircraft to a canopy that has just filled.
struct Freefall {
    Trajectory path{};
    double pitchTime = 0.0; ///< s, when the pilot chute was thrown
};

/// Gravity, quadratic drag and the lift of the body in the air of its height.
/// @param exit how the aircraft moves at the moment of the exit
[[nodiscard]] Freefall fall(const FreefallPlan& plan, const Place& place, const Wind& wind, const Motion& exit,
                            double exitTime, Random random);

} // namespace ospra
