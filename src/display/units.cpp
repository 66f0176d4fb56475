#include "display/units.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>

namespace ospra {

std::string fixed(double value, int decimals)
{
    // The longest number has a sign, 309 digits, a point and its decimals.
    constexpr int mostDecimals = 64;
    assert(decimals >= 0 && decimals <= mostDecimals);
    if (std::isnan(value)) // its sign is chance: infinity less infinity bears one on some processors only
        return "nan";
    std::array<char, 311 + mostDecimals> text{};
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return {text.data(), result.ptr};
}

std::string formatAltitude(double metres, UnitSystem system)
{
    return formatDistance(metres * lengthFactor(system), system);
}

std::string formatSpeed(double metresPerSecond, UnitSystem system)
{
    return fixed(metresPerSecond * speedFactor(system), 0) + ' ' + speedUnit(system);
}

std::optional<std::int64_t> wholeSeconds(double seconds)
{
    constexpr double limit = 0x1p63;
    if (!(std::abs(seconds) < limit))
        return std::nullopt;
    return static_cast<std::int64_t>(seconds);
}

std::string minutesAndSeconds(std::int64_t seconds)
{
    const std::int64_t rest = seconds % 60;
    const bool isOneDigit = rest >= 0 && rest < 10;
    return std::to_string(seconds / 60) + (isOneDigit ? ":0" : ":") + std::to_string(rest);
}

std::string formatDuration(double seconds)
{
    return minutesAndSeconds(wholeSeconds(seconds).value_or(0));
}

std::string seriesUnit(DataSeries series, DisplayUnits units)
{
    switch (series) {
    case DataSeries::elevation:
        return std::string(lengthUnit(units.system)) +
               (units.altitude == AltitudeReference::aboveGround ? " AGL" : " MSL");
    case DataSeries::horizontalSpeed:
    case DataSeries::verticalSpeed:
    case DataSeries::totalSpeed: return speedUnit(units.system);
    case DataSeries::glideRatio: return "";
    case DataSeries::diveAngle: return "deg";
    }
    return "";
}

std::string formatSeriesValue(DataSeries series, double value, DisplayUnits units)
{
    switch (series) {
    case DataSeries::elevation:
    case DataSeries::horizontalSpeed:
    case DataSeries::verticalSpeed:
    case DataSeries::totalSpeed: return fixed(value, 0) + ' ' + seriesUnit(series, units);
    case DataSeries::glideRatio: return fixed(value, 2);
    case DataSeries::diveAngle: return fixed(value, 1) + ' ' + seriesUnit(series, units);
    }
    return "";
}

std::string formatDistance(double value, UnitSystem system)
{
    return fixed(value, 0) + ' ' + lengthUnit(system);
}

} // namespace ospra
