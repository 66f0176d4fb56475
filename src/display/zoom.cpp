#include "display/zoom.h"

#include <algorithm>
#include <limits>

namespace ospra {

namespace {

constexpr double leastDrag = 0.5; // s, exclusive; a shorter drag is a click

} // namespace

bool framesPhase(ZoomMode mode, JumpPhase phase)
{
    const bool isFall = phase == JumpPhase::freefall || phase == JumpPhase::deployment;
    const bool isCanopy = phase == JumpPhase::canopy;
    switch (mode) {
    case ZoomMode::freefall: return isFall;
    case ZoomMode::canopy: return isCanopy;
    case ZoomMode::freefallAndCanopy: return isFall || isCanopy;
    }
    return false;
}

std::vector<const JumpTrack*> visibleTracks(std::span<const JumpTrack> tracks, const TrackIDs& hidden)
{
    std::vector<const JumpTrack*> visible;
    for (const JumpTrack& track : tracks)
        if (!hidden.contains(track.id))
            visible.push_back(&track);
    return visible;
}

TimeRange phaseTimes(const JumpTrack& track, const JumpPhaseRange& phase)
{
    const std::ptrdiff_t end = std::min(phase.endIndex, std::ssize(track.elapsed) - 1);
    return {.lo = track.elapsed[static_cast<std::size_t>(phase.startIndex)],
            .hi = track.elapsed[static_cast<std::size_t>(end)]};
}

std::optional<TimeRange> zoomRangeFor(ZoomMode mode, std::span<const JumpTrack> tracks, const TrackIDs& hidden)
{
    TimeRange range{.lo = std::numeric_limits<double>::max(), .hi = std::numeric_limits<double>::lowest()};
    for (const JumpTrack* track : visibleTracks(tracks, hidden)) {
        for (const JumpPhaseRange& phase : track->phases) {
            if (!framesPhase(mode, phase.phase))
                continue;
            const TimeRange times = phaseTimes(*track, phase);
            range.lo = std::min(range.lo, times.lo);
            range.hi = std::max(range.hi, times.hi);
        }
    }
    if (!(range.lo < range.hi))
        return std::nullopt;
    return range;
}

std::optional<TimeRange> zoomRangeForDrag(double a, double b)
{
    const TimeRange range{.lo = std::min(a, b), .hi = std::max(a, b)};
    if (!(range.hi - range.lo > leastDrag))
        return std::nullopt;
    return range;
}

} // namespace ospra
