#pragma once

#include "overview/HeatmapGrid.h"
#include "overview/views/HeatmapLayout.h"

#include <QImage>
#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace ospra {

class HeatmapLook;

/// One column of squares as it is drawn.
struct HeatmapColumn {
    std::array<int, daysPerHeatmapWeek> levels{}; ///< 0 to 4
    bool opensMonth = false;
    QString monthLabel{};
};

/// The part of a heatmap that is to be seen.
struct HeatmapScene {
    HeatmapLayout layout{};
    double contentX = 0.0; ///< the place of the grid that stands at the left of the view
    double width = 0.0;    ///< of the view
    double margin = 0.0;   ///< painted around the view, so that strokes at its edges are whole
    double scale = 1.0;    ///< device pixels to a logical one
    std::ptrdiff_t firstWeek = 0;
    std::vector<HeatmapColumn> columns{}; ///< from `firstWeek` on
    std::ptrdiff_t firstBar = 0;
    std::vector<double> barHeights{}; ///< from `firstBar` on
    std::optional<HeatmapCell> selectedCell{};
    std::optional<HeatmapCell> focusedCell{};
};

/// The picture of the scene with its margin, in device pixels on a transparent ground. Every edge lies between two
/// device pixels, at any scale, and squares keep their distances while the view is scrolled.
[[nodiscard]] QImage paintHeatmap(const HeatmapScene& scene, const HeatmapLook& look);

} // namespace ospra
