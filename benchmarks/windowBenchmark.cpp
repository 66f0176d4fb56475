#include "benchmarks/BenchmarkWindow.h"
#include "plot/PlotItem.h"
#include "tests/core/ModelTestBed.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace ospra {
namespace {

constexpr std::array jumperNames{"me", "a", "b", "c", "d", "e", "f", "g"};

/// How many of them jump.
std::size_t jumperCount = 4;

/// The real window on a jump with a track of about 25,000 samples for each jumper, all rows on.
class JumpWindow {
public:
    JumpWindow()
    {
        double start = JumpPlan{}.startSeconds;
        const std::vector<const char*> names(jumperNames.begin(), jumperNames.begin() + jumperCount);
        for (const char* name : names)
            m_bed.addLog(name, "jump.csv", {.rate = 45.0, .climbSeconds = 240.0, .startSeconds = start += 1.0});
        model().openFolder(m_bed.folder("me"));
        for (std::size_t i = 1; i < names.size(); ++i)
            model().addCompanion(m_bed.folder(names[i]));
        m_bed.settle();
        model().setEnabledSeries({allDataSeries.begin(), allDataSeries.end()});
        model().selectNextJump();
        m_bed.settle();
        m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        m_engine.setInitialProperties({{QStringLiteral("source"), QVariant::fromValue(&model())}});
        m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Ospra/Workspace/MainWindow.qml")));
        m_window = qobject_cast<QQuickWindow*>(m_engine.rootObjects().value(0));
        m_frames.watch(m_window);
        collect(m_window->contentItem());
        waitFor([this] { return std::ranges::all_of(m_plots, [](PlotItem* p) { return p->rasterCount() > 0; }); });
        waitForFrame();
    }

    OspraModel& model() { return m_bed.model(); }

    /// Until every row shows a picture newer than `before`, on screen.
    void waitForPictures(const std::vector<int>& before)
    {
        waitFor([&] {
            for (std::size_t index = 0; index < m_plots.size(); ++index)
                if (m_plots[index]->rasterCount() == before[index])
                    return false;
            return true;
        });
        waitForFrame();
    }

    [[nodiscard]] std::vector<int> pictures() const
    {
        std::vector<int> counts;
        for (const PlotItem* plot : m_plots)
            counts.push_back(plot->rasterCount());
        return counts;
    }

    void waitForFrame() { m_frames.waitForFrame(); }

private:
    void collect(QQuickItem* item)
    {
        if (auto* plot = qobject_cast<PlotItem*>(item))
            m_plots.push_back(plot);
        for (QQuickItem* child : item->childItems())
            collect(child);
    }

    ModelTestBed m_bed;
    FrameWatch m_frames;
    QQmlApplicationEngine m_engine;
    QQuickWindow* m_window = nullptr;
    std::vector<PlotItem*> m_plots;
};

WindowAtFirstUse<JumpWindow> jumpWindow;

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// From the choice of a zoom in a window at rest to the frame that shows all rows drawn anew.
void BM_ZoomToFrame(benchmark::State& state)
{
    JumpWindow& window = jumpWindow();
    std::vector<double> wall;
    std::vector<double> mainThread;
    for (auto _ : state) {
        state.PauseTiming();
        waitForRest();
        const std::vector<int> before = window.pictures();
        state.ResumeTiming();
        const double start = milliseconds(CLOCK_MONOTONIC);
        const double startOfThread = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        const bool isCanopy = window.model().activeZoomMode() == ZoomMode::canopy;
        window.model().chooseZoomMode(isCanopy ? ZoomMode::freefall : ZoomMode::canopy);
        window.waitForPictures(before);
        mainThread.push_back(milliseconds(CLOCK_THREAD_CPUTIME_ID) - startOfThread);
        wall.push_back(milliseconds(CLOCK_MONOTONIC) - start);
    }
    state.counters["median_ms"] = median(wall);
    state.counters["main_thread_median_ms"] = median(mainThread);
    state.counters["rows"] = static_cast<double>(window.pictures().size());
}
BENCHMARK(BM_ZoomToFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Processor time in milliseconds: of the whole process, and of the main thread alone.
struct FrameCost {
    double process = 0.0;
    double mainThread = 0.0;
};

/// What it costs to do something and to wait for the next frame.
template <typename Act>
FrameCost costOfFrame(JumpWindow& window, Act act)
{
    const double process = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    const double mainThread = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    act();
    window.waitForFrame();
    return {.process = milliseconds(CLOCK_PROCESS_CPUTIME_ID) - process,
            .mainThread = milliseconds(CLOCK_THREAD_CPUTIME_ID) - mainThread};
}

void report(benchmark::State& state, const std::string& name, const std::vector<double>& values)
{
    state.counters[name + "_median_ms"] = median(values);
    state.counters[name + "_mean_ms"] =
        std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// What a move of the pointer costs beyond the yardstick, in processor time. Short runs of both kinds of frame take
/// turns, so that whatever else the machine does falls on both, and each move is set against a bare frame of the next
/// run. The frames that show or clear the read-outs between the runs belong to neither.
void BM_HoverBeyondBareFrame(benchmark::State& state)
{
    constexpr int runLength = 8;
    JumpWindow& window = jumpWindow();
    OspraModel& model = window.model();
    const TimeRange range = model.displayRange();
    double seconds = range.lo;
    const auto hover = [&] {
        seconds = seconds + 0.5 > range.hi ? range.lo : seconds + 0.5;
        model.setHoveredSeconds(seconds);
    };
    std::vector<double> bare;
    std::vector<double> beyond;
    std::vector<double> beyondOfMainThread;
    for (auto _ : state) {
        std::vector<FrameCost> hovers;
        costOfFrame(window, hover);
        for (int frame = 0; frame < runLength; ++frame)
            hovers.push_back(costOfFrame(window, hover));
        costOfFrame(window, [&] { model.setHoveredSeconds(std::nullopt); });
        for (const FrameCost& cost : hovers) {
            const FrameCost yardstick = costOfFrame(window, [] {});
            bare.push_back(yardstick.process);
            beyond.push_back(cost.process - yardstick.process);
            beyondOfMainThread.push_back(cost.mainThread - yardstick.mainThread);
        }
    }
    report(state, "bare", bare);
    report(state, "beyond", beyond);
    report(state, "main_thread_beyond", beyondOfMainThread);
    state.counters["pairs"] = static_cast<double>(beyond.size());
}
BENCHMARK(BM_HoverBeyondBareFrame)->Unit(benchmark::kMillisecond)->Iterations(100)->UseRealTime();

} // namespace
} // namespace ospra

/// Behind the options may stand the number of jumpers, 1 to 8.
int main(int argc, char** argv)
{
    ospra::prepareApplication();
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (argc > 1)
        ospra::jumperCount = std::clamp(std::strtoul(argv[1], nullptr, 10), 1UL, ospra::jumperNames.size());
    benchmark::RunSpecifiedBenchmarks();
    ospra::jumpWindow.letGo();
    return 0;
}
