#pragma once

#include "tilemap/item/MapPlace.h"
#include "tilemap/item/TileMap.h"

#include <QPointF>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

namespace ospra {

/// An item that stands at a coordinate of a map, of which it is a child, with a point of its own on the coordinate. It
/// follows the camera, and is not there while it has no coordinate.
class MapAnchor : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::TileMap* map READ map WRITE setMap NOTIFY placeChanged REQUIRED)
    Q_PROPERTY(ospra::MapPlace place READ place WRITE setPlace NOTIFY placeChanged)
    Q_PROPERTY(QPointF anchorPoint READ anchorPoint WRITE setAnchorPoint NOTIFY placeChanged)

public:
    explicit MapAnchor(QQuickItem* parent = nullptr);

    [[nodiscard]] TileMap* map() const { return m_map; }
    void setMap(TileMap* map);
    /// The coordinate, which need not be one.
    [[nodiscard]] MapPlace place() const { return m_place; }
    void setPlace(const MapPlace& place);
    /// The point of the item that lies on the coordinate: 0, 0 is its top left corner, 1, 1 its bottom right one.
    [[nodiscard]] QPointF anchorPoint() const { return m_anchorPoint; }
    void setAnchorPoint(QPointF point);

signals:
    void placeChanged();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void componentComplete() override;

private:
    void follow();

    QPointer<TileMap> m_map;
    MapPlace m_place;
    QPointF m_anchorPoint{0.5, 0.5};
};

} // namespace ospra
