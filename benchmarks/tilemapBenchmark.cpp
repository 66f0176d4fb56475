#include "tilemap/PathLayer.h"
#include "tilemap/planTiles.h"

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace ospra {
namespace {

constexpr int trackCount = 4;
constexpr std::size_t sampleCount = 25'000;
constexpr double metersPerDegree = 111'320.0;
constexpr Coordinate dropzone{47.28, 8.75};

/// Where a jumper is after some portion of the log: a climb in circles, a fall in a drift, a canopy flight in turns, a
/// walk home; with a receiver's noise on top.
Coordinate placeAfter(double portion, int track, std::mt19937& random)
{
    std::normal_distribution<double> noise(0.0, 0.15); // m
    double east = 40.0 * track;
    double north = 25.0 * track;
    if (portion < 0.5) {
        east += 2500.0 * std::sin(portion * 25.0) * (1.0 - portion);
        north += 2500.0 * std::cos(portion * 25.0) * (1.0 - portion);
    } else if (portion < 0.6) {
        east += 1200.0 - 6000.0 * (portion - 0.5);
        north += 300.0 * std::sin(portion * 40.0);
    } else {
        east += 600.0 * std::cos(portion * 60.0) * (1.0 - portion) * 2.0;
        north += 600.0 * std::sin(portion * 45.0) * (1.0 - portion) * 2.0;
    }
    const double degreesEast = metersPerDegree * std::cos(dropzone.latitude * std::numbers::pi / 180.0);
    return {dropzone.latitude + (north + noise(random)) / metersPerDegree,
            dropzone.longitude + (east + noise(random)) / degreesEast};
}

/// Four tracks of five phases each, styled as a flight map styles them.
std::vector<MapPath> makePaths()
{
    struct Phase {
        double end = 1.0;
        double width = 3.0;
        DashPattern dash{};
    };
    const std::vector<Phase> phases{{0.5, 1.5, {6.0, 4.0}},
                                    {0.6, 3.0, {}},
                                    {0.62, 3.0, {4.0, 3.0}},
                                    {0.9, 2.1, {8.0, 3.0}},
                                    {1.0, 0.9, {2.0, 4.0}}};
    std::mt19937 random(5);
    std::vector<MapPath> paths;
    for (int track = 0; track < trackCount; ++track) {
        std::size_t first = 0;
        for (const Phase& phase : phases) {
            const auto end = static_cast<std::size_t>(phase.end * static_cast<double>(sampleCount));
            auto coordinates = std::make_shared<std::vector<Coordinate>>();
            for (std::size_t i = first; i < end; ++i)
                coordinates->push_back(placeAfter(static_cast<double>(i) / double{sampleCount}, track, random));
            paths.push_back({.id = std::to_string(track) + "/" + std::to_string(first),
                             .coordinates = std::move(coordinates),
                             .color = 0xff3b30U + 0x2050U * static_cast<unsigned>(track),
                             .width = phase.width,
                             .opacity = 0.9,
                             .dash = phase.dash,
                             .casingOpacity = 0.4,
                             .casingWidth = phase.width + 2.0});
            first = end;
        }
    }
    return paths;
}

LayerFrame makeFrame(const std::vector<MapPath>& paths, double scale, double closer = 0.0)
{
    Camera camera = cameraFraming(*boundsOf(paths), 800.0, 600.0, 30.0, highestZoom);
    camera.zoom += closer;
    return {.camera = camera,
            .columns = static_cast<int>(800.0 * scale),
            .rows = static_cast<int>(600.0 * scale),
            .scale = scale};
}

std::vector<std::uint32_t> makePixels(const LayerFrame& frame)
{
    return std::vector<std::uint32_t>(static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows));
}

void project(benchmark::State& state)
{
    const auto paths = makePaths();
    for (auto _ : state) {
        for (const MapPath& path : paths)
            benchmark::DoNotOptimize(worldPoints(*path.coordinates));
    }
    state.SetItemsProcessed(state.iterations() * std::int64_t{trackCount} * std::int64_t{sampleCount});
}

/// The first picture of all paths. Arguments: scale factor, zoom levels closer than a view of everything.
void drawFirst(benchmark::State& state)
{
    const auto paths = makePaths();
    const LayerFrame frame = makeFrame(paths, static_cast<double>(state.range(0)), static_cast<double>(state.range(1)));
    auto pixels = makePixels(frame);
    for (auto _ : state) {
        PathLayer().draw(paths, frame, pixels, frame.columns);
        benchmark::DoNotOptimize(pixels.data());
    }
}

/// The same once more, after a pan.
void drawAgain(benchmark::State& state)
{
    const auto paths = makePaths();
    LayerFrame frame = makeFrame(paths, static_cast<double>(state.range(0)), static_cast<double>(state.range(1)));
    auto pixels = makePixels(frame);
    PathLayer layer;
    layer.draw(paths, frame, pixels, frame.columns);
    double step = 7.0;
    for (auto _ : state) {
        frame.camera = panned(frame.camera, step, step);
        step = -step;
        layer.draw(paths, frame, pixels, frame.columns);
        benchmark::DoNotOptimize(pixels.data());
    }
}

/// The same lines by QPainter, from points reduced as ours are.
void paintAgain(benchmark::State& state)
{
    const auto paths = makePaths();
    const LayerFrame frame = makeFrame(paths, static_cast<double>(state.range(0)));
    const double size = frame.camera.worldSize() * frame.scale;
    std::vector<QPolygonF> polygons;
    for (const MapPath& path : paths) {
        QPolygonF& polygon = polygons.emplace_back();
        for (const WorldPoint& point : reducedPath(worldPoints(*path.coordinates), 1.0 / 3.0 / size).points)
            polygon << QPointF(frame.columns / 2.0 + (point.x - frame.camera.center.x) * size,
                               frame.rows / 2.0 + (point.y - frame.camera.center.y) * size);
    }
    QImage image(frame.columns, frame.rows, QImage::Format_ARGB32_Premultiplied);
    const auto paint = [&](QPainter& painter, std::size_t i, QRgb color, double opacity, double width) {
        QPen pen(QColor(color), width * frame.scale, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
        if (!paths[i].dash.isSolid())
            pen.setDashPattern({paths[i].dash.on / width, paths[i].dash.off / width});
        painter.setOpacity(opacity);
        painter.setPen(pen);
        painter.drawPolyline(polygons[i]);
    };
    for (auto _ : state) {
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        for (std::size_t i = 0; i < paths.size(); ++i) {
            paint(painter, i, 0, paths[i].casingOpacity, paths[i].casingWidth);
            paint(painter, i, paths[i].color, paths[i].opacity, paths[i].width);
        }
    }
}

/// A view of 1600 by 1000 over a world source and a national one with a fine border. Argument: whether tiles are ready.
void chooseTiles(benchmark::State& state)
{
    std::vector<Coordinate> border;
    for (int i = 0; i < 500; ++i)
        border.push_back(
            {47.0 + std::sin(i * std::numbers::pi / 250.0), 8.5 + 2.0 * std::cos(i * std::numbers::pi / 250.0)});
    const std::vector<MapSource> sources{{.id = "world", .nativeZoom = 14},
                                         {.id = "nation", .lowestZoom = 14, .nativeZoom = 19, .bounds = {border}}};
    const MapView view{.camera = {worldPoint(dropzone).value(), 16.3}, .width = 1600.0, .height = 1000.0};
    const TileState known = state.range(0) != 0 ? TileState::ready : TileState::unknown;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            planTiles(view, 2.0, sources, MapSourceKind::imagery, [&](const TileKey&) { return known; }));
}

BENCHMARK(project)->Unit(benchmark::kMillisecond);
BENCHMARK(drawFirst)->Args({1, 0})->Args({2, 0})->Args({1, 3})->Unit(benchmark::kMillisecond);
BENCHMARK(drawAgain)->Args({1, 0})->Args({2, 0})->Args({1, 3})->Unit(benchmark::kMillisecond);
BENCHMARK(paintAgain)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(chooseTiles)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ospra
