#include "tilemap/PathLayer.h"

#include "raster/DashedPen.h"
#include "raster/columnPixels.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace ospra {
namespace {

constexpr double leastStep = 1.0 / 3.0;   // device pixels; nearer points cannot be told apart
constexpr std::size_t keptDrawings = 16;  // a path that has not been drawn in so many pictures is forgotten
constexpr double mostTurns = 64.0;        // a path that winds round the world more often is drawn on so many of them
constexpr double leastScale = 1.0 / 16.0; // device pixels in a logical one; beyond these nothing is a screen
constexpr double greatestScale = 16.0;

/// How world and picture lie upon each other.
struct Placing {
    WorldPoint center;
    double size = 1.0; ///< of the world, in device pixels
    PixelPoint middle; ///< of the picture

    [[nodiscard]] PixelPoint pixelAt(WorldPoint place, double turn) const
    {
        return {middle.x + (place.x - center.x + turn) * size, middle.y + (place.y - center.y) * size};
    }
    /// What of the world lies in the picture or within `reach` pixels of it.
    [[nodiscard]] WorldRect visible(double reach) const
    {
        const double x = (middle.x + reach) / size;
        const double y = (middle.y + reach) / size;
        return {.left = center.x - x, .top = center.y - y, .right = center.x + x, .bottom = center.y + y};
    }
};

Placing placingOf(const LayerFrame& frame)
{
    const Camera camera = constrained(frame.camera);
    return {.center = camera.center,
            .size = camera.worldSize() * frame.scale,
            .middle = {frame.columns / 2.0, frame.rows / 2.0}};
}

bool overlap(const WorldRect& a, const WorldRect& b, double turn)
{
    return a.left + turn <= b.right && a.right + turn >= b.left && a.top <= b.bottom && a.bottom >= b.top;
}

/// Draws a path as it lies on one turn round the world.
void strokeTurn(DashedPen& pen, const ReducedPath& path, const Placing& placing, const WorldRect& visible, double turn)
{
    for (const ReducedPath::Piece& piece : path.pieces) {
        if (!overlap(piece.bounds, visible, turn)) {
            pen.skip(piece.length * placing.size);
            continue;
        }
        PixelPoint from = placing.pixelAt(path.points[piece.first], turn);
        for (std::size_t i = piece.first + 1; i <= piece.last; ++i) {
            const PixelPoint to = placing.pixelAt(path.points[i], turn);
            pen.lineTo(from, to);
            from = to;
        }
    }
}

} // namespace

void PathLayer::draw(std::span<const MapPath> paths, const LayerFrame& frame, std::span<std::uint32_t> pixels,
                     std::ptrdiff_t pixelStride)
{
    if (frame.columns <= 0 || frame.rows <= 0)
        return;
    assert(pixelStride >= frame.columns && std::ssize(pixels) >= (frame.rows - 1) * pixelStride + frame.columns);
    m_mask.resize(frame.columns, frame.rows);
    m_columnPixels.assign(static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows), 0);
    ++m_drawing;
    if (frame.scale >= leastScale && frame.scale <= greatestScale) {
        for (const MapPath& path : paths)
            drawPath(path, frame);
    }
    forgetUnused();
    turnUpright(m_columnPixels, frame.columns, frame.rows, pixels, pixelStride);
}

PathLayer::KnownPath& PathLayer::known(const MapPath& path)
{
    const auto [place, isNew] = m_known.try_emplace(path.id);
    KnownPath& known = place->second;
    known.lastDrawing = m_drawing;
    if (isNew) {
        ++m_projectionCount;
        known.points = worldPoints(*path.coordinates);
        if (!known.points.empty())
            known.bounds = boundsOf(known.points);
    }
    return known;
}

void PathLayer::drawPath(const MapPath& path, const LayerFrame& frame)
{
    if (!path.coordinates)
        return;
    KnownPath& found = known(path);
    const Placing placing = placingOf(frame);
    const WorldRect visible = placing.visible(std::max({path.width, path.casingWidth, 1.0}) * frame.scale);
    if (found.points.empty() || found.bounds.top > visible.bottom || found.bounds.bottom < visible.top ||
        std::ceil(visible.left - found.bounds.right) > std::floor(visible.right - found.bounds.left))
        return;
    // Reduced for all zooms up to the next doubling of the world, so that a zoom on the way need not do it anew.
    const int reducedFor = static_cast<int>(std::ceil(std::log2(placing.size)));
    if (found.reducedFor != reducedFor) {
        found.reduced = reducedPath(found.points, leastStep / std::exp2(reducedFor));
        found.reducedFor = reducedFor;
    }
    if (path.casingWidth > 0.0 && path.casingOpacity > 0.0)
        paintStroke(found, path.casingWidth, withOpacity(0, path.casingOpacity), path.dash, frame);
    if (path.width > 0.0 && path.opacity > 0.0)
        paintStroke(found, path.width, withOpacity(path.color, path.opacity), path.dash, frame);
}

/// Strokes the path on all turns that the picture shows, and paints them in one go.
void PathLayer::paintStroke(const KnownPath& path, double width, std::uint32_t argb, DashPattern dash,
                            const LayerFrame& frame)
{
    const Placing placing = placingOf(frame);
    m_mask.setStrokeWidth(width * frame.scale);
    const WorldRect visible = placing.visible(m_mask.reach() + 1.0);
    const double firstTurn = std::ceil(visible.left - path.bounds.right);
    const double lastTurn = std::min(std::floor(visible.right - path.bounds.left), firstTurn + mostTurns);
    for (double turn = firstTurn; turn <= lastTurn; turn += 1.0) {
        DashedPen pen(m_mask, dash, frame.scale);
        strokeTurn(pen, path.reduced, placing, visible, turn);
    }
    m_mask.paintOver(m_columnPixels, argb);
}

void PathLayer::forgetUnused()
{
    std::erase_if(m_known, [&](const auto& entry) { return m_drawing - entry.second.lastDrawing >= keptDrawings; });
}

std::optional<WorldRect> boundsOf(std::span<const MapPath> paths)
{
    std::optional<WorldRect> all;
    WorldPoint first;
    for (const MapPath& path : paths) {
        const auto points = path.coordinates ? worldPoints(*path.coordinates) : std::vector<WorldPoint>{};
        if (points.empty())
            continue;
        const WorldRect bounds = boundsOf(points);
        if (!all) {
            all = bounds;
            first = bounds.center();
            continue;
        }
        const double turn = std::round(first.x - bounds.center().x);
        all->left = std::min(all->left, bounds.left + turn);
        all->top = std::min(all->top, bounds.top);
        all->right = std::max(all->right, bounds.right + turn);
        all->bottom = std::max(all->bottom, bounds.bottom);
    }
    return all;
}

} // namespace ospra
