#include "plot/PlotRasteriser.h"

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace ospra {
namespace {

constexpr int rowCount = 6;
constexpr int lineCount = 4;
constexpr double duration = 600.0; // s
constexpr double width = 900.0;    // logical px of a row's picture
constexpr double height = 130.0;

enum class Shape { smooth, noisy };

struct Sample {
    double number = 0.0; // samples come with other fields beside the two that are drawn
    double seconds = 0.0;
    double value = 0.0;
};

/// The lines of all rows, each with samples of its own.
std::vector<PlotContent> makeRows(Shape shape, std::size_t sampleCount)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> noise(0.0, 100.0);
    std::vector<PlotContent> rows(rowCount);
    for (int row = 0; row < rowCount; ++row) {
        for (int line = 0; line < lineCount; ++line) {
            auto samples = std::make_shared<std::vector<Sample>>(sampleCount);
            for (std::size_t i = 0; i < sampleCount; ++i) {
                const double seconds = duration * static_cast<double>(i) / static_cast<double>(sampleCount - 1);
                const double smooth =
                    50.0 + 40.0 * std::sin(seconds / (20.0 + 7.0 * row) + line) + 5.0 * std::sin(seconds / 3.0 + row);
                (*samples)[i] = {0.0, seconds, shape == Shape::smooth ? smooth : noise(random)};
            }
            rows[static_cast<std::size_t>(row)].lines.push_back({.owner = samples,
                                                                 .x = &samples->front().seconds,
                                                                 .y = &samples->front().value,
                                                                 .stride = 3,
                                                                 .count = sampleCount,
                                                                 .width = line == 3 ? 1.5 : 1.2,
                                                                 .opacity = line == 3 ? 1.0 : 0.7});
        }
    }
    return rows;
}

PlotFrame makeFrame(double scale)
{
    return {.columns = static_cast<int>(width * scale),
            .rows = static_cast<int>(height * scale),
            .plotWidth = width * scale,
            .plotTop = 2.0 * scale,
            .plotHeight = (height - 4.0) * scale,
            .scale = scale,
            .seconds = {0.0, duration},
            .values = {0.0, 100.0}};
}

/// All rows, drawn by this program. Arguments: samples a line, scale factor in percent.
void drawRows(benchmark::State& state, Shape shape)
{
    const auto rows = makeRows(shape, static_cast<std::size_t>(state.range(0)));
    const PlotFrame frame = makeFrame(static_cast<double>(state.range(1)) / 100.0);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows));
    PlotRasteriser rasteriser;
    for (auto _ : state) {
        for (const PlotContent& row : rows) {
            rasteriser.draw(row, frame, pixels, frame.columns);
            benchmark::DoNotOptimize(pixels.data());
        }
    }
}

/// One line as QPainter is best fed with it: at most four points in a pixel column.
QPolygonF reducedToColumns(const PlotLine& line, const PlotFrame& frame)
{
    QPolygonF points;
    for (std::size_t i = 0; i < line.count;) {
        const auto at = [&](std::size_t k) {
            const auto offset = static_cast<std::ptrdiff_t>(k) * line.stride;
            return QPointF(frame.xScale().pixelAt(line.x[offset]), frame.yScale().pixelAt(line.y[offset]));
        };
        const QPointF first = at(i);
        QPointF least = first;
        QPointF greatest = first;
        QPointF last = first;
        for (; i < line.count; ++i) {
            const QPointF point = at(i);
            if (std::floor(point.x()) != std::floor(first.x()))
                break;
            least = point.y() < least.y() ? point : least;
            greatest = point.y() > greatest.y() ? point : greatest;
            last = point;
        }
        points << first << (least.x() < greatest.x() ? least : greatest)
               << (least.x() < greatest.x() ? greatest : least) << last;
    }
    return points;
}

/// The same rows by QPainter, reduced in the same way.
void paintRows(benchmark::State& state, Shape shape)
{
    const auto rows = makeRows(shape, static_cast<std::size_t>(state.range(0)));
    const PlotFrame frame = makeFrame(static_cast<double>(state.range(1)) / 100.0);
    QImage image(frame.columns, frame.rows, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        for (const PlotContent& row : rows) {
            image.fill(Qt::transparent);
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            for (const PlotLine& line : row.lines) {
                painter.setOpacity(line.opacity);
                painter.setPen(QPen(QColor(QRgb(line.color)), line.width * frame.scale, Qt::SolidLine, Qt::FlatCap,
                                    Qt::BevelJoin));
                painter.drawPolyline(reducedToColumns(line, frame));
            }
        }
    }
}

BENCHMARK_CAPTURE(drawRows, smooth, Shape::smooth)
    ->Args({25'000, 100})
    ->Args({25'000, 200})
    ->Args({250'000, 100})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawRows, noisy, Shape::noisy)
    ->Args({25'000, 100})
    ->Args({25'000, 200})
    ->Args({250'000, 100})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintRows, smooth, Shape::smooth)->Args({25'000, 100})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintRows, noisy, Shape::noisy)->Args({25'000, 100})->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ospra
