#pragma once

#include "raster/CoverageMask.h"
#include "tilemap/LayerFrame.h"
#include "tilemap/MapPath.h"
#include "tilemap/WorldPath.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
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

    /// How many paths have been projected so far.
    [[nodiscard]] std::size_t projectionCount() const { return m_projectionCount; }

private:
    /// What is kept of a path.
    struct KnownPath {
        std::vector<WorldPoint> points{};
        WorldRect bounds{};
        ReducedPath reduced{};
        int reducedFor = 0; // binary logarithm of the world's greatest size in device pixels; 0: not reduced yet
        std::size_t lastDrawing = 0;
    };

    KnownPath& known(const MapPath& path);
    void drawPath(const MapPath& path, const LayerFrame& frame);
    void paintStroke(const KnownPath& path, double width, std::uint32_t argb, DashPattern dash,
                     const LayerFrame& frame);
    void forgetUnused();

    CoverageMask m_mask;
    std::vector<std::uint32_t> m_columnPixels; // the picture on its side: column after column
    std::unordered_map<std::string, KnownPath> m_known;
    std::size_t m_drawing = 0;
    std::size_t m_projectionCount = 0;
};

/// The smallest rectangle that holds the paths, each path placed on the turn round the world that is nearest to the
/// first. Coordinates that are not finite are left out. @return absent where nothing is left
[[nodiscard]] std::optional<WorldRect> boundsOf(std::span<const MapPath> paths);

} // namespace ospra
