#pragma once

#include "tools/make-sample-jumps/AircraftFlight.h"
#include "tools/make-sample-jumps/CanopyFlight.h"
#include "tools/make-sample-jumps/Freefall.h"
#include "tools/make-sample-jumps/Person.h"

#include <vector>

namespace ospra {

/// What happened to one jumper of a load, as it truly was. Times are seconds since the first exit.
struct JumpFlight {
    double exitTime = 0.0;
    double pitchTime = 0.0;
    double openTime = 0.0;
    double landingTime = 0.0;
    Trajectory outside{}; ///< from the exit on
};

/// One take-off of the aircraft with those aboard whose logs are written.
struct Load {
    Trajectory aircraft{};
    std::vector<JumpFlight> flights{}; ///< in the order of the people handed in; the first leads the group
};

/// A load to be flown.
struct LoadOrder {
    Place place{};
    JumpStyle style = JumpStyle::belly;
    std::vector<Person> people{}; ///< at least one
};

[[nodiscard]] Load flyLoad(const LoadOrder& order, const Random& random);

/// A jumper's motion in and out of the aircraft.
[[nodiscard]] Motion motionAt(const Load& load, const JumpFlight& flight, double time);

} // namespace ospra
