#include "display/mapData.h"

#include "platform/Uuid.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>
#include <tuple>
#include <utility>

namespace ospra {

namespace {

constexpr double unfocused = 0.2;          // opacity of a phase that the zoom leaves out
constexpr double leastFocusedShare = 0.25; // of a phase's time, inclusive
constexpr double regionPadding = 1.3;      // factor on each span
constexpr double leastSpan = 0.002;        // degrees

constexpr std::ptrdiff_t jumpRunSamples = 10; // before the exit that tell the aircraft's direction

// Cosine and sine of the angle that 2,000 m span on a sphere of radius 6,371 km.
constexpr double jumpRunCosine = 0.9999999507263446;
constexpr double jumpRunSine = 0.00031392245599605966;

constexpr double phaseOpacity(JumpPhase phase)
{
    switch (phase) {
    case JumpPhase::aircraft: return 0.4;
    case JumpPhase::freefall: return 1.0;
    case JumpPhase::deployment: return 0.9;
    case JumpPhase::canopy: return 0.7;
    case JumpPhase::ground: return 0.3;
    }
    return 1.0;
}

/// Smallest and largest of the finite values seen.
struct Extent {
    double least = std::numeric_limits<double>::infinity();
    double greatest = -std::numeric_limits<double>::infinity();

    void add(double value)
    {
        if (!std::isfinite(value))
            return;
        least = std::min(least, value);
        greatest = std::max(greatest, value);
    }
    [[nodiscard]] bool empty() const { return greatest < least; }
    [[nodiscard]] double middle() const { return std::midpoint(least, greatest); }
    [[nodiscard]] double span() const { return std::max((greatest - least) * regionPadding, leastSpan); }
};

PhasePath pathOf(const JumpTrack& track, const JumpPhaseRange& phase)
{
    std::vector<Coordinate> path;
    path.reserve(static_cast<std::size_t>(phase.endIndex - phase.startIndex + 1));
    for (std::ptrdiff_t i = phase.startIndex; i <= phase.endIndex; ++i)
        path.push_back(track.file.dataPoints[static_cast<std::size_t>(i)].coordinate);
    return std::make_shared<const std::vector<Coordinate>>(std::move(path));
}

std::string segmentID(const JumpTrack& track, const JumpPhaseRange& phase)
{
    return uuidString(track.id) + '-' + std::string(displayName(phase.phase)) + '-' + std::to_string(phase.startIndex) +
           '-' + std::to_string(phase.endIndex);
}

Coordinate inRadians(Coordinate place)
{
    return {.latitude = place.latitude * std::numbers::pi / 180.0,
            .longitude = place.longitude * std::numbers::pi / 180.0};
}

/// Initial great-circle bearing (Aviation Formulary), radians from north. Places in radians.
double bearing(Coordinate from, Coordinate to)
{
    const double east = to.longitude - from.longitude;
    return std::atan2(std::sin(east) * std::cos(to.latitude),
                      std::cos(from.latitude) * std::sin(to.latitude) -
                          std::sin(from.latitude) * std::cos(to.latitude) * std::cos(east));
}

/// The place half a jump run line away (Aviation Formulary), degrees.
/// @param from in radians
Coordinate endOfJumpRun(Coordinate from, double towards)
{
    const double sine =
        std::sin(from.latitude) * jumpRunCosine + std::cos(from.latitude) * jumpRunSine * std::cos(towards);
    const double latitude = std::asin(std::clamp(sine, -1.0, 1.0)); // at a pole rounding may lead past 1
    const double longitude = from.longitude + std::atan2(std::sin(towards) * jumpRunSine * std::cos(from.latitude),
                                                         jumpRunCosine - std::sin(from.latitude) * std::sin(latitude));
    return {.latitude = latitude * 180.0 / std::numbers::pi, .longitude = longitude * 180.0 / std::numbers::pi};
}

const TrackPaths& pathsOf(const JumpTrack& track, std::span<const JumpTrack> tracks, std::span<const TrackPaths> paths)
{
    return paths[static_cast<std::size_t>(&track - tracks.data())];
}

/// The indices among which all samples of the range are, the second behind the last.
std::pair<std::size_t, std::size_t> samplesToSearch(const JumpTrack& track, bool timeAscends, TimeRange range)
{
    if (!timeAscends)
        return {0, track.elapsed.size()};
    const auto first = std::ranges::lower_bound(track.elapsed, range.lo);
    const auto end = std::ranges::upper_bound(first, track.elapsed.end(), range.hi);
    return {static_cast<std::size_t>(first - track.elapsed.begin()),
            static_cast<std::size_t>(end - track.elapsed.begin())};
}

bool samePlaces(const PhasePath& a, const PhasePath& b)
{
    return a == b || (a && b && *a == *b);
}

} // namespace

bool operator==(const VisibleMapSegment& a, const VisibleMapSegment& b)
{
    return std::tie(a.id, a.phase, a.isPrimary, a.color, a.opacity) ==
               std::tie(b.id, b.phase, b.isPrimary, b.color, b.opacity) &&
           samePlaces(a.coordinates, b.coordinates);
}

double focusFactor(const JumpTrack& track, const JumpPhaseRange& phase, const Zoom& zoom)
{
    if (zoom.mode)
        return framesPhase(*zoom.mode, phase.phase) ? 1.0 : unfocused;
    if (!zoom.range)
        return 1.0;
    const TimeRange times = phaseTimes(track, phase);
    const double duration = times.hi - times.lo;
    if (!(duration > 0.0))
        return 1.0;
    const double overlap = std::max(std::min(zoom.range->hi, times.hi) - std::max(zoom.range->lo, times.lo), 0.0);
    return overlap / duration >= leastFocusedShare ? 1.0 : unfocused;
}

std::vector<TrackPaths> buildMapPaths(std::span<const JumpTrack> tracks)
{
    std::vector<TrackPaths> paths;
    for (const JumpTrack& track : tracks) {
        TrackPaths& kept = paths.emplace_back();
        kept.timeAscends = std::ranges::is_sorted(track.elapsed);
        for (const JumpPhaseRange& phase : track.phases)
            kept.phases.push_back(pathOf(track, phase));
    }
    return paths;
}

std::vector<VisibleMapSegment> visibleMapSegments(std::span<const JumpTrack> tracks, std::span<const TrackPaths> paths,
                                                  const TrackIDs& hidden, const Zoom& zoom)
{
    std::vector<VisibleMapSegment> segments;
    const std::vector<const JumpTrack*> visible = visibleTracks(tracks, hidden);
    for (const JumpTrack* track : visible) {
        const std::vector<PhasePath>& trackPaths = pathsOf(*track, tracks, paths).phases;
        for (std::size_t i = 0; i < trackPaths.size(); ++i) {
            if (trackPaths[i]->size() < 2)
                continue;
            const JumpPhaseRange& phase = track->phases[i];
            segments.push_back({.id = segmentID(*track, phase),
                                .phase = phase.phase,
                                .isPrimary = track == visible.front(),
                                .color = track->jumperColor,
                                .opacity = std::min(phaseOpacity(phase.phase), focusFactor(*track, phase, zoom)),
                                .coordinates = trackPaths[i]});
        }
    }
    return segments;
}

std::optional<MapRegion> visibleMapRegion(std::span<const JumpTrack> tracks, std::span<const TrackPaths> paths,
                                          const TrackIDs& hidden, const std::optional<TimeRange>& range)
{
    if (!range)
        return std::nullopt;

    Extent latitudes;
    Extent longitudes;
    for (const JumpTrack* track : visibleTracks(tracks, hidden)) {
        const auto [first, end] = samplesToSearch(*track, pathsOf(*track, tracks, paths).timeAscends, *range);
        for (std::size_t i = first; i < end; ++i) {
            if (!(range->lo <= track->elapsed[i] && track->elapsed[i] <= range->hi))
                continue;
            latitudes.add(track->file.dataPoints[i].coordinate.latitude);
            longitudes.add(track->file.dataPoints[i].coordinate.longitude);
        }
    }
    if (latitudes.empty() || longitudes.empty())
        return std::nullopt;
    return MapRegion{.center = {.latitude = latitudes.middle(), .longitude = longitudes.middle()},
                     .latitudeDelta = latitudes.span(),
                     .longitudeDelta = longitudes.span()};
}

std::optional<JumpRunLine> jumpRunLine(std::span<const JumpTrack> tracks)
{
    if (tracks.empty())
        return std::nullopt;
    const JumpTrack& primary = tracks.front();
    const JumpPhaseRange* aircraft = findPhase(primary.phases, JumpPhase::aircraft);
    if (!aircraft)
        return std::nullopt;

    const std::ptrdiff_t before = std::max(aircraft->endIndex - jumpRunSamples, aircraft->startIndex);
    if (before >= aircraft->endIndex)
        return std::nullopt;
    const auto placeAt = [&](std::ptrdiff_t index) {
        return inRadians(primary.file.dataPoints[static_cast<std::size_t>(index)].coordinate);
    };
    const Coordinate anchor = placeAt(aircraft->endIndex);
    const double ahead = bearing(placeAt(before), anchor);
    return JumpRunLine{.start = endOfJumpRun(anchor, ahead + std::numbers::pi), .end = endOfJumpRun(anchor, ahead)};
}

} // namespace ospra
