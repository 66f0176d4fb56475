#include "tests/core/ModelTestBed.h"
#include "tilemap/item/MapAnchor.h"
#include "tilemap/item/TileMap.h"
#include "workspace/FlightMapModel.h"
#include "workspace/OspraApp.h"
#include "workspace/flightPaths.h"

#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace ospra {
namespace {

/// The flight map in a window of 400 x 500 on a model with a jump of two.
class FlightMap : public ::testing::Test {
protected:
    void SetUp() override
    {
        bed.addLog("me", "a.csv", {.rate = 10.0});
        bed.addLog("friend", "a.csv", {.rate = 10.0, .groundSeconds = 5.0, .startSeconds = JumpPlan{}.startSeconds + 1.0});
        QObject::connect(&engine, &QQmlEngine::warnings, [this](const QList<QQmlError>& errors) {
            for (const QQmlError& error : errors)
                warnings.append(error.toString());
        });
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(&engine);
        component.setData(R"(
            import QtQuick
            import Ospra.Workspace
            Window {
                id: root
                required property OspraModel source
                width: 400; height: 500; visible: true
                FlightPathMapView { anchors.fill: parent; source: root.source }
            })",
                          QUrl(QStringLiteral("qrc:/test.qml")));
        window.reset(qobject_cast<QQuickWindow*>(
            component.createWithInitialProperties({{QStringLiteral("source"), QVariant::fromValue(&model)}})));
        ASSERT_TRUE(window) << component.errorString().toStdString();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        map = window->findChild<TileMap*>();
        flight = window->findChild<FlightMapModel*>();
        ASSERT_TRUE(map && flight);
    }

    void TearDown() override { EXPECT_EQ(warnings.join(QLatin1Char('\n')), ""); }

    void load()
    {
        model.openFolder(bed.folder("me"));
        model.addCompanion(bed.folder("friend"));
        bed.settle();
        model.selectNextJump();
        bed.settle();
        settle();
    }

    /// Until the camera rests and the paths are drawn for what it sees.
    void settle() const
    {
        QTest::qWait(60);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !map->isMoving(); }));
        QTest::qWait(60);
    }

    ModelTestBed bed;
    OspraModel& model = bed.model();
    QStringList warnings;
    QQmlEngine engine;
    std::unique_ptr<QQuickWindow> window;
    TileMap* map = nullptr;
    FlightMapModel* flight = nullptr;
};

TEST_F(FlightMap, hover)
{
    load();
    model.setHoveredSeconds(150.0);
    for (MapAnchor* a : map->findChildren<MapAnchor*>())
        qDebug() << a << a->isVisible() << a->position() << a->size() << a->place().latitude;
    for (QQuickItem* a : map->childItems())
        if (auto* m = qobject_cast<MapAnchor*>(a)) qDebug() << a << m->map() << m->place().latitude << m->property("markerPlace") << m->property("name");
    for (int i = 0; i < 2; ++i)
        qDebug() << flight->data(flight->index(i), Qt::UserRole + 2).value<MapPlace>().latitude << flight->roleNames();
    qDebug() << flight->rowCount() << model.visibleTracks().size();
}

} // namespace
} // namespace ospra
