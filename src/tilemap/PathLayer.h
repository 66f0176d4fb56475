#pragma once

#include "raster/CoverageMask.h"
#include "tilemap/LayerFrame.h"
#include "tilemap/MapPath.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace ospra {

/// Draws paths into pictures. What it works out for a path's coordinates is kept under the path's id, so that another
/// colour, opacity or place of the camera costs no projection. For one thread at a time.
class PathLayer {
public:
    /// From back to front, each path after its casing. Dashes begin at a path's first point and stay with the ground
    /// while the camera moves at one zoom.
    /// @param pixels premultiplied ARGB, overwritten: `rows` times `pixelStride`, of which the first `columns` count
    void draw(std::span<const MapPath> paths, const LayerFrame& frame, std::span<std::uint32_t> pixels,
              std::ptrdiff_t pixelStride);

private:
    CoverageMask m_mask;
    std::vector<std::uint32_t> m_columnPixels;
};

/// The smallest rectangle that holds the paths, each path placed on the turn round the world that is nearest to the
/// first. Coordinates that are not finite are left out. @return absent where nothing is left
[[nodiscard]] std::optional<WorldRect> boundsOf(std::span<const MapPath> paths);

} // namespace ospra
