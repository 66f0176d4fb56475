#pragma once

#include "plot/LinearScale.h"
#include "raster/DashPattern.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ospra {

/// A line through points that somebody else keeps. Points with a coordinate that is not finite are left out, and their
/// neighbours joined. The x need not ascend.
struct PlotLine {
    std::shared_ptr<const void> owner{}; ///< keeps the points alive and unchanged
    const double* x = nullptr;           ///< of the first point
    const double* y = nullptr;           ///< of the first point
    std::ptrdiff_t stride = 1;           ///< from one point to the next, in doubles
    std::size_t count = 0;
    std::uint32_t color = 0xffffff; ///< 0xRRGGBB
    double width = 1.5;             ///< logical pixels
    double opacity = 1.0;           ///< of the line as a whole: where it crosses itself it gets no darker
    DashPattern dash{};

    /// Equal when the same points are drawn the same way: the points are compared by where they lie.
    friend bool operator==(const PlotLine&, const PlotLine&) = default;
};

/// A vertical rule over the whole height of the plot, with a letter above it.
struct PlotMarker {
    double seconds = 0.0;
    std::uint32_t color = 0xffffff; ///< 0xRRGGBB
    std::string letter{};           ///< UTF-8; none where empty
    DashPattern dash{};
    double width = 1.0; ///< logical pixels
    double ruleOpacity = 1.0;
    double letterOpacity = 1.0;

    friend bool operator==(const PlotMarker&, const PlotMarker&) = default;
};

/// All that a plot shows, from back to front: the lines in order, then the rules in order.
struct PlotContent {
    std::vector<PlotLine> lines{};
    std::vector<PlotMarker> markers{};
    ValueRange seconds{0.0, 1.0};           ///< the x domain to show; no position for any time where `hi` <= `lo`
    std::optional<ValueRange> valueRange{}; ///< the y domain to show; absent: what the lines need

    friend bool operator==(const PlotContent&, const PlotContent&) = default;
};

} // namespace ospra
