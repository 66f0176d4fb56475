#include "tilemap/scaleBar.h"

#include <array>
#include <cmath>
#include <string_view>

namespace ospra {
namespace {

constexpr double metersPerKilometer = 1000.0;
constexpr double metersPerFoot = 0.3048;
constexpr double metersPerMile = 1609.344;
constexpr int mostDigits = 6; // no bar is longer than 500,000 of a unit

struct LengthUnit {
    std::string_view name;
    double meters = 1.0;
    double end = 0.0; ///< lengths from here on are given in the next unit
    bool hasHalves = false;
};

/// The longest round length in a unit that is within `greatest`; 0 where there is none.
double roundLength(const LengthUnit& unit, double greatest)
{
    double longest = 0.0;
    double power = 1.0;
    for (int digits = 1; digits <= mostDigits; ++digits, power *= 10.0) {
        for (const double factor : {1.0, 2.5, 5.0}) {
            const double length = factor * power;
            const bool isAllowed = unit.hasHalves || std::floor(length) == length;
            if (isAllowed && length <= greatest && (unit.end == 0.0 || length < unit.end))
                longest = length;
        }
    }
    return longest;
}

std::string lengthText(double length, std::string_view unit)
{
    std::string text = std::to_string(static_cast<long>(length));
    if (std::floor(length) != length)
        text += ".5";
    return text.append(" ").append(unit);
}

} // namespace

ScaleBar scaleBar(double metersPerPixel, double greatestWidth, LengthUnits units)
{
    static constexpr std::array metric{LengthUnit{"km", metersPerKilometer, 0.0, true},
                                       LengthUnit{"m", 1.0, metersPerKilometer, false}};
    static constexpr std::array imperial{LengthUnit{"mi", metersPerMile, 0.0, true},
                                         LengthUnit{"ft", metersPerFoot, metersPerMile / metersPerFoot, false}};
    if (!(metersPerPixel > 0.0) || !std::isfinite(metersPerPixel) || !(greatestWidth > 0.0))
        return {};
    for (const LengthUnit& unit : units == LengthUnits::metric ? metric : imperial) {
        const double unitsPerPixel = metersPerPixel / unit.meters;
        const double length = roundLength(unit, greatestWidth * unitsPerPixel);
        if (length > 0.0)
            return {.width = length / unitsPerPixel, .text = lengthText(length, unit.name)};
    }
    return {};
}

} // namespace ospra
