#pragma once

#include "analysis/JumpTrack.h"
#include "display/chartSeries.h"
#include "display/distanceSeries.h"
#include "display/mapData.h"
#include "display/units.h"
#include "library/JumpFileEntry.h"
#include "library/Jumper.h"

#include <stop_token>
#include <string>
#include <vector>

namespace ospra {

/// What it takes to turn the logs of one jump into what the screen shows, by copy, so that later changes of the model
/// cannot touch it.
struct LoadRequest {
    std::vector<JumpFileEntry> entries{}; ///< the primary's first
    std::vector<Jumper> jumpers{};        ///< who the entries belong to; an entry without its jumper is passed over
    DisplayUnits units{};
};

/// The analysed tracks of a jump with all their display data, or why there are none.
struct LoadResult {
    std::vector<JumpTrack> tracks{}; ///< empty exactly if the load failed; the first is the primary
    std::vector<SeriesData> chartData{};
    HorizontalDistances horizontalDistanceData{};
    std::vector<CompanionDistanceData> distanceData{};
    std::vector<TrackPaths> mapPaths{}; ///< of `tracks`
    std::string errorMessage{};         ///< the user's text; empty unless the load failed
};

/// Reads, parses and analyses the logs, sets them on the time axis whose zero is the first sample of the first track,
/// and computes their series in display units. An entry that cannot be read has no track; the load fails only if none
/// gives a track. Runs on any thread, for as long as its files take.
/// @param stop when requested, no further file is begun; the result is then of no use
[[nodiscard]] LoadResult loadJump(const LoadRequest& request, const std::stop_token& stop = {});

} // namespace ospra
