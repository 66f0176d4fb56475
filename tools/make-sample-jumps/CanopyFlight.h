#pragma once

#include "tools/make-sample-jumps/Random.h"
#include "tools/make-sample-jumps/Trajectory.h"
#include "tools/make-sample-jumps/Wind.h"

namespace ospra {

/// How a canopy flies with its jumper, and where it is to land.
struct CanopyPlan {
    double drive = 12.0;        ///< m/s through the air at full flight
    double sink = 4.4;          ///< m/s at full flight
    double pattern = 1.0;       ///< 1 for right turns in the landing pattern, -1 for left ones
    Vector3 landingPoint{};     ///< m from the target
    double timeOnGround = 90.0; ///< s from the landing to the end of the log
};

/// A flight under canopy from its opening on, the landing, and the walk back.
struct CanopyFlight {
    Trajectory path{};
    double landingTime = 0.0; ///< s, when the feet touched down
};

/// @param open the motion of the canopy just filled
[[nodiscard]] CanopyFlight flyCanopy(const CanopyPlan& plan, const Wind& wind, const Motion& open, double openTime,
                                     Random random);

} // namespace ospra
