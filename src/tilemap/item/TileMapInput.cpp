#include "tilemap/item/TileMap.h"

#include <QCursor>
#include <QNativeGestureEvent>
#include <QTouchEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

constexpr double wheelStep = 120.0;      // angle of a click of the wheel
constexpr double levelsPerStep = 0.5;    // of zoom
constexpr double pixelsPerLevel = 200.0; // that fingers on a touchpad scroll
constexpr double keyPan = 120.0;         // logical px
constexpr double keyZoom = 1.0;          // levels
constexpr double doubleClickZoom = 1.0;  // levels
constexpr int zoomRest = 120;            // ms after which a touchpad's zoom has come to rest

ViewPoint viewPoint(QPointF position)
{
    return {position.x(), position.y()};
}

} // namespace

/// Whatever the camera does by itself ends, and it does not follow its aim any more.
void TileMap::takeInHand()
{
    m_motion.stop();
    m_aimDue.reset();
    m_isTouched = true;
}

void TileMap::beginDrag(QPointF position)
{
    takeInHand();
    m_dragPosition = position;
    m_velocity.begin(viewPoint(position), m_time.elapsed());
}

void TileMap::dragTo(QPointF position)
{
    if (!m_dragPosition)
        return;
    const QPointF way = position - *m_dragPosition;
    if (way.isNull())
        return;
    takeInHand(); // the program may have aimed in between
    m_dragPosition = position;
    m_velocity.move(viewPoint(position), m_time.elapsed());
    moveTo(panned(m_camera, way.x(), way.y()));
}

void TileMap::endDrag()
{
    if (!m_dragPosition)
        return;
    cancelDrag();
    if (m_cameraDuration > 0)
        m_motion.slide(m_velocity.atRelease(m_time.elapsed()));
    startMotion();
}

void TileMap::cancelDrag()
{
    m_dragPosition.reset();
    m_fingersApart = 0.0;
    unsetCursor();
    polish();
}

void TileMap::zoomSoftly(QPointF position, double levels)
{
    const double zoom = m_motion.end(view()).zoom + levels;
    takeInHand();
    if (m_cameraDuration > 0) {
        m_motion.zoomAbout(viewPoint(position), zoom);
        startMotion();
    } else {
        moveTo(zoomedAbout(view(), viewPoint(position), zoom));
    }
}

void TileMap::zoomAtOnce(QPointF position, double levels)
{
    takeInHand();
    m_zoomRest.start(zoomRest, this);
    moveTo(zoomedAbout(view(), viewPoint(position), m_camera.zoom + levels));
}

void TileMap::pan(double dx, double dy)
{
    const Camera from = m_motion.target().value_or(m_camera);
    takeInHand();
    const Camera to = panned(from, dx, dy);
    if (m_cameraDuration > 0) {
        m_motion.glide(m_camera, to, m_cameraDuration / 1e3);
        startMotion();
    } else {
        moveTo(to);
    }
}

bool TileMap::pressKey(int key)
{
    const QPointF middle = boundingRect().center();
    switch (key) {
    case Qt::Key_Left: pan(keyPan, 0.0); return true;
    case Qt::Key_Right: pan(-keyPan, 0.0); return true;
    case Qt::Key_Up: pan(0.0, keyPan); return true;
    case Qt::Key_Down: pan(0.0, -keyPan); return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal: zoomSoftly(middle, keyZoom); return true;
    case Qt::Key_Minus:
    case Qt::Key_Underscore: zoomSoftly(middle, -keyZoom); return true;
    case Qt::Key_0:
        m_isTouched = false;
        aim(AimChange::gentle);
        return true;
    default: return false;
    }
}

void TileMap::mousePressEvent(QMouseEvent* event)
{
    setKeepMouseGrab(true);
    emit touched();
    beginDrag(event->position());
}

void TileMap::mouseMoveEvent(QMouseEvent* event)
{
    if (event->position() != m_dragPosition)
        setCursor(QCursor(Qt::ClosedHandCursor));
    dragTo(event->position());
}

void TileMap::mouseReleaseEvent(QMouseEvent* event)
{
    dragTo(event->position());
    setKeepMouseGrab(false);
    endDrag();
}

void TileMap::mouseDoubleClickEvent(QMouseEvent* event)
{
    cancelDrag(); // which this press has begun: letting go would end the zoom
    zoomSoftly(event->position(), event->modifiers().testFlag(Qt::ShiftModifier) ? -doubleClickZoom : doubleClickZoom);
}

void TileMap::mouseUngrabEvent()
{
    cancelDrag();
}

void TileMap::touchUngrabEvent()
{
    cancelDrag();
}

void TileMap::wheelEvent(QWheelEvent* event)
{
    if (!event->pixelDelta().isNull())
        zoomAtOnce(event->position(), event->pixelDelta().y() / pixelsPerLevel);
    else if (event->angleDelta().y() != 0)
        zoomSoftly(event->position(), event->angleDelta().y() / wheelStep * levelsPerStep);
    event->accept();
}

/// One finger drags, two drag and zoom; the slide begins when the last one leaves.
void TileMap::touchEvent(QTouchEvent* event)
{
    setKeepTouchGrab(true);
    if (event->type() == QEvent::TouchBegin)
        emit touched();
    if (event->type() == QEvent::TouchEnd)
        endDrag();
    else
        pinch(*event);
    event->accept();
}

void TileMap::pinch(const QTouchEvent& event)
{
    QList<QPointF> fingers;
    bool isOther = !m_dragPosition;
    for (const QEventPoint& point : event.points()) {
        if (point.state() != QEventPoint::Released)
            fingers.append(point.position());
        isOther = isOther || point.state() == QEventPoint::Pressed || point.state() == QEventPoint::Released;
    }
    if (fingers.isEmpty())
        return;
    const QPointF middle = fingers.size() > 1 ? (fingers[0] + fingers[1]) / 2.0 : fingers[0];
    const QPointF across = fingers.size() > 1 ? fingers[1] - fingers[0] : QPointF();
    const double apart = std::hypot(across.x(), across.y());
    if (isOther) {
        beginDrag(middle);
        m_fingersApart = apart;
        return;
    }
    dragTo(middle);
    if (apart > 1.0 && m_fingersApart > 1.0)
        moveTo(zoomedAbout(view(), viewPoint(middle), m_camera.zoom + std::log2(apart / m_fingersApart)));
    m_fingersApart = apart;
}

bool TileMap::nativeGesture(const QNativeGestureEvent& event)
{
    if (event.gestureType() == Qt::ZoomNativeGesture)
        zoomAtOnce(event.position(), std::log2(std::max(1.0 + event.value(), 0.1)));
    else if (event.gestureType() == Qt::SmartZoomNativeGesture)
        zoomSoftly(event.position(), doubleClickZoom);
    else if (event.gestureType() != Qt::BeginNativeGesture && event.gestureType() != Qt::EndNativeGesture)
        return false;
    return true;
}

bool TileMap::event(QEvent* event)
{
    if (event->type() == QEvent::NativeGesture && nativeGesture(*static_cast<QNativeGestureEvent*>(event))) {
        event->accept();
        return true;
    }
    return QQuickItem::event(event);
}

void TileMap::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_zoomRest.timerId())
        return;
    m_zoomRest.stop();
    polish();
}

} // namespace ospra
