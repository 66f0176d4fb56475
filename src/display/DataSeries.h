#pragma once

#include "platform/Color.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace ospra {

/// The quantities that can be plotted over time, in the order of the chart rows.
enum class DataSeries { elevation, horizontalSpeed, verticalSpeed, totalSpeed, glideRatio, diveAngle };

inline constexpr std::array allDataSeries{DataSeries::elevation,     DataSeries::horizontalSpeed,
                                          DataSeries::verticalSpeed, DataSeries::totalSpeed,
                                          DataSeries::glideRatio,    DataSeries::diveAngle};

/// The name on screen, and the stored form.
[[nodiscard]] constexpr std::string_view displayName(DataSeries series)
{
    switch (series) {
    case DataSeries::elevation: return "Elevation";
    case DataSeries::horizontalSpeed: return "Horizontal Speed";
    case DataSeries::verticalSpeed: return "Vertical Speed";
    case DataSeries::totalSpeed: return "Total Speed";
    case DataSeries::glideRatio: return "Glide Ratio";
    case DataSeries::diveAngle: return "Dive Angle";
    }
    return "";
}

/// The colour of the dot beside the row's title.
[[nodiscard]] constexpr Color seriesColor(DataSeries series)
{
    switch (series) {
    case DataSeries::elevation: return Color::blue;
    case DataSeries::horizontalSpeed: return Color::green;
    case DataSeries::verticalSpeed: return Color::red;
    case DataSeries::totalSpeed: return Color::purple;
    case DataSeries::glideRatio: return Color::orange;
    case DataSeries::diveAngle: return Color::teal;
    }
    return Color::blue;
}

/// Distances of a companion from the primary jumper, in the order of the chart rows.
enum class DistanceSeries { horizontalDistance, verticalDistance, totalDistance };

inline constexpr std::array allDistanceSeries{DistanceSeries::horizontalDistance, DistanceSeries::verticalDistance,
                                              DistanceSeries::totalDistance};

/// The name on screen, and the stored form.
[[nodiscard]] constexpr std::string_view displayName(DistanceSeries series)
{
    switch (series) {
    case DistanceSeries::horizontalDistance: return "Horizontal Distance";
    case DistanceSeries::verticalDistance: return "Vertical Distance";
    case DistanceSeries::totalDistance: return "Total Distance";
    }
    return "";
}

/// The colour of the dot beside the row's title.
[[nodiscard]] constexpr Color seriesColor(DistanceSeries series)
{
    switch (series) {
    case DistanceSeries::horizontalDistance: return Color::green;
    case DistanceSeries::verticalDistance: return Color::blue;
    case DistanceSeries::totalDistance: return Color::purple;
    }
    return Color::green;
}

/// One value for each case of an enumeration whose cases count up from 0.
template <typename Case, typename Value, std::size_t count>
struct PerCase {
    std::array<Value, count> values{};

    Value& operator[](Case key) { return values[static_cast<std::size_t>(key)]; }
    const Value& operator[](Case key) const { return values[static_cast<std::size_t>(key)]; }
    friend bool operator==(const PerCase&, const PerCase&) = default;
};

template <typename Value>
using PerSeries = PerCase<DataSeries, Value, allDataSeries.size()>;
template <typename Value>
using PerDistance = PerCase<DistanceSeries, Value, allDistanceSeries.size()>;

/// The series of a stored name; absent for an unknown one.
template <typename Case, std::size_t count>
[[nodiscard]] constexpr std::optional<Case> caseNamed(const std::array<Case, count>& cases, std::string_view name)
{
    for (const Case series : cases)
        if (displayName(series) == name)
            return series;
    return std::nullopt;
}

} // namespace ospra
