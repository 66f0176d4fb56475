#include "tests/tilemap/item/MapBed.h"

#include <QQmlComponent>
#include <QTest>

#include <cmath>
#include <utility>

namespace ospra {

MapPath redPath(std::string id, std::vector<Coordinate> coordinates)
{
    return {.id = std::move(id),
            .coordinates = std::make_shared<const std::vector<Coordinate>>(std::move(coordinates)),
            .color = 0xff0000,
            .width = 4.0};
}

void MapBed::SetUp()
{
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlComponent component(&m_engine);
    component.setData(R"(
        import QtQuick
        import Ospra.TileMap
        Window {
            width: 400; height: 300; visible: true; color: "black"
            TileMap {
                id: ground
                width: 400; height: 300
                groundColor: "#000040"; cameraDuration: 150
                MapAnchor {
                    map: ground; width: 20; height: 10; anchorPoint: Qt.point(0.5, 1)
                    Rectangle { anchors.fill: parent; color: "#00ff00" }
                }
            }
        })",
                      QUrl(QStringLiteral("qrc:/test.qml")));
    m_window.reset(qobject_cast<QQuickWindow*>(component.create()));
    ASSERT_TRUE(m_window) << component.errorString().toStdString();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    m_map = m_window->findChild<TileMap*>();
    m_anchor = m_window->findChild<MapAnchor*>();
    ASSERT_TRUE(m_map && m_anchor);
}

void MapBed::pass(int milliseconds) const
{
    m_window->update();
    QTest::qWait(milliseconds);
}

void MapBed::showLevelPath()
{
    m_map->setContent(levelContent());
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_map->pathRasterCount() > 0; }));
    settle();
}

void MapBed::settle()
{
    pass(30);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_map->isMoving(); }));
    pass(200); // the zoom of a touchpad has come to rest as well
}

QPointF MapBed::pixelAt(Coordinate coordinate) const
{
    const ViewPoint pixel = m_map->view().pixelAt(worldPoint(coordinate).value());
    return {pixel.x, pixel.y};
}

double MapBed::zoomFor(double degrees, double pixels)
{
    return std::log2(pixels * 360.0 / degrees / 256.0);
}

} // namespace ospra
