#pragma once

#include "raster/DashPattern.h"
#include "tilemap/vector/VectorTile.h"

#include <array>
#include <cstdint>

namespace ospra {

/// How the roads of a class look at one zoom. Widths in logical pixels.
struct RoadStyle {
    double width = 1.0;
    double casingWidth = 0.0; ///< of the whole casing; none where 0
    std::uint32_t color = 0xffffff;
    DashPattern dash{};
};

/// Classes from the one drawn first to the one drawn last.
inline constexpr std::array roadClassesFromBelow{
    RoadClass::path,      RoadClass::service, RoadClass::rail,  RoadClass::minor,    RoadClass::tertiary,
    RoadClass::secondary, RoadClass::primary, RoadClass::trunk, RoadClass::motorway,
};

/// The zoom of the camera from which on a class is shown. Ramps come in later than the roads that they lead to.
[[nodiscard]] double lowestZoomOf(RoadClass roadClass, bool isRamp);

[[nodiscard]] RoadStyle roadStyle(RoadClass roadClass, bool isRamp, bool isTunnel, double zoom);

/// The opacity of a line in white; the casing's, which is black. What lies between in lightness lies between in
/// opacity too. All roads together are one layer that is see-through, so that crossings do not show as denser spots.
constexpr double roadLineOpacity = 0.6;
constexpr double roadCasingOpacity = 0.3;

} // namespace ospra
