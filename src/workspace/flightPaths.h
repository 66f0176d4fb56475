#pragma once

#include "display/mapData.h"
#include "tilemap/MapPath.h"

#include <cstdint>

namespace ospra {

/// How the path of a phase is drawn.
/// @param color 0xRRGGBB
[[nodiscard]] MapPath segmentPath(const VisibleMapSegment& segment, std::uint32_t color);

/// The dashed line of the aircraft's flight around the exit.
[[nodiscard]] MapPath jumpRunPath(const JumpRunLine& line, std::uint32_t color);

/// Initial great-circle bearing from one place to another, degrees clockwise from north, -180 to 180.
/// Source: Aviation Formulary.
[[nodiscard]] double bearingBetween(Coordinate from, Coordinate to);

} // namespace ospra
