#pragma once

#include "overview/HeatmapGrid.h"

#include <cstddef>
#include <optional>

namespace ospra {

/// Columns or bars that follow one another.
struct IndexWindow {
    std::ptrdiff_t first = 0;
    std::ptrdiff_t end = 0; ///< behind the last

    friend bool operator==(const IndexWindow&, const IndexWindow&) = default;
};

/// Where the parts of the heatmap lie, in logical pixels from the top left of the oldest week: the names of the months,
/// the squares, the title of the weekly trend and its bars.
struct HeatmapLayout {
    static constexpr double labelGap = 3.0;
    static constexpr double gridGap = 8.0;
    static constexpr double trendGap = 2.0;
    static constexpr double barsHeight = 18.0;
    static constexpr double barWidth = 3.0;
    static constexpr double barPitch = 4.0;

    double cellSize = 12.0;
    double cellSpacing = 2.0;
    double labelHeight = 14.0;
    double trendTitleHeight = 13.0;

    friend bool operator==(const HeatmapLayout&, const HeatmapLayout&) = default;

    [[nodiscard]] double pitch() const { return cellSize + cellSpacing; }
    [[nodiscard]] double gridTop() const { return labelHeight + labelGap; }
    [[nodiscard]] double gridHeight() const { return daysPerHeatmapWeek * pitch() - cellSpacing; }
    [[nodiscard]] double trendTop() const { return gridTop() + gridHeight() + gridGap; }
    [[nodiscard]] double barsTop() const { return trendTop() + trendTitleHeight + trendGap; }
    [[nodiscard]] double height() const { return barsTop() + barsHeight; }

    /// The width of so many weeks. The trend below them is narrower.
    [[nodiscard]] double width(std::ptrdiff_t weekCount) const;
    [[nodiscard]] double left(std::ptrdiff_t week) const { return static_cast<double>(week) * pitch(); }
    [[nodiscard]] double top(int day) const { return gridTop() + day * pitch(); }

    /// The square at a place; absent in the gaps between squares and outside the grid.
    [[nodiscard]] std::optional<HeatmapCell> cellAt(double x, double y, std::ptrdiff_t weekCount) const;
    /// The columns of which something lies between two places.
    [[nodiscard]] IndexWindow columnsBetween(double from, double to, std::ptrdiff_t weekCount) const;
    /// The same for the bars of the weekly trend.
    [[nodiscard]] static IndexWindow barsBetween(double from, double to, std::ptrdiff_t weekCount);
};

} // namespace ospra
