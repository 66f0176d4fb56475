#include "display/hover.h"

#include "display/nearest.h"
#include "display/zoom.h"

#include <cmath>
#include <utility>

namespace ospra {

namespace {

constexpr double hoverTolerance = 2.0; // s, exclusive; a sample further away is no reading
constexpr const char* noReading = "-";

/// The value of the point nearest to the moment, the earlier of two equally near; absent if it is too far away.
/// @param points not empty
std::optional<double> reading(const ChartPoints& points, double seconds)
{
    const ChartPoint& point =
        points[static_cast<std::size_t>(nearestBy(points, seconds, Tie::earlier, &ChartPoint::seconds))];
    if (!(std::abs(point.seconds - seconds) < hoverTolerance))
        return std::nullopt;
    return point.value;
}

/// A row for a visible track of either kind.
template <typename Track>
HoverRow rowOf(const Track& track, std::string value)
{
    if (track.isPrimary)
        return {.name = "Me", .color = Color::primaryTrack, .value = std::move(value)};
    return {.name = track.jumperName, .color = track.jumperColor, .value = std::move(value)};
}

/// A marker for each visible track for which `indexOf` finds a sample.
template <typename IndexOf>
std::vector<ChartMarker> markers(std::span<const JumpTrack> tracks, const TrackIDs& hidden, IndexOf indexOf)
{
    std::vector<ChartMarker> result;
    const std::vector<const JumpTrack*> visible = visibleTracks(tracks, hidden);
    for (const JumpTrack* track : visible) {
        const std::optional<std::ptrdiff_t> index = indexOf(*track);
        if (index && *index >= 0 && *index < std::ssize(track->elapsed))
            result.push_back({.seconds = track->elapsed[static_cast<std::size_t>(*index)],
                              .color = track == visible.front() ? Color::primaryTrack : track->jumperColor});
    }
    return result;
}

} // namespace

double snappedSeconds(std::span<const JumpTrack> tracks, double seconds)
{
    if (tracks.empty() || tracks.front().elapsed.empty())
        return seconds;
    const std::vector<double>& elapsed = tracks.front().elapsed;
    return elapsed[static_cast<std::size_t>(nearestIndex(elapsed, seconds))];
}

std::vector<HoverRow> hoveredValues(std::span<const VisibleTrackData> tracks, DataSeries series,
                                    std::optional<double> hoveredSeconds, DisplayUnits units)
{
    std::vector<HoverRow> rows;
    if (!hoveredSeconds)
        return rows;
    for (const VisibleTrackData& track : tracks) {
        if (track.seriesData[series].empty())
            continue;
        const std::optional<double> value = reading(track.seriesData[series], *hoveredSeconds);
        rows.push_back(rowOf(track, value ? formatSeriesValue(series, *value, units) : noReading));
    }
    return rows;
}

std::vector<HoverRow> hoveredDistanceValues(std::span<const CompanionDistanceData> companions, DistanceSeries series,
                                            std::optional<double> hoveredSeconds, UnitSystem system)
{
    std::vector<HoverRow> rows;
    if (!hoveredSeconds)
        return rows;
    for (const CompanionDistanceData& companion : companions) {
        if (companion.data[series].empty())
            continue;
        const std::optional<double> value = reading(companion.data[series], *hoveredSeconds);
        rows.push_back({.name = companion.companionName,
                        .color = companion.companionColor,
                        .value = value ? formatDistance(*value, system) : noReading});
    }
    return rows;
}

std::vector<HoverRow> hoveredHorizontalValues(std::span<const VisibleHorizontalDistanceTrackData> tracks,
                                              std::optional<double> hoveredSeconds, UnitSystem system)
{
    std::vector<HoverRow> rows;
    if (!hoveredSeconds)
        return rows;
    for (const VisibleHorizontalDistanceTrackData& track : tracks) {
        if (track.traveled.empty() || track.fromExit.empty())
            continue;
        const std::optional<double> traveled = reading(track.traveled, *hoveredSeconds);
        const std::optional<double> fromExit = reading(track.fromExit, *hoveredSeconds);
        rows.push_back(rowOf(track, traveled && fromExit ? "Trv " + formatDistance(*traveled, system) + "  Exit " +
                                                               formatDistance(*fromExit, system)
                                                         : noReading));
    }
    return rows;
}

std::vector<std::optional<std::ptrdiff_t>> hoveredPoints(std::span<const JumpTrack> tracks, const TrackIDs& hidden,
                                                         std::optional<double> hoveredSeconds)
{
    std::vector<std::optional<std::ptrdiff_t>> indices;
    for (const JumpTrack* track : visibleTracks(tracks, hidden)) {
        std::optional<std::ptrdiff_t>& found = indices.emplace_back();
        if (!hoveredSeconds || track->elapsed.empty())
            continue;
        const std::ptrdiff_t index = nearestIndex(track->elapsed, *hoveredSeconds);
        if (std::abs(track->elapsed[static_cast<std::size_t>(index)] - *hoveredSeconds) < hoverTolerance)
            found = index;
    }
    return indices;
}

std::optional<std::string> hoveredTimeLabel(std::span<const JumpTrack> tracks, std::optional<double> hoveredSeconds)
{
    if (!hoveredSeconds || tracks.empty())
        return std::nullopt;
    const JumpPhaseRange* freefall = findPhase(tracks.front().phases, JumpPhase::freefall);
    if (!freefall)
        return std::nullopt;
    const double sinceExit = *hoveredSeconds - phaseTimes(tracks.front(), *freefall).lo;
    const std::optional<std::int64_t> seconds = wholeSeconds(sinceExit);
    if (sinceExit < 0.0 || !seconds)
        return std::nullopt;
    return *seconds < 60 ? "T+" + std::to_string(*seconds) + "s" : "T+" + minutesAndSeconds(*seconds);
}

std::vector<ChartMarker> pitchMarkers(std::span<const JumpTrack> tracks, const TrackIDs& hidden)
{
    return markers(tracks, hidden, [](const JumpTrack& track) {
        return track.statistics ? track.statistics->pitchIndex : std::nullopt;
    });
}

std::vector<ChartMarker> saddleMarkers(std::span<const JumpTrack> tracks, const TrackIDs& hidden)
{
    return markers(tracks, hidden, [](const JumpTrack& track) -> std::optional<std::ptrdiff_t> {
        const JumpPhaseRange* canopy = findPhase(track.phases, JumpPhase::canopy);
        return canopy ? std::optional(canopy->startIndex) : std::nullopt;
    });
}

} // namespace ospra
