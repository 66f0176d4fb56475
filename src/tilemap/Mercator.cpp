#include "tilemap/Mercator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ospra {
namespace {

constexpr double radiansPerDegree = std::numbers::pi / 180.0;
constexpr double greatestLatitude = 85.051128779806592; // degrees; where the projection's square ends
constexpr double equator = 40'075'016.685578488;        // m, 2 pi times the radius of WGS 84
constexpr double greatestDegrees = 1e6;

} // namespace

std::optional<WorldPoint> worldPoint(Coordinate coordinate)
{
    if (!(std::abs(coordinate.latitude) <= greatestDegrees && std::abs(coordinate.longitude) <= greatestDegrees))
        return std::nullopt;
    const double latitude = std::clamp(coordinate.latitude, -greatestLatitude, greatestLatitude) * radiansPerDegree;
    return WorldPoint{.x = coordinate.longitude / 360.0 + 0.5,
                      .y = 0.5 - std::atanh(std::sin(latitude)) / (2.0 * std::numbers::pi)};
}

Coordinate coordinateAt(WorldPoint point)
{
    const double turns = point.x - std::floor(point.x);
    const double latitude = std::atan(std::sinh((0.5 - point.y) * 2.0 * std::numbers::pi));
    return {.latitude = latitude / radiansPerDegree, .longitude = (turns - 0.5) * 360.0};
}

double metersPerWorldUnit(double latitude)
{
    return equator * std::cos(std::clamp(latitude, -greatestLatitude, greatestLatitude) * radiansPerDegree);
}

} // namespace ospra
