#pragma once

#include "analysis/JumpTrack.h"
#include "display/ChartPoints.h"
#include "display/DataSeries.h"
#include "display/units.h"
#include "platform/Color.h"
#include "platform/Uuid.h"

#include <cstddef>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

namespace ospra {

/// All six series of one track.
using SeriesData = PerSeries<ChartPoints>;

/// One track as the series charts see it, cut to the time on show.
struct VisibleTrackData {
    Uuid id{};
    std::ptrdiff_t trackIndex = 0; ///< position among all tracks
    std::string jumperName{};
    Color jumperColor = Color::white;
    bool isPrimary = false; ///< whether `trackIndex` is 0
    SeriesData seriesData{};
};

/// One value of a series in display units.
/// @param groundElevation m MSL, subtracted from the altitude; 0 for heights above sea level
[[nodiscard]] double seriesValue(const FlySightDataPoint& sample, DataSeries series, double groundElevation,
                                 UnitSystem system);

/// All series of all tracks, in their order, one point for each sample: nothing is filtered, thinned or smoothed.
[[nodiscard]] std::vector<SeriesData> buildChartData(std::span<const JumpTrack> tracks, DisplayUnits units);

/// A closed span of time on the common axis, seconds, `lo` <= `hi`.
struct TimeRange {
    double lo = 0.0;
    double hi = 1.0;

    friend bool operator==(const TimeRange&, const TimeRange&) = default;
};

/// From the first to the last `elapsed` of the first track, 0 to 1 without samples. As the clock of a log may run
/// backwards, `hi` may lie below `lo`.
[[nodiscard]] TimeRange fullRange(std::span<const JumpTrack> tracks);

using TrackIDs = std::unordered_set<Uuid>;

/// The points of the tracks that are not hidden, cut to the range; an empty cut leaves the track in the list.
/// @param chartData of `tracks`, element by element
[[nodiscard]] std::vector<VisibleTrackData> cutChartData(std::span<const JumpTrack> tracks,
                                                         std::span<const SeriesData> chartData, const TrackIDs& hidden,
                                                         TimeRange range);

} // namespace ospra
