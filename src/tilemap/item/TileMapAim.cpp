// Where the camera goes by itself, and how it gets there.

#include "tilemap/item/TileMap.h"

#include <cmath>
#include <utility>

namespace ospra {
namespace {

constexpr double framePadding = 40.0;      // logical px, so that what stands at a place is not cut off
constexpr double highestFramedZoom = 18.0; // closer there is nothing to see
constexpr double glideReach = 4.0;         // view sizes; a camera further off is jumped to

} // namespace

void TileMap::showRegion(const MapPlace& center, const MapPlace& spans)
{
    const std::optional<WorldPoint> northWest = worldPoint(
        {.latitude = center.latitude + spans.latitude / 2.0, .longitude = center.longitude - spans.longitude / 2.0});
    const std::optional<WorldPoint> southEast = worldPoint(
        {.latitude = center.latitude - spans.latitude / 2.0, .longitude = center.longitude + spans.longitude / 2.0});
    if (!northWest || !southEast)
        return;
    m_region = WorldRect{northWest->x, northWest->y, southEast->x, southEast->y};
    m_isTouched = false;
    aim(AimChange::gentle);
}

void TileMap::frameContent()
{
    m_region.reset();
    m_isTouched = false;
    aim(AimChange::gentle);
}

/// The camera is brought to the aim before the next frame, when everything that changes together has changed.
void TileMap::aim(AimChange change)
{
    if (m_aimDue != AimChange::gentle)
        m_aimDue = change;
    polish();
}

std::optional<Camera> TileMap::aimedCamera()
{
    if (m_region)
        return cameraFraming(*m_region, width(), height(), 0.0, highestFramedZoom);
    const std::optional<WorldRect> bounds = m_bounds.of(m_content);
    if (!bounds)
        return std::nullopt;
    return cameraFraming(*bounds, width(), height(), framePadding, highestFramedZoom);
}

bool TileMap::isNear(const Camera& camera) const
{
    const ViewPoint middle = view().pixelAt(camera.center);
    return std::abs(middle.x - width() / 2.0) < glideReach * width() &&
           std::abs(middle.y - height() / 2.0) < glideReach * height();
}

void TileMap::followAim()
{
    if (!m_aimDue || !hasRoom())
        return;
    const AimChange change = *std::exchange(m_aimDue, std::nullopt);
    const std::optional<Camera> camera = aimedCamera();
    if (!camera)
        return; // nothing to see: the camera waits for something
    const bool jumps = std::exchange(m_jumpsToAim, false) || m_cameraDuration <= 0 || !isNear(*camera);
    if (!jumps && change == AimChange::abrupt && m_motion.target()) {
        m_motion.redirect(*camera);
        return;
    }
    m_motion.stop();
    if (jumps || change == AimChange::abrupt) {
        moveTo(*camera);
        return;
    }
    if (*camera == m_camera)
        return;
    m_motion.glide(m_camera, *camera, m_cameraDuration / 1e3);
    startMotion();
}

void TileMap::startMotion()
{
    if (!m_motion.isMoving())
        return;
    m_clock.stop();
    m_clockTime = 0;
    m_clock.start();
}

void TileMap::tick(int milliseconds)
{
    const double seconds = (milliseconds - std::exchange(m_clockTime, milliseconds)) / 1e3;
    if (m_motion.isMoving() && seconds > 0.0)
        moveTo(m_motion.advance(view(), seconds));
    if (!m_motion.isMoving()) {
        m_clock.stop();
        polish();
    }
}

} // namespace ospra
