#include "display/distanceSeries.h"

#include "analysis/movingMedian.h"
#include "display/nearest.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace ospra {

namespace {

constexpr double earthDiameter = 12742000.0;      // m; twice the mean radius of 6,371 km
constexpr double greatestInaccuracy = 50.0;       // m, exclusive; a worse fix leaves no distance to a companion
constexpr std::ptrdiff_t distanceMedianWidth = 5; // points

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

const FlySightDataPoint& sampleAt(const JumpTrack& track, std::ptrdiff_t index)
{
    return track.file.dataPoints[static_cast<std::size_t>(index)];
}

bool isAccurate(const FlySightDataPoint& sample)
{
    return sample.horizontalAccuracy < greatestInaccuracy;
}

/// The last sample at which the jumper has not yet flown any distance.
std::ptrdiff_t exitIndex(const JumpTrack& track)
{
    const JumpPhaseRange* freefall = findPhase(track.phases, JumpPhase::freefall);
    return freefall ? std::clamp<std::ptrdiff_t>(freefall->startIndex, 0, std::ssize(track.file.dataPoints) - 1) : 0;
}

CompanionDistanceData companionDistances(const JumpTrack& primary, const JumpTrack& companion, double factor)
{
    PerDistance<std::vector<ChartPoint>> points;
    for (std::vector<ChartPoint>& series : points.values)
        series.reserve(primary.elapsed.size());

    const std::ptrdiff_t count = companion.file.dataPoints.empty() ? 0 : std::ssize(primary.file.dataPoints);
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const double seconds = primary.elapsed[static_cast<std::size_t>(i)];
        const FlySightDataPoint& own = sampleAt(primary, i);
        const FlySightDataPoint& other = sampleAt(companion, nearestIndex(companion.elapsed, seconds));
        if (!isAccurate(own) || !isAccurate(other))
            continue;
        const double ground = greatCircleDistance(own.coordinate, other.coordinate);
        const double height = own.altitudeMSL - other.altitudeMSL;
        const auto add = [&](DistanceSeries series, double metres) {
            points[series].push_back({.id = i, .seconds = seconds, .value = metres * factor});
        };
        add(DistanceSeries::horizontalDistance, ground);
        add(DistanceSeries::verticalDistance, std::abs(height));
        add(DistanceSeries::totalDistance, std::sqrt(ground * ground + height * height));
    }

    CompanionDistanceData result{
        .id = companion.id, .companionName = companion.jumperName, .companionColor = companion.jumperColor};
    for (const DistanceSeries series : allDistanceSeries)
        result.data[series] = ChartPoints(medianFilter(std::move(points[series]), distanceMedianWidth));
    return result;
}

} // namespace

double greatCircleDistance(Coordinate a, Coordinate b)
{
    const double latitudeSine = std::sin(radians(b.latitude - a.latitude) * 0.5);
    const double longitudeSine = std::sin(radians(b.longitude - a.longitude) * 0.5);
    const double haversine = latitudeSine * latitudeSine + std::cos(radians(a.latitude)) *
                                                               std::cos(radians(b.latitude)) *
                                                               (longitudeSine * longitudeSine);
    // Between opposite places rounding may lead past 1, where the arc sine ends. NaN stays NaN.
    return std::asin(std::min(std::sqrt(haversine), 1.0)) * earthDiameter;
}

std::ptrdiff_t nearestIndex(std::span<const double> elapsed, double seconds)
{
    return nearestBy(elapsed, seconds, Tie::later);
}

std::vector<ChartPoint> medianFilter(std::vector<ChartPoint> points, std::ptrdiff_t window)
{
    if (std::ssize(points) < window)
        return points;
    std::vector<double> values(points.size());
    std::ranges::transform(points, values.begin(), &ChartPoint::value);
    values = movingMedian(values, window);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i].value = values[i];
    return points;
}

HorizontalDistanceSeriesData horizontalSeries(const JumpTrack& track, UnitSystem system)
{
    const std::ptrdiff_t count = std::ssize(track.file.dataPoints);
    if (count == 0)
        return {};

    const double factor = lengthFactor(system);
    const std::ptrdiff_t exit = exitIndex(track);
    std::vector<ChartPoint> traveled;
    std::vector<ChartPoint> fromExit;
    traveled.reserve(track.file.dataPoints.size());
    fromExit.reserve(track.file.dataPoints.size());
    double total = 0.0; // m
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        double straight = 0.0; // m
        if (i > exit) {
            const Coordinate place = sampleAt(track, i).coordinate;
            total += greatCircleDistance(sampleAt(track, i - 1).coordinate, place);
            straight = greatCircleDistance(sampleAt(track, exit).coordinate, place);
        }
        const double seconds = track.elapsed[static_cast<std::size_t>(i)];
        traveled.push_back({.id = i, .seconds = seconds, .value = total * factor});
        fromExit.push_back({.id = i, .seconds = seconds, .value = straight * factor});
    }
    return {.traveled = ChartPoints(std::move(traveled)), .fromExit = ChartPoints(std::move(fromExit))};
}

HorizontalDistances buildHorizontalDistances(std::span<const JumpTrack> tracks, UnitSystem system)
{
    HorizontalDistances distances;
    for (const JumpTrack& track : tracks)
        distances[track.id] = horizontalSeries(track, system);
    return distances;
}

std::vector<CompanionDistanceData> buildDistanceData(std::span<const JumpTrack> tracks, UnitSystem system)
{
    std::vector<CompanionDistanceData> distances;
    for (std::size_t i = 1; i < tracks.size(); ++i)
        distances.push_back(companionDistances(tracks.front(), tracks[i], lengthFactor(system)));
    return distances;
}

std::vector<VisibleHorizontalDistanceTrackData> cutHorizontalDistances(std::span<const JumpTrack> tracks,
                                                                       const HorizontalDistances& distances,
                                                                       const TrackIDs& hidden, TimeRange range)
{
    std::vector<VisibleHorizontalDistanceTrackData> visible;
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const auto found = distances.find(tracks[i].id);
        if (hidden.contains(tracks[i].id) || found == distances.end())
            continue;
        visible.push_back({.id = tracks[i].id,
                           .trackIndex = static_cast<std::ptrdiff_t>(i),
                           .jumperName = tracks[i].jumperName,
                           .jumperColor = tracks[i].jumperColor,
                           .isPrimary = i == 0,
                           .traveled = found->second.traveled.cut(range.lo, range.hi),
                           .fromExit = found->second.fromExit.cut(range.lo, range.hi)});
    }
    return visible;
}

std::vector<CompanionDistanceData> cutDistanceData(std::span<const JumpTrack> tracks,
                                                   std::span<const CompanionDistanceData> distances,
                                                   const TrackIDs& hidden, TimeRange range)
{
    std::vector<CompanionDistanceData> visible;
    if (tracks.empty() || hidden.contains(tracks.front().id))
        return visible;
    for (const CompanionDistanceData& distance : distances) {
        if (hidden.contains(distance.id))
            continue;
        CompanionDistanceData& cut = visible.emplace_back(distance);
        for (ChartPoints& points : cut.data.values)
            points = points.cut(range.lo, range.hi);
    }
    return visible;
}

} // namespace ospra
