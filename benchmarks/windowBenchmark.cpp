#include "plot/PlotItem.h"
#include "tests/core/ModelTestBed.h"
#include "workspace/OspraApp.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <memory>
#include <vector>

namespace ospra {
namespace {

/// Milliseconds of a clock: processor time of this thread or of the whole process, or time of day.
double milliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The real window on a jump of four tracks of about 25,000 samples, all rows on.
class JumpWindow {
public:
    JumpWindow()
    {
        double start = JumpPlan{}.startSeconds;
        for (const char* name : {"me", "a", "b", "c"})
            m_bed.addLog(name, "jump.csv", {.rate = 45.0, .climbSeconds = 240.0, .startSeconds = start += 1.0});
        model().openFolder(m_bed.folder("me"));
        for (const char* name : {"a", "b", "c"})
            model().addCompanion(m_bed.folder(name));
        m_bed.settle();
        model().setEnabledSeries({allDataSeries.begin(), allDataSeries.end()});
        model().selectNextJump();
        m_bed.settle();
        m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        m_engine.setInitialProperties({{QStringLiteral("source"), QVariant::fromValue(&model())}});
        m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Ospra/Workspace/MainWindow.qml")));
        m_window = qobject_cast<QQuickWindow*>(m_engine.rootObjects().value(0));
        // Both on the render thread. A frame counts from the moment at which it took over the items' state: one that
        // is still being drawn then shows what was before.
        const auto direct = Qt::DirectConnection;
        QObject::connect(m_window, &QQuickWindow::afterSynchronizing, m_window, [this] { ++m_taken; }, direct);
        QObject::connect(
            m_window, &QQuickWindow::frameSwapped, m_window,
            [this] {
                m_shown = m_taken.load();
                QMetaObject::invokeMethod(m_window, [] {}, Qt::QueuedConnection); // wakes the loop
            },
            direct);
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

    /// Until the buttons have faded and nothing moves any more.
    void rest()
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 250)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    void waitForFrame()
    {
        const int before = m_taken; // stands still, as a frame takes over while this thread waits
        m_window->update();
        waitFor([&] { return m_shown > before; });
    }

private:
    template <typename Reached>
    static void waitFor(Reached reached)
    {
        while (!reached())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    }

    void collect(QQuickItem* item)
    {
        if (auto* plot = qobject_cast<PlotItem*>(item))
            m_plots.push_back(plot);
        for (QQuickItem* child : item->childItems())
            collect(child);
    }

    ModelTestBed m_bed;
    QQmlApplicationEngine m_engine;
    QQuickWindow* m_window = nullptr;
    std::vector<PlotItem*> m_plots;
    std::atomic<int> m_taken = 0;
    std::atomic<int> m_shown = 0;
};

/// Made at the first use, and gone before the application is.
std::unique_ptr<JumpWindow> theWindow;

JumpWindow& jumpWindow()
{
    if (!theWindow)
        theWindow = std::make_unique<JumpWindow>();
    return *theWindow;
}

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
        window.rest();
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

/// One move of the pointer over the charts to its frame; the counter is the processor time of the whole process.
void BM_HoverToFrame(benchmark::State& state)
{
    JumpWindow& window = jumpWindow();
    const TimeRange range = window.model().displayRange();
    const double start = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    double seconds = range.lo;
    for (auto _ : state) {
        seconds = seconds + 0.5 > range.hi ? range.lo : seconds + 0.5;
        window.model().setHoveredSeconds(seconds);
        window.waitForFrame();
    }
    state.counters["process_ms"] =
        (milliseconds(CLOCK_PROCESS_CPUTIME_ID) - start) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_HoverToFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The yardstick of the hover: the same window drawn again without any change.
void BM_BareFrame(benchmark::State& state)
{
    JumpWindow& window = jumpWindow();
    window.model().setHoveredSeconds(std::nullopt);
    const double start = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    for (auto _ : state)
        window.waitForFrame();
    state.counters["process_ms"] =
        (milliseconds(CLOCK_PROCESS_CPUTIME_ID) - start) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_BareFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace ospra

int main(int argc, char** argv)
{
    ospra::prepareApplication();
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    ospra::theWindow.reset();
    return 0;
}
