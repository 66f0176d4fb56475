#include "tilemap/Camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ospra {
namespace {

constexpr double worldSizeAtZoom0 = 256.0; // logical pixels

/// The x that means the same ground as `x` and lies within half a turn of `reference`.
double turnNearest(double x, double reference)
{
    return x - std::round(x - reference);
}

} // namespace

double Camera::worldSize() const
{
    return worldSizeAtZoom0 * std::exp2(zoom);
}

ViewPoint MapView::pixelAt(WorldPoint place) const
{
    const double size = camera.worldSize();
    return {.x = width / 2.0 + (turnNearest(place.x, camera.center.x) - camera.center.x) * size,
            .y = height / 2.0 + (place.y - camera.center.y) * size};
}

WorldPoint MapView::placeAt(ViewPoint pixel) const
{
    const double size = camera.worldSize();
    return {.x = camera.center.x + (pixel.x - width / 2.0) / size,
            .y = camera.center.y + (pixel.y - height / 2.0) / size};
}

WorldRect MapView::visibleWorld() const
{
    const WorldPoint topLeft = placeAt({});
    const WorldPoint bottomRight = placeAt({width, height});
    return {.left = topLeft.x, .top = topLeft.y, .right = bottomRight.x, .bottom = bottomRight.y};
}

Camera constrained(Camera camera)
{
    const WorldPoint center =
        std::isfinite(camera.center.x) && std::isfinite(camera.center.y) ? camera.center : WorldPoint{0.5, 0.5};
    const double turns = center.x - std::floor(center.x); // a whole one, by rounding, just below 0
    return {.center = {turns < 1.0 ? turns : 0.0, std::clamp(center.y, 0.0, 1.0)},
            .zoom = std::isnan(camera.zoom) ? lowestZoom : std::clamp(camera.zoom, lowestZoom, highestZoom)};
}

Camera cameraFraming(const WorldRect& rect, double width, double height, double padding, double highest)
{
    const double room = std::max(1.0, width - 2.0 * std::min(padding, width / 4.0));
    const double headroom = std::max(1.0, height - 2.0 * std::min(padding, height / 4.0));
    const double size = std::min(room / std::max(rect.right - rect.left, 0.0),
                                 headroom / std::max(rect.bottom - rect.top, 0.0)); // may be infinite
    const double zoom = std::min(std::log2(size / worldSizeAtZoom0), highest);
    return constrained({.center = rect.center(), .zoom = zoom});
}

Camera panned(const Camera& camera, double dx, double dy)
{
    const double size = camera.worldSize();
    return constrained({.center = {camera.center.x - dx / size, camera.center.y - dy / size}, .zoom = camera.zoom});
}

Camera zoomedAbout(const MapView& view, ViewPoint pixel, double zoom)
{
    const WorldPoint place = view.placeAt(pixel);
    MapView zoomed = view;
    zoomed.camera = constrained({.center = view.camera.center, .zoom = zoom});
    const WorldPoint moved = zoomed.placeAt(pixel);
    zoomed.camera.center.x += place.x - moved.x;
    zoomed.camera.center.y += place.y - moved.y;
    return constrained(zoomed.camera);
}

Camera between(const Camera& from, const Camera& to, double progress)
{
    if (progress >= 1.0)
        return constrained(to);
    // One place stays where it is on screen, as in a zoom about it. With a centre that moved evenly, most of the way
    // would pass by at the closer zoom.
    const double octaves = (to.zoom - from.zoom) * std::numbers::ln2;
    const double way = octaves != 0.0 ? std::expm1(-octaves * progress) / std::expm1(-octaves) : progress;
    const double targetX = turnNearest(to.center.x, from.center.x);
    return constrained({.center = {std::lerp(from.center.x, targetX, way), std::lerp(from.center.y, to.center.y, way)},
                        .zoom = std::lerp(from.zoom, to.zoom, progress)});
}

} // namespace ospra
