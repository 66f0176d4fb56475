#include "tests/core/ModelTestBed.h"

#include <benchmark/benchmark.h>

#include <array>
#include <span>

namespace ospra {
namespace {

constexpr double wholeRate = 45.0; // samples a second, 25,000 a track

/// A jump of the primary and companions, four tracks unless another number is wanted.
class LoadedJump {
public:
    explicit LoadedJump(double rate, std::size_t trackCount = 4)
    {
        constexpr std::array allNames{"me", "a", "b", "c", "d", "e", "f", "g"};
        const auto names = std::span(allNames).first(trackCount);
        for (const char* name : names) {
            JumpPlan plan{.rate = rate, .climbSeconds = 240.0, .startSeconds = m_start};
            m_start += 1.0;
            m_bed.addLog(name, "jump.csv", plan);
        }
        m_bed.model().openFolder(m_bed.folder("me"));
        for (const char* name : names.subspan(1))
            m_bed.model().addCompanion(m_bed.folder(name));
        m_bed.settle();
    }

    [[nodiscard]] LoadRequest request()
    {
        const JumpGroup& group = m_bed.model().jumpGroups().front();
        LoadRequest request{.entries = {group.primaryEntry}, .jumpers = m_bed.model().jumpers()};
        request.entries.insert(request.entries.end(), group.companionEntries.begin(), group.companionEntries.end());
        return request;
    }

    ModelTestBed& bed() { return m_bed; }

private:
    double m_start = JumpPlan{}.startSeconds;
    ModelTestBed m_bed;
};

/// The background part of a click: four files to finished display data.
void BM_LoadJump(benchmark::State& state)
{
    LoadedJump jump(static_cast<double>(state.range(0)));
    const LoadRequest request = jump.request();
    std::size_t samples = 0;
    for (auto _ : state) {
        const LoadResult result = loadJump(request);
        samples = result.tracks.back().file.dataPoints.size();
        benchmark::DoNotOptimize(result);
    }
    state.counters["tracks"] = static_cast<double>(request.entries.size());
    state.counters["samples"] = static_cast<double>(samples);
}
BENCHMARK(BM_LoadJump)->Arg(5)->Arg(25)->Arg(45)->Unit(benchmark::kMillisecond);

/// The same by the number of jumpers.
void BM_LoadJumpers(benchmark::State& state)
{
    LoadedJump jump(wholeRate, static_cast<std::size_t>(state.range(0)));
    const LoadRequest request = jump.request();
    for (auto _ : state)
        benchmark::DoNotOptimize(loadJump(request));
}
BENCHMARK(BM_LoadJumpers)->RangeMultiplier(2)->Range(1, 8)->Unit(benchmark::kMillisecond);

/// The main thread's part: publishing the result and cutting it to the zoom. A load stands before each, so there are
/// few.
void BM_FinishLoad(benchmark::State& state)
{
    LoadedJump jump(static_cast<double>(state.range(0)));
    OspraModel& model = jump.bed().model();
    for (auto _ : state) {
        state.PauseTiming();
        model.loadTracks(jump.request());
        jump.bed().awaitBackground();
        state.ResumeTiming();
        jump.bed().deliverMail();
    }
    state.counters["tracks"] = static_cast<double>(model.tracks().size());
    state.counters["samples"] = static_cast<double>(model.tracks().back().file.dataPoints.size());
}
BENCHMARK(BM_FinishLoad)->Arg(5)->Arg(25)->Arg(45)->Iterations(10)->Unit(benchmark::kMillisecond);

/// A zoom of the model beside its yardstick, on the same jump: copying every point that is then on show, once.
enum class ZoomWork { rebuildVisibleData, copyVisiblePoints };

std::vector<ChartPoint> copyOf(const ChartPoints& points)
{
    return {points.span().begin(), points.span().end()};
}

std::vector<std::vector<ChartPoint>> copyVisiblePoints(const OspraModel& model)
{
    std::vector<std::vector<ChartPoint>> copies;
    for (const VisibleTrackData& track : model.visibleChartTracks())
        for (const DataSeries series : allDataSeries)
            copies.push_back(copyOf(track.seriesData[series]));
    for (const VisibleHorizontalDistanceTrackData& track : model.visibleHorizontalDistanceTracks()) {
        copies.push_back(copyOf(track.traveled));
        copies.push_back(copyOf(track.fromExit));
    }
    for (const CompanionDistanceData& companion : model.visibleDistanceDataCache())
        for (const DistanceSeries series : allDistanceSeries)
            copies.push_back(copyOf(companion.data[series]));
    return copies;
}

void BM_Zoom(benchmark::State& state, ZoomWork work)
{
    LoadedJump jump(wholeRate);
    OspraModel& model = jump.bed().model();
    model.loadTracks(jump.request());
    jump.bed().settle();
    model.zoomToDrag(model.displayRange().lo, model.displayRange().lo + double(state.range(0)));
    for (auto _ : state) {
        if (work == ZoomWork::rebuildVisibleData)
            model.rebuildVisibleData();
        else
            benchmark::DoNotOptimize(copyVisiblePoints(model));
    }
    std::size_t visible = 0;
    for (const VisibleTrackData& track : model.visibleChartTracks())
        visible += track.seriesData[DataSeries::elevation].size();
    state.counters["samples"] = static_cast<double>(model.tracks().front().elapsed.size());
    state.counters["visible"] = static_cast<double>(visible);
}
// Seconds on show: a moment, the jump, the whole log.
BENCHMARK_CAPTURE(BM_Zoom, rebuild, ZoomWork::rebuildVisibleData)
    ->Arg(10)
    ->Arg(200)
    ->Arg(9'999)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Zoom, copy, ZoomWork::copyVisiblePoints)
    ->Arg(10)
    ->Arg(200)
    ->Arg(9'999)
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace ospra
