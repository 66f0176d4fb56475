#include "analysis/detectPhases.h"
#include "analysis/movingMedian.h"
#include "tests/support/JumpBuilder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace ospra;

void BM_DetectPhases(benchmark::State& state)
{
    const std::vector<FlySightDataPoint> samples = makeJumpOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(detectPhases(samples));
    state.SetItemsProcessed(state.iterations() * std::ssize(samples));
}
BENCHMARK(BM_DetectPhases)->Arg(15'000)->Arg(2'000'000)->Unit(benchmark::kMillisecond);

/// A logger that lies still keeps every search of the detection busy to the end.
void BM_DetectPhasesAtRest(benchmark::State& state)
{
    const std::vector<FlySightDataPoint> samples(static_cast<std::size_t>(state.range(0)),
                                                 FlySightDataPoint{.verticalAccuracy = 3.0});
    for (auto _ : state)
        benchmark::DoNotOptimize(detectPhases(samples));
    state.SetItemsProcessed(state.iterations() * std::ssize(samples));
}
BENCHMARK(BM_DetectPhasesAtRest)->Arg(15'000)->Arg(2'000'000)->Unit(benchmark::kMillisecond);

void BM_ComputeStatistics(benchmark::State& state)
{
    const std::vector<FlySightDataPoint> samples = makeJumpOf(state.range(0));
    const std::vector<JumpPhaseRange> phases = detectPhases(samples);
    for (auto _ : state)
        benchmark::DoNotOptimize(computeStatistics(samples, phases));
}
BENCHMARK(BM_ComputeStatistics)->Arg(15'000)->Arg(150'000)->Unit(benchmark::kMicrosecond);

void BM_MovingMedian(benchmark::State& state)
{
    std::vector<double> values;
    for (const FlySightDataPoint& sample : makeJumpOf(state.range(0)))
        values.push_back(sample.altitudeMSL);
    for (auto _ : state)
        benchmark::DoNotOptimize(movingMedian(values, 5));
}
BENCHMARK(BM_MovingMedian)->Arg(15'000)->Arg(150'000)->Unit(benchmark::kMicrosecond);

} // namespace
