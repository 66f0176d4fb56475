#pragma once

#include "analysis/JumpTrack.h"
#include "display/chartSeries.h"

#include <optional>
#include <span>
#include <vector>

namespace ospra {

/// The named windows of time.
enum class ZoomMode { freefall, canopy, freefallAndCanopy };

/// Whether a zoom frames a phase: freefall takes the deployment with it.
[[nodiscard]] bool framesPhase(ZoomMode mode, JumpPhase phase);

/// The tracks that are not hidden, in order. The pointers live as long as `tracks`.
[[nodiscard]] std::vector<const JumpTrack*> visibleTracks(std::span<const JumpTrack> tracks, const TrackIDs& hidden);

/// From the earliest start to the latest end of the mode's phases among the visible tracks; absent if none has any.
[[nodiscard]] std::optional<TimeRange> zoomRangeFor(ZoomMode mode, std::span<const JumpTrack> tracks,
                                                    const TrackIDs& hidden);

/// The window of a drag between two moments in any order; absent for a drag of 0.5 s or less.
[[nodiscard]] std::optional<TimeRange> zoomRangeForDrag(double a, double b);

} // namespace ospra
