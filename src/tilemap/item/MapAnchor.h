#pragma once

#include "tilemap/item/TileMap.h"

#include <QPointF>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

#include <limits>

namespace ospra {

/// An item that stands at a coordinate of a map, of which it is a child, with a point of its own on the coordinate. It
/// follows the camera, and is not there while it has no coordinate.
class MapAnchor : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::TileMap* map READ map WRITE setMap NOTIFY placeChanged REQUIRED)
    Q_PROPERTY(qreal latitude READ latitude WRITE setLatitude NOTIFY placeChanged)
    Q_PROPERTY(qreal longitude READ longitude WRITE setLongitude NOTIFY placeChanged)
    Q_PROPERTY(QPointF anchorPoint READ anchorPoint WRITE setAnchorPoint NOTIFY placeChanged)

public:
    explicit MapAnchor(QQuickItem* parent = nullptr);

    [[nodiscard]] TileMap* map() const { return m_map; }
    void setMap(TileMap* map);
    /// NaN while there is no coordinate.
    [[nodiscard]] qreal latitude() const { return m_coordinate.latitude; }
    void setLatitude(qreal latitude);
    [[nodiscard]] qreal longitude() const { return m_coordinate.longitude; }
    void setLongitude(qreal longitude);
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
    Coordinate m_coordinate{std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
    QPointF m_anchorPoint{0.5, 0.5};
};

} // namespace ospra
