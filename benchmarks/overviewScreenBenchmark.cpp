#include "benchmarks/BenchmarkWindow.h"
#include "overview/views/HeatmapItem.h"
#include "overview/views/OverviewState.h"
#include "tests/core/ModelTestBed.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

namespace ospra {
namespace {

constexpr int jumpCount = 20'000;
constexpr int years = 20; // a thousand jumps in each

/// A log that holds no more than the moment of an exit.
std::string exitAt(std::chrono::sys_seconds moment)
{
    using namespace std::chrono;
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d.00Z", int(date.year()), unsigned(date.month()),
                  unsigned(date.day()), int(time.hours().count()), int(time.minutes().count()),
                  int(time.seconds().count()));
    return "time,lat,lon,hMSL,velN,velE,velD\n,(deg),(deg),(m),(m/s),(m/s),(m/s)\n" + std::string(text) +
           ",47.0,8.0,4000.0,30.0,0.0,25.0\n";
}

/// The overview in a window of its own, on the jumps of twenty years until today.
class OverviewWindow {
public:
    OverviewWindow()
    {
        using namespace std::chrono;
        const auto now = floor<seconds>(system_clock::now());
        constexpr seconds pause = seconds(days(365)) * years / jumpCount;
        for (int i = 0; i < jumpCount; ++i)
            m_bed.addFile("Logbook", std::to_string(i) + ".csv", exitAt(now - i * pause));
        m_bed.model().openFolder(m_bed.folder("Logbook"));
        m_bed.settle();
        m_state.setSource(&m_bed.model());
        m_window = makeWindow(m_engine, R"(
            import QtQuick
            import Ospra.Overview
            Window {
                id: root
                required property OverviewState overview
                width: 980; height: 660; visible: true
                OverviewView { anchors.fill: parent; overview: root.overview }
            })",
                              {{QStringLiteral("overview"), QVariant::fromValue(&m_state)}});
        m_frames.watch(m_window.get());
        m_heatmap = m_window->findChild<HeatmapItem*>();
        m_frames.waitForFrame();
    }

    OverviewState& state() { return m_state; }
    HeatmapItem& heatmap() { return *m_heatmap; }
    void waitForFrame() { m_frames.waitForFrame(); }

    void showAllTime()
    {
        m_state.chooseRange(static_cast<int>(OverviewState::rangeNames().size()) - 1);
        waitForRest();
    }

private:
    ModelTestBed m_bed;
    OverviewState m_state;
    FrameWatch m_frames;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    HeatmapItem* m_heatmap = nullptr;
};

WindowAtFirstUse<OverviewWindow> overviewWindow;

/// From the choice of another range in a window at rest to the frame that shows it. Argument: the position of the range
/// in the menu; it takes turns with all of the time.
void BM_RangeToFrame(benchmark::State& state)
{
    OverviewWindow& window = overviewWindow();
    const int allTime = static_cast<int>(OverviewState::rangeNames().size()) - 1;
    for (auto _ : state) {
        waitForRest();
        const double start = milliseconds(CLOCK_MONOTONIC);
        window.state().chooseRange(window.state().rangeIndex() == allTime ? static_cast<int>(state.range(0)) : allTime);
        window.waitForFrame();
        state.SetIterationTime((milliseconds(CLOCK_MONOTONIC) - start) / 1e3);
    }
}
BENCHMARK(BM_RangeToFrame)->Arg(0)->Unit(benchmark::kMillisecond)->UseManualTime();

/// What a move of the pointer over the days costs beyond the same window drawn again without a change, in processor
/// time. The two take turns, so that whatever else the machine does falls on both.
void BM_HoverBeyondBareFrame(benchmark::State& state)
{
    OverviewWindow& window = overviewWindow();
    window.showAllTime();
    constexpr double cell = 14.0;     // logical px from one square to the next
    constexpr double firstRow = 24.0; // logical px from the top of the item to the middle of a Sunday or Monday
    const auto costOfFrame = [&] {
        const double start = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
        window.waitForFrame();
        return milliseconds(CLOCK_PROCESS_CPUTIME_ID) - start;
    };
    double hover = 0.0;
    double bare = 0.0;
    int step = 0;
    for (auto _ : state) {
        const double start = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
        window.heatmap().hoverAt(cell * (step % 50 + 0.4), firstRow + cell * 3.0);
        hover += milliseconds(CLOCK_PROCESS_CPUTIME_ID) - start + costOfFrame();
        bare += costOfFrame();
        ++step;
    }
    if (!window.heatmap().isOverDay())
        state.SkipWithError("the pointer was over no day");
    window.heatmap().endHover();
    const auto iterations = static_cast<double>(state.iterations());
    state.counters["bare_ms"] = bare / iterations;
    state.counters["beyond_ms"] = (hover - bare) / iterations;
}
BENCHMARK(BM_HoverBeyondBareFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace ospra

int main(int argc, char** argv)
{
    ospra::prepareApplication();
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    ospra::overviewWindow.letGo();
    return 0;
}
