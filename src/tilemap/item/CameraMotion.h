#pragma once

#include "tilemap/Camera.h"

#include <optional>
#include <variant>

namespace ospra {

/// What moves a camera while no hand does: a way to a target, the slide after a drag, or the zoom that follows the
/// wheel. At most one of them at a time; a new one takes the place of the old.
class CameraMotion {
public:
    /// To another camera in so many seconds, starting and ending softly.
    void glide(const Camera& from, const Camera& to, double seconds);
    /// A glide that is under way ends elsewhere, at the time at which it would have ended. Does nothing without one.
    void redirect(const Camera& to);
    /// On with a drag, slower and slower. A velocity that is hardly one is none.
    /// @param velocity of the ground, logical pixels a second
    void slide(ViewPoint velocity);
    /// Soon to a zoom, with the place under a pixel staying where it is.
    void zoomAbout(ViewPoint pixel, double zoom);
    void stop() { m_motion = std::monostate{}; }

    [[nodiscard]] bool isMoving() const { return !std::holds_alternative<std::monostate>(m_motion); }
    /// Where a glide ends; absent without one.
    [[nodiscard]] std::optional<Camera> target() const;
    /// The camera when the motion will have ended.
    [[nodiscard]] Camera end(const MapView& view) const;

    /// The camera a little later.
    [[nodiscard]] Camera advance(const MapView& view, double seconds);

private:
    struct Glide {
        Camera from{};
        Camera to{};
        double duration = 0.0; // s
        double elapsed = 0.0;  // s
    };
    struct Slide {
        ViewPoint velocity{};
    };
    struct Zoom {
        ViewPoint pixel{};
        double zoom = 0.0;
    };

    [[nodiscard]] Camera advanceGlide(Glide& glide, double seconds);
    [[nodiscard]] Camera advanceSlide(Slide& slide, const MapView& view, double seconds);
    [[nodiscard]] Camera advanceZoom(const Zoom& zoom, const MapView& view, double seconds);

    std::variant<std::monostate, Glide, Slide, Zoom> m_motion;
};

} // namespace ospra
