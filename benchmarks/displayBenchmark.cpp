#include "display/chartSeries.h"
#include "display/distanceSeries.h"
#include "display/mapData.h"
#include "tests/support/JumpBuilder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace ospra;

constexpr DisplayUnits imperial{.system = UnitSystem::imperial, .altitude = AltitudeReference::aboveGround};

/// Four jumpers of one jump with about so many samples each.
std::vector<JumpTrack> fourTracks(std::int64_t count)
{
    std::vector<JumpTrack> tracks;
    tracks.reserve(4);
    for (int i = 0; i < 4; ++i)
        tracks.push_back(makeTrack(makeJumpOf(count, {.start = {.latitude = 47.0 + 0.0001 * i, .longitude = 8.0},
                                                      .startSeconds = JumpPlan{}.startSeconds + 0.3 * i})));
    return tracks;
}

void BM_ChartData(benchmark::State& state)
{
    const std::vector<JumpTrack> tracks = fourTracks(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(buildChartData(tracks, imperial));
}
BENCHMARK(BM_ChartData)->Arg(1'500)->Arg(15'000)->Unit(benchmark::kMillisecond);

void BM_HorizontalDistances(benchmark::State& state)
{
    const std::vector<JumpTrack> tracks = fourTracks(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(buildHorizontalDistances(tracks, UnitSystem::imperial));
}
BENCHMARK(BM_HorizontalDistances)->Arg(1'500)->Arg(15'000)->Unit(benchmark::kMillisecond);

void BM_CompanionDistances(benchmark::State& state)
{
    const std::vector<JumpTrack> tracks = fourTracks(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(buildDistanceData(tracks, UnitSystem::imperial));
}
BENCHMARK(BM_CompanionDistances)->Arg(1'500)->Arg(15'000)->Unit(benchmark::kMillisecond);

/// All that a zoom makes anew: the cuts of every series, the paths and the region of the map.
void BM_Zoom(benchmark::State& state)
{
    const std::vector<JumpTrack> tracks = fourTracks(state.range(0));
    const auto series = buildChartData(tracks, imperial);
    const auto horizontal = buildHorizontalDistances(tracks, UnitSystem::imperial);
    const auto between = buildDistanceData(tracks, UnitSystem::imperial);
    const auto paths = buildMapPaths(tracks);
    const Zoom zoom{.mode = ZoomMode::freefallAndCanopy,
                    .range = zoomRangeFor(ZoomMode::freefallAndCanopy, tracks, {})};
    for (auto _ : state) {
        benchmark::DoNotOptimize(cutChartData(tracks, series, {}, *zoom.range));
        benchmark::DoNotOptimize(cutHorizontalDistances(tracks, horizontal, {}, *zoom.range));
        benchmark::DoNotOptimize(cutDistanceData(tracks, between, {}, *zoom.range));
        benchmark::DoNotOptimize(visibleMapSegments(tracks, paths, {}, zoom));
        benchmark::DoNotOptimize(visibleMapRegion(tracks, paths, {}, zoom.range));
    }
}
BENCHMARK(BM_Zoom)->Arg(1'500)->Arg(15'000)->Unit(benchmark::kMicrosecond);

void BM_Cut(benchmark::State& state)
{
    const std::vector<JumpTrack> tracks = fourTracks(state.range(0));
    const auto series = buildChartData(tracks, imperial);
    const TimeRange range = zoomRangeFor(ZoomMode::freefallAndCanopy, tracks, {}).value();
    for (auto _ : state)
        benchmark::DoNotOptimize(cutChartData(tracks, series, {}, range));
}
BENCHMARK(BM_Cut)->Arg(1'500)->Arg(15'000)->Unit(benchmark::kMicrosecond);

} // namespace
