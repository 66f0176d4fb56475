#include "overview/views/HeatmapLayout.h"

#include <algorithm>
#include <cmath>

namespace ospra {

namespace {

/// The elements of a row, each beginning `pitch` after the one before, that reach into a stretch of it.
IndexWindow windowBetween(double from, double to, double pitch, std::ptrdiff_t count)
{
    const double last = static_cast<double>(count);
    const double first = std::clamp(std::floor(from / pitch), 0.0, last);
    const double end = std::clamp(std::ceil(to / pitch), first, last);
    return {.first = static_cast<std::ptrdiff_t>(first), .end = static_cast<std::ptrdiff_t>(end)};
}

} // namespace

double HeatmapLayout::width(std::ptrdiff_t weekCount) const
{
    return weekCount > 0 ? left(weekCount) - cellSpacing : 0.0;
}

std::optional<HeatmapCell> HeatmapLayout::cellAt(double x, double y, std::ptrdiff_t weekCount) const
{
    const double week = std::floor(x / pitch());
    const double day = std::floor((y - gridTop()) / pitch());
    if (!(week >= 0.0 && week < static_cast<double>(weekCount) && day >= 0.0 && day < daysPerHeatmapWeek))
        return std::nullopt;
    const HeatmapCell cell{.week = static_cast<std::ptrdiff_t>(week), .day = static_cast<int>(day)};
    if (x - left(cell.week) >= cellSize || y - top(cell.day) >= cellSize)
        return std::nullopt;
    return cell;
}

IndexWindow HeatmapLayout::columnsBetween(double from, double to, std::ptrdiff_t weekCount) const
{
    return windowBetween(from, to, pitch(), weekCount);
}

IndexWindow HeatmapLayout::barsBetween(double from, double to, std::ptrdiff_t weekCount)
{
    return windowBetween(from, to, barPitch, weekCount);
}

} // namespace ospra
