#pragma once

#include "platform/Coordinate.h"
#include "tilemap/MapSource.h"

#include <QImage>

#include <span>

namespace ospra {

/// An airfield to be painted: runway, apron and hangars.
struct PaintedAirfield {
    Coordinate middle{};
    double bearing = 0.0; ///< degrees, of the runway
};

/// Ground as it might look from above: fields, woods, lanes and airfields. The same for the same tile, and without
/// seams between tiles of one zoom.
[[nodiscard]] QImage paintAerial(const TileID& tile, std::span<const PaintedAirfield> airfields, int size = 256);

} // namespace ospra
