#pragma once

#include "platform/Coordinate.h"
#include "raster/DashPattern.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ospra {

/// A line on the map through coordinates that somebody else keeps, in straight pieces, the short way round the world.
/// Coordinates that are not finite are left out, and their neighbours joined.
struct MapPath {
    std::string id{}; ///< of a path with these coordinates; what is worked out for them is kept under it
    std::shared_ptr<const std::vector<Coordinate>> coordinates{};
    std::uint32_t color = 0xffffff; ///< 0xRRGGBB
    double width = 3.0;             ///< logical pixels
    double opacity = 1.0;           ///< of the line as a whole: where it crosses itself it gets no denser
    DashPattern dash{};
    double casingOpacity = 0.0; ///< of a black line below with the same dashes; none where 0
    double casingWidth = 0.0;   ///< of the whole casing, logical pixels

    friend bool operator==(const MapPath&, const MapPath&) = default;
};

} // namespace ospra
