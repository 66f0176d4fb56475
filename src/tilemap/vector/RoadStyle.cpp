#include "tilemap/vector/RoadStyle.h"

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

/// The look of a class. Widths in logical pixels.
struct ClassLook {
    double lowestZoom = 0.0;
    double widthAtZoom14 = 1.0;
    double growth = 1.0; ///< of the width with each step of zoom beyond that
    double casing = 0.0; ///< on each side
    std::uint32_t color = 0xffffff;
    DashPattern dash{};
};

ClassLook lookOf(RoadClass roadClass)
{
    constexpr std::uint32_t warm = 0xffe8bd;
    switch (roadClass) {
    case RoadClass::motorway: return {5.0, 3.8, 1.30, 1.0, warm};
    case RoadClass::trunk: return {6.5, 3.2, 1.30, 1.0, warm};
    case RoadClass::primary: return {8.0, 2.6, 1.32, 0.9, 0xf6f4ee};
    case RoadClass::secondary: return {10.0, 2.1, 1.32, 0.9, 0xebebe6};
    case RoadClass::tertiary: return {11.0, 1.8, 1.32, 0.8, 0xe2e2de};
    case RoadClass::minor: return {13.0, 1.3, 1.35, 0.7, 0xcfcfcc};
    case RoadClass::service: return {15.0, 0.8, 1.30, 0.0, 0xb8b8b6};
    case RoadClass::path: return {15.0, 0.8, 1.15, 0.0, 0xb0b0ae, {5.0, 3.0}};
    case RoadClass::rail: return {12.0, 1.0, 1.15, 0.0, 0xa8a7a4, {9.0, 3.0}};
    }
    return {};
}

/// A colour nearer to black.
std::uint32_t darkened(std::uint32_t color, double share)
{
    std::uint32_t mixed = 0;
    for (const int shift : {0, 8, 16}) {
        const auto channel = static_cast<double>((color >> shift) & 0xff);
        mixed |= static_cast<std::uint32_t>(std::lround(channel * share)) << shift;
    }
    return mixed;
}

} // namespace

double lowestZoomOf(RoadClass roadClass, bool isRamp)
{
    constexpr double lowestZoomOfRamps = 11.5;
    const double lowest = lookOf(roadClass).lowestZoom;
    return isRamp ? std::max(lowest, lowestZoomOfRamps) : lowest;
}

RoadStyle roadStyle(RoadClass roadClass, bool isRamp, bool isTunnel, double zoom)
{
    constexpr double leastWidth = 0.9;
    constexpr double widthOfRamps = 0.6; // of the road's
    constexpr double shareInTunnels = 0.6;
    constexpr double casingFromZoom = 9.0; // below it a casing would be most of what is seen
    const ClassLook look = lookOf(roadClass);
    constexpr double growthBelowZoom14 = 1.2; // slow, or nothing would be left of them where the ground is far
    const double growth = zoom < 14.0 ? growthBelowZoom14 : look.growth;
    const double grown = look.widthAtZoom14 * std::pow(growth, zoom - 14.0) * (isRamp ? widthOfRamps : 1.0);
    RoadStyle style{.width = std::max(grown, leastWidth), .color = look.color, .dash = look.dash};
    if (isTunnel)
        style.color = darkened(look.color, shareInTunnels);
    else if (look.casing > 0.0)
        style.casingWidth = style.width + 2.0 * look.casing * (zoom < casingFromZoom ? 0.6 : 1.0);
    return style;
}

} // namespace ospra
