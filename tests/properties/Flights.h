#pragma once

#include "logs/FlySightFile.h"
#include "tests/properties/Dice.h"

#include <vector>

/// Flights of every kind that loggers have seen, and some that none has.
namespace ospra::properties {

using Samples = std::vector<FlySightDataPoint>;

/// What is done to a flight after it was flown. Each may happen or not.
enum class Damage {
    none,
    clock, ///< gaps, equal times, a clock that runs backwards
    values ///< also NaN, infinities and numbers beyond all range
};

/// A jump of any style and rate, a hop-and-pop, a log on the ground, a ride down in the aircraft, several jumps in one
/// log, a few samples, or legs of even flight whose speeds lie exactly on the thresholds of the detection. Never empty.
[[nodiscard]] Samples makeFlight(Dice& dice, Damage damage);

} // namespace ospra::properties
