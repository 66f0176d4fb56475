#include "display/chartSeries.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace ospra {

namespace {

constexpr double greatestGlideRatio = 10.0; // top of the scale

double groundReference(const JumpTrack& track, AltitudeReference altitude)
{
    return altitude == AltitudeReference::aboveGround && track.statistics ? track.statistics->groundElevation : 0.0;
}

ChartPoints seriesPoints(const JumpTrack& track, DataSeries series, DisplayUnits units)
{
    const double ground = groundReference(track, units.altitude);
    const std::vector<FlySightDataPoint>& samples = track.file.dataPoints;
    std::vector<ChartPoint> points;
    points.reserve(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i)
        points.push_back({.id = static_cast<std::int64_t>(i),
                          .seconds = track.elapsed[i],
                          .value = seriesValue(samples[i], series, ground, units.system)});
    return ChartPoints(std::move(points));
}

} // namespace

double seriesValue(const FlySightDataPoint& sample, DataSeries series, double groundElevation, UnitSystem system)
{
    switch (series) {
    case DataSeries::elevation: return (sample.altitudeMSL - groundElevation) * lengthFactor(system);
    case DataSeries::horizontalSpeed: return horizontalSpeed(sample) * speedFactor(system);
    case DataSeries::verticalSpeed: return sample.velocityDown * speedFactor(system);
    case DataSeries::totalSpeed: return totalSpeed(sample) * speedFactor(system);
    case DataSeries::glideRatio: return std::min(glideRatio(sample), greatestGlideRatio);
    case DataSeries::diveAngle:
        return std::atan2(sample.velocityDown, horizontalSpeed(sample)) * 180.0 / std::numbers::pi;
    }
    return 0.0;
}

std::vector<SeriesData> buildChartData(std::span<const JumpTrack> tracks, DisplayUnits units)
{
    std::vector<SeriesData> chartData;
    chartData.reserve(tracks.size());
    for (const JumpTrack& track : tracks) {
        SeriesData& data = chartData.emplace_back();
        for (const DataSeries series : allDataSeries)
            data[series] = seriesPoints(track, series, units);
    }
    return chartData;
}

TimeRange fullRange(std::span<const JumpTrack> tracks)
{
    if (tracks.empty() || tracks.front().elapsed.empty())
        return {};
    return {.lo = tracks.front().elapsed.front(), .hi = tracks.front().elapsed.back()};
}

std::vector<VisibleTrackData> cutChartData(std::span<const JumpTrack> tracks, std::span<const SeriesData> chartData,
                                           const TrackIDs& hidden, TimeRange range)
{
    std::vector<VisibleTrackData> visible;
    for (std::size_t i = 0; i < std::min(tracks.size(), chartData.size()); ++i) {
        if (hidden.contains(tracks[i].id))
            continue;
        VisibleTrackData& data = visible.emplace_back(VisibleTrackData{.id = tracks[i].id,
                                                                       .trackIndex = static_cast<std::ptrdiff_t>(i),
                                                                       .jumperName = tracks[i].jumperName,
                                                                       .jumperColor = tracks[i].jumperColor,
                                                                       .isPrimary = i == 0});
        for (const DataSeries series : allDataSeries)
            data.seriesData[series] = chartData[i][series].cut(range.lo, range.hi);
    }
    return visible;
}

} // namespace ospra
