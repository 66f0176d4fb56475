#include "core/loadJump.h"

#include "analysis/detectPhases.h"
#include "core/readLog.h"
#include "platform/Files.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

namespace ospra {

namespace {

constexpr const char* failureWithoutReason = "Failed to load jump data";

/// A log with its analysis, as it is before the tracks share a time axis: `elapsed` counts from its own first sample.
JumpTrack analyse(FlySightFile file, const Jumper& jumper)
{
    std::vector<JumpPhaseRange> phases = detectPhases(file.dataPoints);
    const std::optional<JumpStatistics> statistics = computeStatistics(file.dataPoints, phases);
    std::vector<double> elapsed = elapsedTimes(file.dataPoints);
    return {.id = makeUuid(),
            .jumperName = jumper.name,
            .jumperColor = jumper.color,
            .file = std::move(file),
            .phases = std::move(phases),
            .statistics = statistics,
            .elapsed = std::move(elapsed)};
}

/// The tracks behind the first count from the first sample of the first, so that a log that began earlier has
/// negative times at its start. The first track has them already.
void shareTimeAxis(std::vector<JumpTrack>& tracks)
{
    const Instant zero = tracks.front().file.dataPoints.front().time;
    for (JumpTrack& track : tracks) {
        if (&track == &tracks.front())
            continue;
        std::ranges::transform(track.file.dataPoints, track.elapsed.begin(),
                               [zero](const FlySightDataPoint& sample) { return secondsBetween(zero, sample.time); });
    }
}

LoadResult loadEntries(const LoadRequest& request, const std::stop_token& stop)
{
    LoadResult result;
    std::string lastError;
    FileReader reader;
    for (const JumpFileEntry& entry : request.entries) {
        if (stop.stop_requested())
            break;
        const auto jumper = std::ranges::find(request.jumpers, entry.jumperID, &Jumper::id);
        if (jumper == request.jumpers.end())
            continue;
        ReadLog log = readLog(entry.url, entry.name, reader);
        if (log.file)
            result.tracks.push_back(analyse(std::move(*log.file), *jumper));
        else
            lastError = std::move(log.errorText);
    }
    if (result.tracks.empty() || result.tracks.front().file.dataPoints.empty()) {
        return {.errorMessage = lastError.empty() ? failureWithoutReason : lastError};
    }
    shareTimeAxis(result.tracks);
    result.chartData = buildChartData(result.tracks, request.units);
    result.horizontalDistanceData = buildHorizontalDistances(result.tracks, request.units.system);
    result.distanceData = buildDistanceData(result.tracks, request.units.system);
    result.mapPaths = buildMapPaths(result.tracks);
    return result;
}

} // namespace

LoadResult loadJump(const LoadRequest& request, const std::stop_token& stop)
{
    try {
        return loadEntries(request, stop);
    } catch (const std::bad_alloc&) {
        return {.errorMessage = "There is not enough memory for this jump’s logs."};
    }
}

} // namespace ospra
