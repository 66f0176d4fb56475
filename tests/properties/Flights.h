#pragma once

#include "analysis/JumpTrack.h"
#include "tests/properties/Dice.h"

#include <span>
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

/// One to four tracks on one time axis, analysed as a load does it. Some fly the same jump a little apart.
[[nodiscard]] std::vector<JumpTrack> makeTracks(Dice& dice, Damage damage);

/// A moment that is worth asking for: at a sample, half-way between two, a tolerance away, or anywhere.
[[nodiscard]] double makeMoment(Dice& dice, std::span<const JumpTrack> tracks);

} // namespace ospra::properties
