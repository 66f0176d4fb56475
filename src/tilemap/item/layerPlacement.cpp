#include "tilemap/item/layerPlacement.h"

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

constexpr double marginShare = 0.3;      // of the view's longer side, on each side of it
constexpr double leastMargin = 100.0;    // logical px
constexpr double greatestMargin = 320.0; // logical px
constexpr double marginInReserve = 0.4;  // share that is left when the next picture is drawn
constexpr double zoomLeeway = 0.2;       // levels that a picture may be off while the zoom changes
constexpr double largestSide = 8192.0;   // device px of a picture; textures end there on old machines

double margin(const MapView& view)
{
    return std::clamp(marginShare * std::max(view.width, view.height), leastMargin, greatestMargin);
}

/// An even number more than the view has, so that the picture's pixels are the screen's while the camera rests.
int pixelsAcross(double length, double margin, double scale)
{
    const double inView = std::ceil(std::min(length * scale, largestSide));
    const double beyond = 2.0 * std::ceil(margin * scale);
    return static_cast<int>(std::min(inView + beyond, std::max(inView, largestSide)));
}

} // namespace

LayerFrame layerFrame(const MapView& view, double scale)
{
    LayerFrame frame{.camera = view.camera, .scale = scale};
    if (!(view.width > 0.0 && view.height > 0.0))
        return frame;
    frame.columns = pixelsAcross(view.width, margin(view), scale);
    frame.rows = pixelsAcross(view.height, margin(view), scale);
    return frame;
}

MapView surroundings(const MapView& view)
{
    if (!(view.width > 0.0 && view.height > 0.0))
        return view;
    return {
        .camera = view.camera, .width = view.width + 2.0 * margin(view), .height = view.height + 2.0 * margin(view)};
}

bool serves(const LayerFrame& frame, const MapView& view, double scale, ViewPace pace)
{
    const LayerFrame wanted = layerFrame(view, scale);
    if (wanted.scale != frame.scale || wanted.columns != frame.columns || wanted.rows != frame.rows)
        return false;
    const double off = std::abs(view.camera.zoom - frame.camera.zoom);
    if (pace == ViewPace::settled && off > 0.0)
        return false;
    if (off > zoomLeeway)
        return false;
    const double reserve = pace == ViewPace::settled ? margin(view) * marginInReserve : 0.0;
    const ViewRect place = placeOf(frame, view);
    return place.left <= -reserve && place.top <= -reserve && place.right >= view.width + reserve &&
           place.bottom >= view.height + reserve;
}

ViewRect placeOf(const LayerFrame& frame, const MapView& view)
{
    const ViewPoint middle = view.pixelAt(frame.camera.center);
    const double stretch = std::exp2(view.camera.zoom - frame.camera.zoom) / frame.scale;
    const double halfWidth = frame.columns * stretch / 2.0;
    const double halfHeight = frame.rows * stretch / 2.0;
    return {.left = middle.x - halfWidth,
            .top = middle.y - halfHeight,
            .right = middle.x + halfWidth,
            .bottom = middle.y + halfHeight};
}

} // namespace ospra
