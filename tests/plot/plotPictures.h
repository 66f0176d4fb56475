#pragma once

#include "plot/PlotRasteriser.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace ospra {

/// A drawn plot, of which a test can ask single pixels.
struct DrawnPlot {
    int columns = 0;
    int rows = 0;
    std::vector<std::uint32_t> pixels{};

    [[nodiscard]] std::uint32_t pixel(int column, int row) const
    {
        return pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                      static_cast<std::size_t>(column)];
    }
    [[nodiscard]] int alpha(int column, int row) const { return static_cast<int>(pixel(column, row) >> 24); }
    /// Alpha of a whole column of pixels, in pixels: the thickness of what is drawn there.
    [[nodiscard]] double columnCoverage(int column) const
    {
        double sum = 0.0;
        for (int row = 0; row < rows; ++row)
            sum += alpha(column, row) / 255.0;
        return sum;
    }
    [[nodiscard]] double rowCoverage(int row) const
    {
        double sum = 0.0;
        for (int column = 0; column < columns; ++column)
            sum += alpha(column, row) / 255.0;
        return sum;
    }
};

/// A frame in which a time of n lies n pixels from the left, and a value of n lies n pixels below the top.
[[nodiscard]] inline PlotFrame pixelFrame(int columns, int rows, double scale = 1.0)
{
    return {.columns = columns,
            .rows = rows,
            .plotWidth = static_cast<double>(columns),
            .plotTop = 0.0,
            .plotHeight = static_cast<double>(rows),
            .scale = scale,
            .seconds = {0.0, static_cast<double>(columns)},
            .values = {static_cast<double>(rows), 0.0}};
}

/// A white line of width 1.5 that owns its points.
[[nodiscard]] inline PlotLine lineThrough(const std::vector<PixelPoint>& points)
{
    auto owned = std::make_shared<const std::vector<PixelPoint>>(points);
    const double* const x = owned->empty() ? nullptr : &owned->front().x;
    const double* const y = owned->empty() ? nullptr : &owned->front().y;
    return {.owner = owned, .x = x, .y = y, .stride = 2, .count = owned->size()};
}

[[nodiscard]] inline DrawnPlot drawPlot(const PlotContent& content, const PlotFrame& frame)
{
    DrawnPlot drawn{frame.columns, frame.rows, {}};
    drawn.pixels.assign(static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows), 0xdeadbeef);
    PlotRasteriser().draw(content, frame, drawn.pixels, frame.columns);
    return drawn;
}

[[nodiscard]] inline DrawnPlot drawLine(const PlotLine& line, const PlotFrame& frame)
{
    return drawPlot({.lines = {line}}, frame);
}

} // namespace ospra
