#include "workspace/flightPaths.h"

#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

namespace ospra {

namespace {

constexpr double primaryWidth = 3.0; // logical px
constexpr double companionWidth = 2.5;
constexpr double casingOpacity = 0.45; // of black, times that of the path
constexpr double casingBeyond = 2.0;   // logical px that the casing is wider than the path
constexpr double jumpRunWidth = 2.0;
constexpr DashPattern jumpRunDash{.on = 8.0, .off = 6.0};

struct PhaseStyle {
    double widthFactor = 1.0;
    DashPattern dash{};
};

PhaseStyle phaseStyle(JumpPhase phase)
{
    switch (phase) {
    case JumpPhase::aircraft: return {.widthFactor = 0.5, .dash = {.on = 6.0, .off = 4.0}};
    case JumpPhase::freefall: return {};
    case JumpPhase::deployment: return {.dash = {.on = 4.0, .off = 3.0}};
    case JumpPhase::canopy: return {.widthFactor = 0.7, .dash = {.on = 8.0, .off = 3.0}};
    case JumpPhase::ground: return {.widthFactor = 0.3, .dash = {.on = 2.0, .off = 4.0}};
    }
    return {};
}

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

} // namespace

MapPath segmentPath(const VisibleMapSegment& segment, std::uint32_t color)
{
    const PhaseStyle style = phaseStyle(segment.phase);
    const double width = (segment.isPrimary ? primaryWidth : companionWidth) * style.widthFactor;
    return {.id = segment.id,
            .coordinates = segment.coordinates,
            .color = color,
            .width = width,
            .opacity = segment.opacity,
            .dash = style.dash,
            .casingOpacity = casingOpacity * segment.opacity,
            .casingWidth = width + casingBeyond};
}

MapPath jumpRunPath(const JumpRunLine& line, std::uint32_t color)
{
    // The id says where the line lies, as those of segments do: another line is another path.
    std::string id = "Jump Run";
    for (const double part : {line.start.latitude, line.start.longitude, line.end.latitude, line.end.longitude})
        id += ' ' + std::to_string(part);
    return {.id = std::move(id),
            .coordinates = std::make_shared<const std::vector<Coordinate>>(std::vector{line.start, line.end}),
            .color = color,
            .width = jumpRunWidth,
            .dash = jumpRunDash};
}

double bearingBetween(Coordinate from, Coordinate to)
{
    const double east = radians(to.longitude - from.longitude);
    const double here = radians(from.latitude);
    const double there = radians(to.latitude);
    const double angle =
        std::atan2(std::sin(east) * std::cos(there),
                   std::cos(here) * std::sin(there) - std::sin(here) * std::cos(there) * std::cos(east));
    return angle * 180.0 / std::numbers::pi;
}

} // namespace ospra
