#pragma once

#include "plot/PlotItem.h"
#include "plot/PlotOverlay.h"
#include "tests/core/ModelTestBed.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace ospra {

/// The real window on a model with two jumps, the newer one with a companion.
class WindowTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        bed.addLog("me", "a.csv");
        bed.addLog("me", "b.csv", {.startSeconds = JumpPlan{}.startSeconds + 7200.0});
        bed.addLog("friend", "b.csv", {.startSeconds = JumpPlan{}.startSeconds + 7201.0});
        QObject::connect(&engine, &QQmlEngine::warnings, [this](const QList<QQmlError>& errors) {
            for (const QQmlError& error : errors)
                warnings.append(error.toString());
        });
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine.setInitialProperties({{QStringLiteral("source"), QVariant::fromValue(&model)}});
        engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Ospra/Workspace/MainWindow.qml")));
        window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
        ASSERT_TRUE(window);
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        model.openFolder(bed.folder("me"));
        model.addCompanion(bed.folder("friend"));
        bed.settle();
    }

    void TearDown() override { EXPECT_EQ(warnings.join(QLatin1Char('\n')).toStdString(), ""); }

    void press(Qt::Key key)
    {
        QTest::keyClick(window, key);
        bed.settle();
    }

    /// The plots on screen, top to bottom.
    std::vector<PlotItem*> plots() const
    {
        std::vector<PlotItem*> list;
        collect(window->contentItem(), list);
        return list;
    }

    std::vector<PlotOverlay*> overlays() const
    {
        std::vector<PlotOverlay*> list;
        collect(window->contentItem(), list);
        return list;
    }

    template <typename Item>
    static void collect(QQuickItem* parent, std::vector<Item*>& list)
    {
        if (auto* item = qobject_cast<Item*>(parent); item && item->isVisible())
            list.push_back(item);
        for (QQuickItem* child : parent->childItems())
            collect(child, list);
    }

    static QPoint pointIn(const PlotItem* plot, double x)
    {
        return plot->mapToScene(QPointF(x * plot->width(), plot->height() / 2)).toPoint();
    }

    void waitForPictures() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] {
            const std::vector<PlotItem*> list = plots();
            return !list.empty() && std::ranges::all_of(list, [](PlotItem* plot) { return plot->rasterCount() > 0; });
        }));
        QTest::qWait(100);
    }

    ModelTestBed bed;
    OspraModel& model = bed.model();
    QStringList warnings;
    QQmlApplicationEngine engine;
    QQuickWindow* window = nullptr;
};

} // namespace ospra
