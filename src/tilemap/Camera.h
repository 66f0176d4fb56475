#pragma once

#include "tilemap/Mercator.h"

namespace ospra {

/// What a map looks at. At zoom 0 the world is 256 logical pixels wide; each whole step doubles that.
struct Camera {
    WorldPoint center{0.5, 0.5};
    double zoom = 1.0;

    /// Width of the world in logical pixels.
    [[nodiscard]] double worldSize() const;
    friend bool operator==(const Camera&, const Camera&) = default;
};

constexpr double lowestZoom = 1.0;
constexpr double highestZoom = 20.0;

/// A position in logical pixels; the view's top left corner is 0, 0.
struct ViewPoint {
    double x = 0.0;
    double y = 0.0;
};

/// A camera and the rectangle on screen that shows what it sees; the camera's centre is the rectangle's middle.
struct MapView {
    Camera camera{};
    double width = 0.0;  ///< logical pixels
    double height = 0.0; ///< logical pixels

    /// Where a place lies, on the turn round the world that brings it nearest to the middle.
    [[nodiscard]] ViewPoint pixelAt(WorldPoint place) const;
    [[nodiscard]] WorldPoint placeAt(ViewPoint pixel) const;
    /// The part of the world in view; may reach beyond 0 to 1 on both axes.
    [[nodiscard]] WorldRect visibleWorld() const;
    friend bool operator==(const MapView&, const MapView&) = default;
};

/// The camera with its zoom and centre within bounds: the centre on the square, x from 0 to just below 1. What is not
/// finite is replaced.
[[nodiscard]] Camera constrained(Camera camera);

/// The closest camera that has all of the rectangle in a view of this size, with `padding` logical pixels free on each
/// side (less where the view is too small for that), at no more than `highest`.
[[nodiscard]] Camera cameraFraming(const WorldRect& rect, double width, double height, double padding, double highest);

/// The view after the ground has been moved by some logical pixels, as a drag does.
[[nodiscard]] Camera panned(const Camera& camera, double dx, double dy);

/// The view at another zoom, with the place under `pixel` staying where it is.
[[nodiscard]] Camera zoomedAbout(const MapView& view, ViewPoint pixel, double zoom);

/// A camera on the way from one to another, the short way round the world. Where the zoom changes, one place keeps its
/// pixel all the way: a zoom about a place is shown as that.
/// @param progress 0 to 1
[[nodiscard]] Camera between(const Camera& from, const Camera& to, double progress);

} // namespace ospra
