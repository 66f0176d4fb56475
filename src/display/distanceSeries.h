#pragma once

#include "analysis/JumpTrack.h"
#include "display/ChartPoints.h"
#include "display/DataSeries.h"
#include "display/chartSeries.h"
#include "display/units.h"
#include "platform/Color.h"
#include "platform/Coordinate.h"
#include "platform/Uuid.h"

#include <cstddef>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace ospra {

/// How far a companion was from the primary, over the primary's time.
struct CompanionDistanceData {
    Uuid id{}; ///< of the companion's track
    std::string companionName{};
    Color companionColor = Color::white;
    PerDistance<ChartPoints> data{};
};

/// How far one jumper flew over the ground since the exit.
struct HorizontalDistanceSeriesData {
    ChartPoints traveled{}; ///< along the path
    ChartPoints fromExit{}; ///< straight from the place of the exit
};

/// The same, cut to the time on show.
struct VisibleHorizontalDistanceTrackData {
    Uuid id{};
    std::ptrdiff_t trackIndex = 0; ///< position among all tracks
    std::string jumperName{};
    Color jumperColor = Color::white;
    bool isPrimary = false; ///< whether `trackIndex` is 0
    ChartPoints traveled{};
    ChartPoints fromExit{};
};

using HorizontalDistances = std::unordered_map<Uuid, HorizontalDistanceSeriesData>;

/// Ground distance in metres on a sphere of radius 6,371 km (haversine). NaN for coordinates that are not finite.
[[nodiscard]] double greatCircleDistance(Coordinate a, Coordinate b);

/// The index of the value nearest to `seconds` by binary search; an exact tie goes to the later one.
/// @param elapsed ascending; on other lists the result is in bounds, but need not be the nearest
/// @return 0 for fewer than two values
[[nodiscard]] std::ptrdiff_t nearestIndex(std::span<const double> elapsed, double seconds);

/// `movingMedian` over the values of points; fewer points than the window come back unchanged.
[[nodiscard]] std::vector<ChartPoint> medianFilter(std::vector<ChartPoint> points, std::ptrdiff_t window);

/// Both distances of one track in the length of the units, one point for each sample, none filtered or smoothed. Up to
/// the exit both are 0; a log without one is measured from its first sample.
[[nodiscard]] HorizontalDistanceSeriesData horizontalSeries(const JumpTrack& track, UnitSystem system);

/// `horizontalSeries` of every track, by the id of the track.
[[nodiscard]] HorizontalDistances buildHorizontalDistances(std::span<const JumpTrack> tracks, UnitSystem system);

/// One record for each track but the first, in order; empty for fewer than two tracks. Samples of which either has a
/// horizontal accuracy of 50 m or more leave no point.
[[nodiscard]] std::vector<CompanionDistanceData> buildDistanceData(std::span<const JumpTrack> tracks,
                                                                   UnitSystem system);

/// The tracks that are not hidden, in order, cut to the range; an empty cut leaves the track in the list.
/// @param distances of all `tracks`
[[nodiscard]] std::vector<VisibleHorizontalDistanceTrackData>
cutHorizontalDistances(std::span<const JumpTrack> tracks, const HorizontalDistances& distances, const TrackIDs& hidden,
                       TimeRange range);

/// Empty while the first track is hidden, since there is nothing to measure from.
[[nodiscard]] std::vector<CompanionDistanceData> cutDistanceData(std::span<const JumpTrack> tracks,
                                                                 std::span<const CompanionDistanceData> distances,
                                                                 const TrackIDs& hidden, TimeRange range);

} // namespace ospra
