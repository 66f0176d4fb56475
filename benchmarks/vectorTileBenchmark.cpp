#include "tests/support/VectorTileWriter.h"
#include "tilemap/vector/VectorTile.h"
#include "tilemap/vector/paintOverlay.h"
#include "tilemap/vector/paintRoads.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <array>
#include <random>

namespace ospra {
namespace {

constexpr TileID firstTile{14, 8528, 5974};

/// A tile of a dense town: 3,000 roads of 12 points each, and 200 names.
WrittenTile denseTown(unsigned seed)
{
    constexpr int extent = 4096;
    std::mt19937 random(seed);
    const auto upTo = [&](int greatest) { return static_cast<int>(random() % static_cast<unsigned>(greatest)); };
    constexpr std::array<std::string_view, 6> classes{"minor", "minor", "service", "path", "tertiary", "primary"};
    WrittenTile tile;
    for (int i = 0; i < 3'000; ++i) {
        GridLine line{{upTo(extent), upTo(extent)}};
        const GridPoint step{upTo(60) - 30, upTo(60) - 30};
        for (int k = 1; k < 12; ++k)
            line.push_back({line.back().x + step.x + upTo(12) - 6, line.back().y + step.y + upTo(12) - 6});
        const std::string roadClass(classes[static_cast<std::size_t>(upTo(static_cast<int>(classes.size())))]);
        if (i % 20 == 0)
            tile.roadNames.push_back({.name = "Street " + std::to_string(i), .roadClass = "tertiary", .parts = {line}});
        tile.roads.push_back({.roadClass = roadClass, .parts = {std::move(line)}});
    }
    for (int i = 0; i < 50; ++i)
        tile.places.push_back({.name = "Quarter " + std::to_string(i),
                               .placeClass = "suburb",
                               .rank = i,
                               .point = {upTo(extent), upTo(extent)}});
    return tile;
}

void decodeTile(benchmark::State& state)
{
    const std::string bytes = writeVectorTile(denseTown(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeVectorTile(bytes));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
    state.counters["kB"] = static_cast<double>(bytes.size()) / 1000.0;
}

/// Four by three tiles in a picture of 1100 x 900 logical pixels.
struct Town {
    explicit Town(double scale)
    {
        for (int i = 0; i < 12; ++i) {
            const TileID tile{firstTile.zoom, firstTile.x + i % 4, firstTile.y + i / 4};
            tiles.push_back(
                {tile, std::make_shared<const VectorTile>(
                           decodeVectorTile(writeVectorTile(denseTown(static_cast<unsigned>(i)))).value())});
        }
        constexpr double tileCount = 1 << firstTile.zoom;
        frame = {.camera = {.center = {(firstTile.x + 2) / tileCount, (firstTile.y + 1.5) / tileCount}, .zoom = 15.1},
                 .columns = static_cast<int>(1100 * scale),
                 .rows = static_cast<int>(900 * scale),
                 .scale = scale};
    }

    std::vector<PlacedVectorTile> tiles;
    LayerFrame frame;
};

/// Argument: scale factor.
void paintTown(benchmark::State& state)
{
    const Town town(static_cast<double>(state.range(0)));
    QFont font;
    font.setPixelSize(13);
    for (auto _ : state)
        benchmark::DoNotOptimize(paintOverlay(town.tiles, town.frame, font));
}

/// The same without names.
void paintTownRoads(benchmark::State& state)
{
    const Town town(static_cast<double>(state.range(0)));
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(town.frame.columns) *
                                      static_cast<std::size_t>(town.frame.rows));
    for (auto _ : state) {
        paintRoads(town.tiles, town.frame, pixels, town.frame.columns);
        benchmark::DoNotOptimize(pixels.data());
    }
}

BENCHMARK(decodeTile)->Unit(benchmark::kMillisecond);
BENCHMARK(paintTown)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(paintTownRoads)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ospra

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv); // without it there are no fonts
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
