#include "tests/workspace/WindowTest.h"
#include "tilemap/item/TileMap.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

class MainWindow : public WindowTest {};

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

TEST_F(MainWindow, theMapTakesTheArrowKeysWhileItHasTheFocus)
{
    press(Qt::Key_Down);
    waitForPictures();
    auto* const map = window->findChild<TileMap*>();
    ASSERT_TRUE(map);
    const std::string jump = model.tracks().front().file.fileName;
    QTest::mouseClick(window, Qt::LeftButton, {}, map->mapToScene({50.0, 50.0}).toPoint());
    const Camera before = map->camera();
    press(Qt::Key_Down);
    EXPECT_TRUE(QTest::qWaitFor([&] { return map->camera() != before; }));
    EXPECT_EQ(model.tracks().front().file.fileName, jump);
    press(Qt::Key_Space); // is no key of the map's
    EXPECT_FALSE(model.zoomRange());
}

TEST_F(MainWindow, chartsAndMapShareTheLeastWindow)
{
    press(Qt::Key_Down);
    for (const int width : {900, 1000, 1200}) {
        SCOPED_TRACE(width);
        window->resize(width, 600);
        QTest::qWait(50);
        const auto* const map = window->findChild<TileMap*>();
        const double left = map->mapToScene({}).x();
        const double charts = left - window->findChild<QQuickItem*>(QStringLiteral("charts"))->mapToScene({}).x();
        EXPECT_GE(map->width(), 300.0);
        EXPECT_GE(charts, 400.0);
        EXPECT_NEAR(left + map->width(), width, 0.5);
    }
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

/// The text of the button that has the keyboard.
QString focusedText(const QQuickWindow* window)
{
    const QQuickItem* item = window->activeFocusItem();
    return item ? item->property("text").toString() : QString();
}

TEST_F(MainWindow, theWelcomeButtonHasTheKeyboardWhereNobodyElseWantsIt)
{
    const QString button = QStringLiteral("Open Jumps Folder...");
    EXPECT_NE(focusedText(window), button) << "not while jumps are shown";
    model.closeFolder();
    EXPECT_TRUE(QTest::qWaitFor([&] { return focusedText(window) == button; }));

    // With a jump on screen the keys are the charts' again, though the button had them.
    model.openFolder(bed.folder("me"));
    bed.settle();
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_FALSE(model.zoomRange());

    QTest::keyClick(window, Qt::Key_Tab);
    const QQuickItem* elsewhere = window->activeFocusItem();
    ASSERT_TRUE(elsewhere && elsewhere->mapToScene({}).x() < 200.0) << "the sidebar's menu comes first";
    model.closeFolder();
    QTest::qWait(50);
    EXPECT_EQ(window->activeFocusItem(), elsewhere);
}

} // namespace
} // namespace ospra
