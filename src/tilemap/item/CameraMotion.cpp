#include "tilemap/item/CameraMotion.h"

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

constexpr double slideTime = 0.325;      // s in which a slide loses all but 1/e of its speed
constexpr double leastSlide = 40.0;      // px/s; below, nothing is seen to move
constexpr double greatestSlide = 1500.0; // px/s; a quick flick keeps what was in view within reach
constexpr double zoomTime = 0.06;        // s in which the zoom comes all but 1/e of the way
constexpr double zoomIsThere = 0.002;    // levels

double easedInOut(double progress)
{
    return progress * progress * (3.0 - 2.0 * progress);
}

} // namespace

void CameraMotion::glide(const Camera& from, const Camera& to, double seconds)
{
    m_motion = Glide{.from = from, .to = to, .duration = seconds};
}

void CameraMotion::redirect(const Camera& to)
{
    if (Glide* const glide = std::get_if<Glide>(&m_motion))
        glide->to = to;
}

void CameraMotion::slide(ViewPoint velocity)
{
    const double speed = std::hypot(velocity.x, velocity.y);
    if (!(speed >= leastSlide)) {
        stop();
        return;
    }
    const double factor = std::min(1.0, greatestSlide / speed);
    m_motion = Slide{{velocity.x * factor, velocity.y * factor}};
}

void CameraMotion::zoomAbout(ViewPoint pixel, double zoom)
{
    m_motion = Zoom{pixel, std::clamp(zoom, lowestZoom, highestZoom)};
}

std::optional<Camera> CameraMotion::target() const
{
    const Glide* const glide = std::get_if<Glide>(&m_motion);
    return glide ? std::optional(glide->to) : std::nullopt;
}

Camera CameraMotion::end(const MapView& view) const
{
    if (const Zoom* const zoom = std::get_if<Zoom>(&m_motion))
        return zoomedAbout(view, zoom->pixel, zoom->zoom);
    if (const Slide* const slide = std::get_if<Slide>(&m_motion))
        return panned(view.camera, slide->velocity.x * slideTime, slide->velocity.y * slideTime);
    return target().value_or(view.camera);
}

Camera CameraMotion::advance(const MapView& view, double seconds)
{
    if (Glide* const glide = std::get_if<Glide>(&m_motion))
        return advanceGlide(*glide, seconds);
    if (Slide* const slide = std::get_if<Slide>(&m_motion))
        return advanceSlide(*slide, view, seconds);
    if (const Zoom* const zoom = std::get_if<Zoom>(&m_motion))
        return advanceZoom(*zoom, view, seconds);
    return view.camera;
}

Camera CameraMotion::advanceGlide(Glide& glide, double seconds)
{
    glide.elapsed += seconds;
    if (glide.elapsed < glide.duration)
        return between(glide.from, glide.to, easedInOut(glide.elapsed / glide.duration));
    const Camera end = glide.to; // not between(), which may be off by the last digit
    stop();
    return end;
}

Camera CameraMotion::advanceSlide(Slide& slide, const MapView& view, double seconds)
{
    // The way is the integral of the falling speed, so that it does not depend on how often this is called.
    const double left = std::exp(-seconds / slideTime);
    const double way = slideTime * (1.0 - left);
    const Camera camera = panned(view.camera, slide.velocity.x * way, slide.velocity.y * way);
    slide.velocity = {slide.velocity.x * left, slide.velocity.y * left};
    if (std::hypot(slide.velocity.x, slide.velocity.y) < leastSlide)
        stop();
    return camera;
}

Camera CameraMotion::advanceZoom(const Zoom& zoom, const MapView& view, double seconds)
{
    const double missing = (zoom.zoom - view.camera.zoom) * std::exp(-seconds / zoomTime);
    if (std::abs(missing) > zoomIsThere)
        return zoomedAbout(view, zoom.pixel, zoom.zoom - missing);
    const Camera camera = zoomedAbout(view, zoom.pixel, zoom.zoom);
    stop();
    return camera;
}

} // namespace ospra
