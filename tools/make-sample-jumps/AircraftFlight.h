#pragma once

#include "tools/make-sample-jumps/Place.h"
#include "tools/make-sample-jumps/Random.h"
#include "tools/make-sample-jumps/Trajectory.h"
#include "tools/make-sample-jumps/Wind.h"

namespace ospra {

/// What the pilot is asked to do.
struct AircraftOrder {
    Place place{};
    Wind wind;
    Vector3 exitPoint{};     ///< over which the first jumper leaves
    double exitHeight = 0.0; ///< m above the landing area
};

constexpr double jumpRunAirspeed = 43.0; // m/s

/// The whole flight of a load, from standing at the runway to standing there again: climb in circles over the drop
/// zone, jump run against the wind of the exit height, descent and landing.
/// @return time 0 is when the exit point is passed on the jump run
[[nodiscard]] Trajectory flyAircraft(const AircraftOrder& order, Random random);

} // namespace ospra
