#pragma once

#include "analysis/JumpTrack.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ospra {

/// How a jumper falls: flat, head or feet first, or in a wingsuit.
enum class FlightStyle { belly, freefly, wingsuit };

/// What a synthetic jump looks like. A test names only what matters to it.
struct JumpPlan {
    double rate = 5.0;               ///< samples per second
    double climbSeconds = 120.0;     ///< from the ground to the exit, in the aircraft
    double exitAltitude = 4000.0;    ///< m above the ground
    double openingAltitude = 1200.0; ///< m above the ground, where the deployment begins
    double groundElevation = 450.0;  ///< m MSL
    double groundSeconds = 30.0;     ///< standing about after the landing
    FlightStyle style = FlightStyle::belly;
    Coordinate start{.latitude = 47.0, .longitude = 8.0};
    double startSeconds = 1.7e9; ///< of the first sample, since 1970
};

/// Flies the plan: a straight climb to the east, a fall with drag, an opening of about three seconds, a spiral under
/// canopy, and standing still. A usable fix throughout.
[[nodiscard]] std::vector<FlySightDataPoint> makeJump(const JumpPlan& plan = {});

/// A default jump at the rate that gives it about so many samples.
[[nodiscard]] std::vector<FlySightDataPoint> makeJumpOf(std::int64_t samples, JumpPlan plan = {});

/// An analysed track of the samples, whether flown by `makeJump` or made by hand. Its time axis begins at the first
/// sample of a default plan, so that a later `startSeconds` gives a logger that was switched on later.
[[nodiscard]] JumpTrack makeTrack(std::vector<FlySightDataPoint> samples, std::string name = "Ada",
                                  Color color = Color::white);

/// A track of bare samples at these seconds, for tests that set values and phases by hand.
[[nodiscard]] JumpTrack makeBareTrack(std::vector<double> elapsed, std::vector<JumpPhaseRange> phases = {},
                                      std::string name = "Ada", Color color = Color::white);

} // namespace ospra
