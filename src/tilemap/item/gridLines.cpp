#include "tilemap/item/gridLines.h"

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

constexpr double plainSpacing = 500.0;    // m
constexpr double leastSpacing = 24.0;     // logical px
constexpr double greatestSpacing = 480.0; // logical px
constexpr double metersPerDegree = 111'195.0;
constexpr double spacingsPerBand = 100.0; // lines in a band of latitude in which they have the same distance

/// The distance of lines in world units: the same in a whole band of latitude, so that they lie still.
double worldStep(double spacing, double latitude)
{
    const double band = spacing * spacingsPerBand / metersPerDegree;
    return spacing / metersPerWorldUnit(std::clamp(std::round(latitude / band) * band, -85.0, 85.0));
}

/// Ascending pixels of the multiples of `step`, from the first that lies at or after `start`.
std::vector<double> multiples(double start, double end, double step, double size)
{
    std::vector<double> pixels;
    for (double index = std::ceil(start / step); index * step <= end; index += 1.0)
        pixels.push_back((index * step - start) * size);
    return pixels;
}

} // namespace

GridLines gridLines(const MapView& view)
{
    if (!(view.width > 0.0 && view.height > 0.0))
        return {};
    const double size = view.camera.worldSize();
    const double latitude = coordinateAt(view.camera.center).latitude;
    double spacing = plainSpacing;
    while (worldStep(spacing, latitude) * size < leastSpacing)
        spacing *= 10.0;
    while (worldStep(spacing, latitude) * size > greatestSpacing)
        spacing /= 10.0;

    const double step = worldStep(spacing, latitude);
    const WorldRect world = view.visibleWorld();
    GridLines lines{.x = multiples(world.left, world.right, step, size)};
    // The level lines end where the square does.
    const double top = std::max(world.top, 0.0);
    lines.y = multiples(top, std::min(world.bottom, 1.0), step, size);
    for (double& y : lines.y)
        y += (top - world.top) * size;
    return lines;
}

} // namespace ospra
