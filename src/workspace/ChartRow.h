#pragma once

#include "core/OspraModel.h"
#include "plot/PlotContent.h"
#include "plot/PlotOverlay.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

/// 0xRRGGBB for each `Color`, in their order.
using ChartPalette = std::array<std::uint32_t, 13>;

/// One row of the chart column: a data series, the horizontal distances, or a distance series.
struct ChartRow {
    enum class Kind { series, horizontal, distance };

    Kind kind = Kind::series;
    DataSeries series = DataSeries::elevation;                    ///< of a series row
    DistanceSeries distance = DistanceSeries::horizontalDistance; ///< of a distance row

    friend auto operator<=>(const ChartRow&, const ChartRow&) = default; ///< from top to bottom
};

/// The rows that are on, from top to bottom.
[[nodiscard]] std::vector<ChartRow> chartRows(const OspraModel& model);

[[nodiscard]] std::string_view rowTitle(const ChartRow& row);
/// The colour of the dot beside the title.
[[nodiscard]] Color rowColor(const ChartRow& row);
[[nodiscard]] std::string rowUnit(const ChartRow& row, DisplayUnits units);

/// Lines and markers of a row, the primary's line on top.
[[nodiscard]] PlotContent rowContent(const ChartRow& row, const OspraModel& model, const ChartPalette& palette);

/// What the jumpers' lines read under the pointer, beside the title.
[[nodiscard]] std::vector<HoverRow> rowReadings(const ChartRow& row, const OspraModel& model);

/// The dots on the lines under the pointer; a line has none where its nearest sample is 2 s away or more.
[[nodiscard]] PlotDots rowDots(const ChartRow& row, const OspraModel& model, const ChartPalette& palette);

} // namespace ospra
