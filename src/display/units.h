#pragma once

#include "display/DataSeries.h"

#include <cstdint>
#include <optional>
#include <string>

namespace ospra {

enum class UnitSystem { metric, imperial };
enum class AltitudeReference { aboveGround, aboveSeaLevel };

/// What the user wants to see numbers in.
struct DisplayUnits {
    UnitSystem system = UnitSystem::metric;
    AltitudeReference altitude = AltitudeReference::aboveGround;

    friend bool operator==(const DisplayUnits&, const DisplayUnits&) = default;
};

inline constexpr double feetPerMetre = 3.28084;
inline constexpr double kmhPerMetrePerSecond = 3.6;
inline constexpr double mphPerMetrePerSecond = 2.23694;

/// Display units per metre: 1, or feet.
[[nodiscard]] constexpr double lengthFactor(UnitSystem system)
{
    return system == UnitSystem::metric ? 1.0 : feetPerMetre;
}

/// Display units per m/s: km/h or mph.
[[nodiscard]] constexpr double speedFactor(UnitSystem system)
{
    return system == UnitSystem::metric ? kmhPerMetrePerSecond : mphPerMetrePerSecond;
}

/// "m" or "ft".
[[nodiscard]] constexpr const char* lengthUnit(UnitSystem system)
{
    return system == UnitSystem::metric ? "m" : "ft";
}

/// "km/h" or "mph".
[[nodiscard]] constexpr const char* speedUnit(UnitSystem system)
{
    return system == UnitSystem::metric ? "km/h" : "mph";
}

/// A number with a fixed count of decimals as C's "%.*f" prints it in the C locale: a point, no grouping, round half
/// to even of the exact value, "-0" kept, "inf" and "-inf"; but "nan" whatever its sign.
/// @param decimals 0 to 64
[[nodiscard]] std::string fixed(double value, int decimals);

/// @param metres above mean sea level; @return for instance "4012 m" or "13163 ft"
[[nodiscard]] std::string formatAltitude(double metres, UnitSystem system);

/// @param metresPerSecond in base units; @return for instance "180 km/h" or "112 mph"
[[nodiscard]] std::string formatSpeed(double metresPerSecond, UnitSystem system);

/// Cut towards zero; absent if not finite or beyond 64 bits.
[[nodiscard]] std::optional<std::int64_t> wholeSeconds(double seconds);

/// Minutes and seconds as C's "%d:%02d" prints them, without hours: "61:40", "0:-59".
[[nodiscard]] std::string minutesAndSeconds(std::int64_t seconds);

/// Minutes and seconds, cut towards zero, without hours: "61:40". Not finite or beyond 64 bits: "0:00".
[[nodiscard]] std::string formatDuration(double seconds);

/// The unit text of a series, for instance "m AGL", "mph", "deg"; empty for the glide ratio.
[[nodiscard]] std::string seriesUnit(DataSeries series, DisplayUnits units);

/// A value of a series, already in display units, with its unit.
[[nodiscard]] std::string formatSeriesValue(DataSeries series, double value, DisplayUnits units);

/// A distance already in display units: "%.0f m" or "%.0f ft".
[[nodiscard]] std::string formatDistance(double value, UnitSystem system);

} // namespace ospra
