#pragma once

#include "display/chartSeries.h"
#include "display/units.h"
#include "tests/properties/Flights.h"

#include <span>
#include <vector>

namespace ospra::properties {

/// One to four tracks on one time axis, analysed as a load does it. Some fly the same jump a little apart.
[[nodiscard]] std::vector<JumpTrack> makeTracks(Dice& dice, Damage damage);

/// Some tracks, of which some are hidden, as the views meet them.
struct Scene {
    std::vector<JumpTrack> tracks{};
    TrackIDs hidden{};
    std::vector<const JumpTrack*> visible{};
};

[[nodiscard]] Scene makeScene(Dice& dice);

/// A moment that is worth asking for: at a sample, half-way between two, a tolerance away, or anywhere.
[[nodiscard]] double makeMoment(Dice& dice, std::span<const JumpTrack> tracks);
/// From the one to the other of two such moments, the earlier first.
[[nodiscard]] TimeRange makeRange(Dice& dice, std::span<const JumpTrack> tracks);

[[nodiscard]] DisplayUnits makeUnits(Dice& dice);

/// An element by a signed index, which must be one of the list.
[[nodiscard]] inline double at(const std::vector<double>& values, std::ptrdiff_t i)
{
    return values.at(static_cast<std::size_t>(i));
}

} // namespace ospra::properties
