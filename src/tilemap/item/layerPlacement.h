#pragma once

#include "tilemap/Camera.h"
#include "tilemap/LayerFrame.h"

namespace ospra {

/// A rectangle on screen, logical pixels.
struct ViewRect {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

/// Whether the zoom is changing at the moment.
enum class ViewPace { settled, zooming };

/// The frame in which a layer's picture is drawn for a view: with a margin on all sides.
/// @param scale device pixels in a logical one
/// @return without pixels for a view without any
[[nodiscard]] LayerFrame layerFrame(const MapView& view, double scale);

/// The view that has all of such a frame in it.
[[nodiscard]] MapView surroundings(const MapView& view);

/// Whether a picture can stay: it reaches far enough beyond the view, and its zoom is the view's, or near it while that
/// changes.
[[nodiscard]] bool serves(const LayerFrame& frame, const MapView& view, double scale, ViewPace pace);

/// Where a picture lies in the view. Not rounded.
[[nodiscard]] ViewRect placeOf(const LayerFrame& frame, const MapView& view);

} // namespace ospra
