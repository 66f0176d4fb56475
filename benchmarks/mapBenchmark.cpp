#include "benchmarks/BenchmarkWindow.h"
#include "tests/core/ModelTestBed.h"
#include "tests/support/TileServer.h"
#include "tilemap/item/MapImagery.h"
#include "tilemap/item/TileMap.h"
#include "workspace/FlightMapModel.h"

#include <QElapsedTimer>

#include <benchmark/benchmark.h>

#include <memory>
#include <utility>
#include <vector>

namespace ospra {
namespace {

/// The flight map alone in a window of 800 x 600, on jumps of four tracks of about 25,000 samples, with imagery.
class MapWindow {
public:
    MapWindow()
    {
        double start = JumpPlan{}.startSeconds;
        for (const char* name : {"me", "a", "b", "c"}) {
            start += 1.0;
            for (const auto& [file, later] : {std::pair{"one.csv", 0.0}, std::pair{"two.csv", 86400.0}})
                m_bed.addLog(name, file, {.rate = 45.0, .climbSeconds = 240.0, .startSeconds = start + later});
        }
        model().openFolder(m_bed.folder("me"));
        for (const char* name : {"a", "b", "c"})
            model().addCompanion(m_bed.folder(name));
        m_bed.settle();
        model().selectNextJump();
        m_bed.settle();
        m_window = makeWindow(m_engine, R"(
            import QtQuick
            import Ospra.Workspace
            Window {
                id: root
                required property OspraModel source
                width: 800; height: 600; visible: true
                FlightPathMapView { anchors.fill: parent; source: root.source }
            })",
                              {{QStringLiteral("source"), QVariant::fromValue(&model())}});
        m_frames.watch(m_window.get());
        m_map = m_window->findChild<TileMap*>();
        waitFor([this] { return m_map->pathRasterCount() > 0 && m_map->textureCount() >= 6; });
        for (int frame = 0; frame < 60; ++frame) // the rest of the tiles come in the meantime
            waitForFrame();
    }

    OspraModel& model() { return m_bed.model(); }
    TileMap& map() { return *m_map; }

    /// Loads the jump that is not shown. @return whether a load has run
    bool loadOther()
    {
        const bool isNewest = model().selectedGroup() == model().jumpGroups().front();
        isNewest ? model().selectNextJump() : model().selectPreviousJump();
        const bool hasBegun = model().isLoading();
        m_bed.settle();
        return hasBegun;
    }

    void waitForFrame() { m_frames.waitForFrame(); }

    /// Until a picture of the paths newer than `before` is shown.
    void waitForPicture(int before)
    {
        waitFor([&] { return m_map->pathRasterCount() > before; });
        waitForFrame();
    }

private:
    TileServer m_server;
    MapImagery m_imagery{std::make_unique<TileStore>(
        std::vector{
            MapSource{.id = "ground", .address = m_server.address() + "/imagery/{z}/{x}/{y}.jpg", .nativeZoom = 17}},
        TileStoreOptions{.userAgent = "map-benchmark/1"})};
    ModelTestBed m_bed;
    FrameWatch m_frames;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    TileMap* m_map = nullptr;
};

WindowAtFirstUse<MapWindow> mapWindow;

void countTime(benchmark::State& state, double start, int pictures)
{
    const auto iterations = static_cast<double>(state.iterations());
    state.counters["process_ms"] = (milliseconds(CLOCK_PROCESS_CPUTIME_ID) - start) / iterations;
    state.counters["path_pictures"] = (mapWindow().map().pathRasterCount() - pictures) / iterations;
    state.counters["tiles"] = mapWindow().map().textureCount();
}

/// A frame while the ground is dragged in a wide circle, 8 px a frame.
void BM_PanToFrame(benchmark::State& state)
{
    MapWindow& window = mapWindow();
    const double start = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    const int pictures = window.map().pathRasterCount();
    int step = 0;
    for (auto _ : state) {
        constexpr int side = 60; // frames
        const int turn = step++ / side % 4;
        window.map().setCamera(panned(window.map().camera(),
                                      turn == 0   ? 8
                                      : turn == 2 ? -8
                                                  : 0,
                                      turn == 1   ? 8
                                      : turn == 3 ? -8
                                                  : 0));
        window.waitForFrame();
    }
    countTime(state, start, pictures);
}
BENCHMARK(BM_PanToFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A frame while the wheel zooms in and out, a level in 20 frames.
void BM_ZoomToFrame(benchmark::State& state)
{
    MapWindow& window = mapWindow();
    const double start = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    const int pictures = window.map().pathRasterCount();
    int step = 0;
    for (auto _ : state) {
        const double way = step++ / 20 % 2 == 0 ? 0.05 : -0.05;
        window.map().setCamera(zoomedAbout(window.map().view(), {300.0, 300.0}, window.map().zoom() + way));
        window.waitForFrame();
    }
    countTime(state, start, pictures);
}
BENCHMARK(BM_ZoomToFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A frame while the cursor of the charts moves the markers.
void BM_HoverToFrame(benchmark::State& state)
{
    MapWindow& window = mapWindow();
    const TimeRange range = window.model().displayRange();
    const double start = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    const int pictures = window.map().pathRasterCount();
    double seconds = range.lo;
    for (auto _ : state) {
        seconds = seconds + 0.5 > range.hi ? range.lo : seconds + 0.5;
        window.model().setHoveredSeconds(seconds);
        window.waitForFrame();
    }
    countTime(state, start, pictures);
}
BENCHMARK(BM_HoverToFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The yardstick: the same map drawn again without any change.
void BM_BareFrame(benchmark::State& state)
{
    MapWindow& window = mapWindow();
    const double start = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    const int pictures = window.map().pathRasterCount();
    for (auto _ : state)
        window.waitForFrame();
    countTime(state, start, pictures);
}
BENCHMARK(BM_BareFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

/// From the finish of a load to the frame that shows its paths, in a window where nothing moves any more.
void BM_LoadToPicture(benchmark::State& state)
{
    MapWindow& window = mapWindow();
    QElapsedTimer timer;
    const QMetaObject::Connection finish =
        QObject::connect(&window.model(), &OspraModel::tracksChanged, &window.map(), [&timer] { timer.start(); });
    for (auto _ : state) {
        waitForRest();
        const int before = window.map().pathRasterCount();
        if (!window.loadOther()) {
            state.SkipWithError("nothing was loaded");
            break;
        }
        window.waitForPicture(before);
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) / 1e9);
    }
    QObject::disconnect(finish);
}
BENCHMARK(BM_LoadToPicture)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
} // namespace ospra

int main(int argc, char** argv)
{
    ospra::prepareApplication();
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    ospra::mapWindow.letGo();
    return 0;
}
