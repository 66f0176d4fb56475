#include "workspace/ChartRow.h"

#include "display/nearest.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace ospra {

namespace {

constexpr double primaryWidth = 1.5;
constexpr double companionWidth = 1.2;
constexpr double companionOpacity = 0.7;
constexpr double fromExitOpacity = 0.85;
constexpr DashPattern fromExitDash{.on = 5.0, .off = 4.0};
constexpr double hoverTolerance = 2.0; // s, exclusive

/// One line of a row with what its hover dot needs.
struct RowLine {
    ChartPoints points{};
    Color color = Color::white;
    double width = primaryWidth;
    double opacity = 1.0;
    double dotOpacity = 1.0;
    DashPattern dash{};
};

RowLine trackLine(const ChartPoints& points, bool isPrimary, Color jumperColor)
{
    return {.points = points,
            .color = isPrimary ? Color::primaryTrack : jumperColor,
            .width = isPrimary ? primaryWidth : companionWidth,
            .opacity = isPrimary ? 1.0 : companionOpacity};
}

std::vector<RowLine> seriesLines(DataSeries series, const OspraModel& model)
{
    std::vector<RowLine> lines;
    for (const VisibleTrackData& track : model.visibleChartTracks())
        lines.push_back(trackLine(track.seriesData[series], track.isPrimary, track.jumperColor));
    return lines;
}

std::vector<RowLine> horizontalLines(const OspraModel& model)
{
    std::vector<RowLine> lines;
    for (const VisibleHorizontalDistanceTrackData& track : model.visibleHorizontalDistanceTracks()) {
        lines.push_back(trackLine(track.traveled, track.isPrimary, track.jumperColor));
        RowLine fromExit = trackLine(track.fromExit, track.isPrimary, track.jumperColor);
        fromExit.opacity *= fromExitOpacity;
        fromExit.dotOpacity = fromExitOpacity;
        fromExit.dash = fromExitDash;
        lines.push_back(std::move(fromExit));
    }
    return lines;
}

std::vector<RowLine> distanceLines(DistanceSeries series, const OspraModel& model)
{
    std::vector<RowLine> lines;
    for (const CompanionDistanceData& companion : model.visibleDistanceDataCache())
        lines.push_back({.points = companion.data[series], .color = companion.companionColor});
    return lines;
}

/// In the order of the jumpers.
std::vector<RowLine> rowLines(const ChartRow& row, const OspraModel& model)
{
    switch (row.kind) {
    case ChartRow::Kind::series: return seriesLines(row.series, model);
    case ChartRow::Kind::horizontal: return horizontalLines(model);
    case ChartRow::Kind::distance: return distanceLines(row.distance, model);
    }
    return {};
}

std::uint32_t paletteColor(const ChartPalette& palette, Color color)
{
    return palette[static_cast<std::size_t>(color)];
}

PlotLine plotLine(const RowLine& line, const ChartPalette& palette)
{
    static_assert(sizeof(ChartPoint) % sizeof(double) == 0);
    const bool isEmpty = line.points.empty();
    return {.owner = line.points.owner(),
            .x = isEmpty ? nullptr : &line.points[0].seconds,
            .y = isEmpty ? nullptr : &line.points[0].value,
            .stride = sizeof(ChartPoint) / sizeof(double),
            .count = line.points.size(),
            .color = paletteColor(palette, line.color),
            .width = line.width,
            .opacity = line.opacity,
            .dash = line.dash};
}

std::vector<PlotMarker> plotMarkers(const OspraModel& model, const ChartPalette& palette)
{
    std::vector<PlotMarker> markers;
    for (const ChartMarker& marker : pitchMarkers(model.tracks(), model.hiddenTrackIDs()))
        markers.push_back({.seconds = marker.seconds,
                           .color = paletteColor(palette, marker.color),
                           .letter = "P",
                           .dash = {.on = 3.0, .off = 4.0},
                           .ruleOpacity = 0.6,
                           .letterOpacity = 0.9});
    for (const ChartMarker& marker : saddleMarkers(model.tracks(), model.hiddenTrackIDs()))
        markers.push_back({.seconds = marker.seconds,
                           .color = paletteColor(palette, marker.color),
                           .letter = "S",
                           .dash = {.on = 2.0, .off = 2.0},
                           .ruleOpacity = 0.7,
                           .letterOpacity = 0.95});
    return markers;
}

} // namespace

std::vector<ChartRow> chartRows(const OspraModel& model)
{
    std::vector<ChartRow> rows;
    for (const DataSeries series : model.enabledSeriesList())
        rows.push_back({.kind = ChartRow::Kind::series, .series = series});
    if (!model.visibleHorizontalDistanceTracks().empty())
        rows.push_back({.kind = ChartRow::Kind::horizontal});
    if (!model.distanceData().empty())
        for (const DistanceSeries distance : model.enabledDistanceSeriesList())
            rows.push_back({.kind = ChartRow::Kind::distance, .distance = distance});
    return rows;
}

std::string_view rowTitle(const ChartRow& row)
{
    switch (row.kind) {
    case ChartRow::Kind::series: return displayName(row.series);
    case ChartRow::Kind::horizontal: return "Horizontal Distance";
    case ChartRow::Kind::distance: return displayName(row.distance);
    }
    return "";
}

Color rowColor(const ChartRow& row)
{
    switch (row.kind) {
    case ChartRow::Kind::series: return seriesColor(row.series);
    case ChartRow::Kind::horizontal: return Color::yellow;
    case ChartRow::Kind::distance: return seriesColor(row.distance);
    }
    return Color::yellow;
}

std::string rowUnit(const ChartRow& row, DisplayUnits units)
{
    return row.kind == ChartRow::Kind::series ? seriesUnit(row.series, units) : lengthUnit(units.system);
}

PlotContent rowContent(const ChartRow& row, const OspraModel& model, const ChartPalette& palette)
{
    const TimeRange range = model.displayRange();
    PlotContent content{.markers = plotMarkers(model, palette), .seconds = {range.lo, range.hi}};
    const std::vector<RowLine> lines = rowLines(row, model);
    // Drawn from back to front: the companions first, the primary on top of them.
    for (const RowLine& line : lines)
        if (line.color != Color::primaryTrack)
            content.lines.push_back(plotLine(line, palette));
    for (const RowLine& line : lines)
        if (line.color == Color::primaryTrack)
            content.lines.push_back(plotLine(line, palette));
    return content;
}

std::vector<HoverRow> rowReadings(const ChartRow& row, const OspraModel& model)
{
    const std::optional<double> seconds = model.hoveredSeconds();
    const DisplayUnits units = model.units();
    switch (row.kind) {
    case ChartRow::Kind::series: return hoveredValues(model.visibleChartTracks(), row.series, seconds, units);
    case ChartRow::Kind::horizontal:
        return hoveredHorizontalValues(model.visibleHorizontalDistanceTracks(), seconds, units.system);
    case ChartRow::Kind::distance:
        return hoveredDistanceValues(model.visibleDistanceDataCache(), row.distance, seconds, units.system);
    }
    return {};
}

PlotDots rowDots(const ChartRow& row, const OspraModel& model, const ChartPalette& palette)
{
    PlotDots dots;
    const std::optional<double> seconds = model.hoveredSeconds();
    if (!seconds)
        return dots;
    std::vector<RowLine> lines = rowLines(row, model);
    std::ranges::stable_partition(lines, [](const RowLine& line) { return line.color != Color::primaryTrack; });
    for (const RowLine& line : lines) {
        if (line.points.empty())
            continue;
        const std::ptrdiff_t index = nearestBy(line.points.span(), *seconds, Tie::earlier, &ChartPoint::seconds);
        const ChartPoint& point = line.points[static_cast<std::size_t>(index)];
        if (std::abs(point.seconds - *seconds) < hoverTolerance)
            dots.list.append({.seconds = point.seconds,
                              .value = point.value,
                              .color = paletteColor(palette, line.color),
                              .opacity = line.dotOpacity});
    }
    return dots;
}

} // namespace ospra
