#pragma once

#include "analysis/JumpTrack.h"
#include "display/DataSeries.h"
#include "display/chartSeries.h"
#include "display/distanceSeries.h"
#include "display/units.h"
#include "platform/Color.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ospra {

/// What one jumper's line reads under the pointer.
struct HoverRow {
    std::string name{}; ///< "Me" for the first of all tracks
    Color color = Color::white;
    std::string value{}; ///< with its unit; "-" where the nearest sample lies 2 s away or more

    friend bool operator==(const HoverRow&, const HoverRow&) = default;
};

/// A moment of one jumper, marked in the charts.
struct ChartMarker {
    double seconds = 0.0; ///< on the common time axis
    Color color = Color::white;

    friend bool operator==(const ChartMarker&, const ChartMarker&) = default;
};

/// The moment of the first track's sample nearest to the pointer; the pointer's own if there is no sample.
[[nodiscard]] double snappedSeconds(std::span<const JumpTrack> tracks, double seconds);

/// One row for each track with points of the series; none without a hovered moment.
[[nodiscard]] std::vector<HoverRow> hoveredValues(std::span<const VisibleTrackData> tracks, DataSeries series,
                                                  std::optional<double> hoveredSeconds, DisplayUnits units);

/// One row for each companion with points of the series; none without a hovered moment.
[[nodiscard]] std::vector<HoverRow> hoveredDistanceValues(std::span<const CompanionDistanceData> companions,
                                                          DistanceSeries series, std::optional<double> hoveredSeconds,
                                                          UnitSystem system);

/// One row for each track with points of both distances; none without a hovered moment.
[[nodiscard]] std::vector<HoverRow> hoveredHorizontalValues(std::span<const VisibleHorizontalDistanceTrackData> tracks,
                                                            std::optional<double> hoveredSeconds, UnitSystem system);

/// For each track that is not hidden, in order, the index of the sample nearest to the hovered moment; absent if it
/// lies 2 s away or more.
[[nodiscard]] std::vector<std::optional<std::ptrdiff_t>>
hoveredPoints(std::span<const JumpTrack> tracks, const TrackIDs& hidden, std::optional<double> hoveredSeconds);

/// Time since the first track's exit, "T+59s" or "T+2:05"; absent before the exit and for a log without one.
[[nodiscard]] std::optional<std::string> hoveredTimeLabel(std::span<const JumpTrack> tracks,
                                                          std::optional<double> hoveredSeconds);

/// Where the deployments of the visible tracks begin. The first visible track has the primary colour.
[[nodiscard]] std::vector<ChartMarker> pitchMarkers(std::span<const JumpTrack> tracks, const TrackIDs& hidden);

/// Where the canopy rides of the visible tracks begin, likewise.
[[nodiscard]] std::vector<ChartMarker> saddleMarkers(std::span<const JumpTrack> tracks, const TrackIDs& hidden);

} // namespace ospra
