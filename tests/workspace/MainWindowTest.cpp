#include "plot/PlotItem.h"
#include "tests/core/ModelTestBed.h"
#include "workspace/OspraApp.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace ospra {
namespace {

/// The real window on a model with two jumps, the newer one with a companion.
class MainWindow : public ::testing::Test {
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

    void TearDown() override { EXPECT_EQ(warnings.join(QLatin1Char('\n')), ""); }

    void press(Qt::Key key)
    {
        QTest::keyClick(window, key);
        bed.settle();
    }

    /// The plots on screen, top to bottom.
    std::vector<PlotItem*> plots() const
    {
        std::vector<PlotItem*> list;
        collectPlots(window->contentItem(), list);
        return list;
    }

    static void collectPlots(QQuickItem* item, std::vector<PlotItem*>& list)
    {
        if (auto* plot = qobject_cast<PlotItem*>(item); plot && plot->isVisible())
            list.push_back(plot);
        for (QQuickItem* child : item->childItems())
            collectPlots(child, list);
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

TEST_F(MainWindow, arrowKeysWalkTheJumpsAndSpaceSwitchesTheZoom)
{
    press(Qt::Key_Down);
    EXPECT_EQ(model.tracks().size(), 2u);
    EXPECT_TRUE(model.zoomRange());
    press(Qt::Key_Space);
    EXPECT_FALSE(model.zoomRange());
    press(Qt::Key_Down);
    EXPECT_EQ(model.tracks().front().file.fileName, "a");
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_TRUE(model.sidebarSelection()->isOverview());
}

TEST_F(MainWindow, aHoverMovesTheCursorAndDrawsNoLineAnew)
{
    press(Qt::Key_Down);
    waitForPictures();
    const std::vector<PlotItem*> list = plots();
    ASSERT_EQ(list.size(), 3u);
    std::vector<int> before;
    for (const PlotItem* plot : list)
        before.push_back(plot->rasterCount());
    for (const double x : {0.2, 0.4, 0.6, 0.5}) {
        QTest::mouseMove(window, pointIn(list[1], x));
        QTest::qWait(30);
        ASSERT_TRUE(model.hoveredSeconds());
        EXPECT_NEAR(*model.hoveredSeconds(), list[1]->secondsAt(x * list[1]->width()), 1.0);
    }
    QTest::mouseMove(window, QPoint(20, 300));
    QTest::qWait(30);
    EXPECT_FALSE(model.hoveredSeconds());
    for (std::size_t index = 0; index < list.size(); ++index)
        EXPECT_EQ(list[index]->rasterCount(), before[index]);
}

TEST_F(MainWindow, aDragZoomsAndAShortOneDoesNot)
{
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    waitForPictures();
    const PlotItem* plot = plots()[0];
    const QPoint from = pointIn(plot, 0.25);
    QTest::mousePress(window, Qt::LeftButton, {}, from);
    QTest::mouseMove(window, from + QPoint(3, 0));
    QTest::mouseRelease(window, Qt::LeftButton, {}, from + QPoint(3, 0));
    EXPECT_FALSE(model.zoomRange());

    const double first = plot->secondsAt(0.25 * plot->width());
    const double last = plot->secondsAt(0.75 * plot->width());
    QTest::mousePress(window, Qt::LeftButton, {}, from);
    for (const double x : {0.3, 0.5, 0.7, 0.75}) {
        QTest::mouseMove(window, pointIn(plot, x));
        QTest::qWait(20);
    }
    QTest::mouseRelease(window, Qt::LeftButton, {}, pointIn(plot, 0.75));
    ASSERT_TRUE(model.zoomRange());
    EXPECT_NEAR(model.zoomRange()->lo, first, 1.0);
    EXPECT_NEAR(model.zoomRange()->hi, last, 1.0);
    EXPECT_FALSE(model.activeZoomMode());
}

TEST_F(MainWindow, aFailedLoadShowsTheAlertAndAnyKeyOfDismissalClearsIt)
{
    bed.addFile("me", "bad.csv", "");
    model.rebuildGroups();
    bed.settle();
    const auto bad =
        std::ranges::find(model.jumpGroups(), "bad", [](const JumpGroup& group) { return group.primaryEntry.name; });
    ASSERT_NE(bad, model.jumpGroups().end());
    model.openGroup(*bad);
    bed.settle();
    ASSERT_TRUE(model.hasError());
    QTest::qWait(200);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !model.hasError(); }));
}

TEST_F(MainWindow, survivesAnySizeAndAnEmptiedModel)
{
    press(Qt::Key_Down);
    window->setMinimumSize({1, 1});
    for (const QSize size : {QSize(1, 1), QSize(400, 200), QSize(3800, 2100), QSize(900, 560)}) {
        window->resize(size);
        QTest::qWait(50);
    }
    model.closeFolder();
    QTest::qWait(50);
    EXPECT_TRUE(plots().empty());
}

} // namespace
} // namespace ospra
