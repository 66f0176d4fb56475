#include "tilemap/item/MapAnchor.h"

#include <QQuickWindow>

#include <cmath>

namespace ospra {

MapAnchor::MapAnchor(QQuickItem* parent) : QQuickItem(parent)
{
    connect(this, &MapAnchor::placeChanged, this, &MapAnchor::follow);
}

void MapAnchor::setMap(TileMap* map)
{
    if (m_map == map)
        return;
    if (m_map)
        disconnect(m_map, nullptr, this, nullptr);
    m_map = map;
    if (m_map)
        connect(m_map, &TileMap::viewChanged, this, &MapAnchor::follow);
    emit placeChanged();
}

void MapAnchor::setPlace(const MapPlace& place)
{
    if (m_place == place)
        return;
    m_place = place;
    emit placeChanged();
}

void MapAnchor::setAnchorPoint(QPointF point)
{
    if (m_anchorPoint == point)
        return;
    m_anchorPoint = point;
    emit placeChanged();
}

void MapAnchor::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        follow();
}

void MapAnchor::componentComplete()
{
    QQuickItem::componentComplete();
    follow();
}

void MapAnchor::follow()
{
    if (!isComponentComplete())
        return;
    const std::optional<WorldPoint> place = worldPoint(m_place.coordinate());
    const bool isThere = m_map && place;
    setVisible(isThere);
    if (!isThere)
        return;
    const ViewPoint pixel = m_map->view().pixelAt(*place);
    // Text and outlines are sharp on whole device pixels only.
    const double scale = window() != nullptr ? window()->effectiveDevicePixelRatio() : 1.0;
    const QPointF corner = m_map->mapToScene(QPointF());
    const auto aligned = [scale](double position, double origin) {
        return std::round((position + origin) * scale) / scale - origin;
    };
    setPosition({aligned(pixel.x - m_anchorPoint.x() * width(), corner.x()),
                 aligned(pixel.y - m_anchorPoint.y() * height(), corner.y())});
}

} // namespace ospra
