#pragma once

#include "plot/LinearScale.h"
#include "plot/PlotContent.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ospra {

/// One labelled value of a y axis.
struct PlotTick {
    double value = 0.0;
    std::string label{};

    friend bool operator==(const PlotTick&, const PlotTick&) = default;
};

/// The y domain of a plot and its ticks, ascending. `domain.lo` < `domain.hi`, both finite.
struct ValueAxis {
    ValueRange domain{0.0, 1.0};
    std::vector<PlotTick> ticks{};

    friend bool operator==(const ValueAxis&, const ValueAxis&) = default;
};

/// Logical pixels that one step of an axis has at the usual font, about.
inline constexpr double defaultTickSpacing = 27.0;

/// The least and greatest value of the points that can be seen: both coordinates finite, x within `seconds`.
/// @return absent where there is no such point. Linear in the points.
[[nodiscard]] std::optional<ValueRange> visibleValues(std::span<const PlotLine> lines, ValueRange seconds);

/// The axis for lines that need `values`. Zero is always on it, and steps are 1, 2 or 5 times a power of ten, about one
/// a `spacing`, and such that no label rounds its value. An end that lies beyond the last whole step by less than 0.38
/// of a step stays where it is, with 3 % of the range as air; else the domain goes on to the next whole step. So the
/// lines fill the plot. Values are taken as at most 1e300.
/// @param values absent: the domain is 0 to 1 and only 0 is labelled
[[nodiscard]] ValueAxis makeValueAxis(std::optional<ValueRange> values, double height,
                                      double spacing = defaultTickSpacing);

/// The axis over exactly `domain`, with ticks as above. As for absent values where the domain has no finite width.
[[nodiscard]] ValueAxis makeFixedAxis(ValueRange domain, double height, double spacing = defaultTickSpacing);

/// The label of a value by its magnitude: "12k", "1.2k", "120", "0.2". Empty for a value that is not finite.
[[nodiscard]] std::string axisLabel(double value);

} // namespace ospra
