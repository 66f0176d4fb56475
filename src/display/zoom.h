#pragma once

#include "analysis/JumpTrack.h"
#include "display/chartSeries.h"

#include <optional>
#include <span>
#include <vector>

namespace ospra {

/// The named windows of time.
enum class ZoomMode { freefall, canopy, freefallAndCanopy };

/// What the user has zoomed to: nothing, a mode with the range of its phases, or a range drawn by hand.
struct Zoom {
    std::optional<ZoomMode> mode{};
    std::optional<TimeRange> range{};

    friend bool operator==(const Zoom&, const Zoom&) = default;
};

/// Whether a zoom frames a phase: freefall takes the deployment with it.
[[nodiscard]] bool framesPhase(ZoomMode mode, JumpPhase phase);

/// The tracks that are not hidden, in order. The pointers live as long as `tracks`.
[[nodiscard]] std::vector<const JumpTrack*> visibleTracks(std::span<const JumpTrack> tracks, const TrackIDs& hidden);

/// When a phase begins and ends, seconds on the common axis. Where the clock ran backwards `hi` may lie below `lo`.
/// @param phase of this track
[[nodiscard]] TimeRange phaseTimes(const JumpTrack& track, const JumpPhaseRange& phase);

/// From the earliest start to the latest end of the mode's phases among the visible tracks; absent if none has any.
[[nodiscard]] std::optional<TimeRange> zoomRangeFor(ZoomMode mode, std::span<const JumpTrack> tracks,
                                                    const TrackIDs& hidden);

/// The window of a drag between two moments in any order; absent for a drag of 0.5 s or less.
[[nodiscard]] std::optional<TimeRange> zoomRangeForDrag(double a, double b);

} // namespace ospra
