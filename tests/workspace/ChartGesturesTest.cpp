#include "tests/workspace/ChartsTest.h"

#include <gtest/gtest.h>

#include <functional>

namespace ospra {
namespace {

/// A drag in the first row, from a quarter of the plot on.
class ChartGestures : public WholeJumpTest {
protected:
    void openJump(const char* name)
    {
        model.openGroup(bed.jump(name));
        bed.settle();
        QTest::qWait(200);
    }

    void beginDrag()
    {
        model.clearZoom();
        QTest::qWait(50);
        const PlotItem* const plot = plots().at(0);
        QTest::mousePress(window, Qt::LeftButton, {}, pointIn(plot, 0.25));
        for (const double x : {0.3, 0.4, 0.5})
            moveTo(pointIn(plot, x));
        ASSERT_EQ(selections(), std::ssize(plots())) << "in all rows";
    }

    void moveTo(QPoint point)
    {
        m_pointer = point;
        QTest::mouseMove(window, point);
        QTest::qWait(20);
    }

    void release()
    {
        QTest::mouseRelease(window, Qt::LeftButton, {}, m_pointer);
        QTest::qWait(20);
    }

    /// After whatever happened: nothing is left of the drag, and the next one zooms.
    void expectNextDragToZoom()
    {
        EXPECT_EQ(selections(), 0);
        beginDrag();
        release();
        EXPECT_EQ(selections(), 0);
        EXPECT_TRUE(model.zoomRange());
    }

private:
    QPoint m_pointer;
};

TEST_F(ChartGestures, aDragOfOneMoveZoomsAndOneOfThreePixelsDoesNot)
{
    const QPoint start = pointIn(plots()[0], 0.25);
    QTest::mousePress(window, Qt::LeftButton, {}, start);
    QTest::mouseMove(window, start + QPoint(3, 0));
    QTest::mouseRelease(window, Qt::LeftButton, {}, start + QPoint(3, 0));
    EXPECT_FALSE(model.zoomRange());

    const TimeRange whole = model.displayRange();
    QTest::mousePress(window, Qt::LeftButton, {}, start);
    moveTo(pointIn(plots()[0], 0.5));
    release();
    ASSERT_TRUE(model.zoomRange());
    EXPECT_NEAR((model.zoomRange()->hi - model.zoomRange()->lo) / (whole.hi - whole.lo), 0.25, 0.02);
}

TEST_F(ChartGestures, aDragGoesOnBeyondItsRowAndItsWindowAndEndsAtTheEdgeOfThePlot)
{
    const PlotItem* const plot = plots()[0];
    const double first = plot->secondsAt(0.25 * plot->width());
    const double last = model.displayRange().hi;
    beginDrag();
    moveTo(pointIn(plots()[2], 0.6));
    EXPECT_NEAR(overlays()[1]->property("dragEnd").toDouble(), plot->secondsAt(0.6 * plot->width()), 1.0);
    moveTo(QPoint(window->width() + 300, -200));
    EXPECT_DOUBLE_EQ(overlays()[2]->property("dragEnd").toDouble(), last);
    release();
    ASSERT_TRUE(model.zoomRange());
    EXPECT_NEAR(model.zoomRange()->lo, first, 1.0);
    EXPECT_DOUBLE_EQ(model.zoomRange()->hi, last);
    expectNextDragToZoom();
}

TEST_F(ChartGestures, nothingIsLeftOfADragThatSomethingComesInto)
{
    struct Row {
        const char* name;
        std::function<void()> happen;
    };
    const std::vector<Row> rows{
        {"a key", [this] { press(Qt::Key_Escape); }},
        {"the zoom", [this] { press(Qt::Key_Space); }},
        {"another jump", [this] { press(Qt::Key_Down); }},
        {"a load that begins and does not end yet", [this] { model.openGroup(model.jumpGroups()[0]); }},
        {"the end of that load", [this] { bed.settle(); }},
        {"a hidden jumper", [this] { model.toggleTrackVisibility(model.tracks()[0].id); }},
        {"and all of them", [this] { model.toggleTrackVisibility(model.tracks()[1].id); }},
        {"and both again",
         [this] {
             for (const JumpTrack& track : model.tracks())
                 model.toggleTrackVisibility(track.id);
         }},
        {"its row goes", [this] { model.setEnabledSeries({DataSeries::verticalSpeed}); }},
        {"all rows come", [this] { model.setEnabledSeries({allDataSeries.begin(), allDataSeries.end()}); }},
        {"the window has lost the keyboard",
         [this] {
             QFocusEvent lost(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
             QCoreApplication::sendEvent(window, &lost);
         }},
        {"another window comes to the front",
         [this] {
             QQuickWindow other;
             other.show();
             other.requestActivate();
             EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
             window->requestActivate();
         }},
        {"no window at all",
         [this] {
             window->setMinimumSize({1, 1});
             for (const QSize size : {QSize(1, 1), QSize(0, 0), QSize(900, 600)}) {
                 window->resize(size);
                 QTest::qWait(30);
             }
         }},
    };
    for (const auto& [name, happen] : rows) {
        SCOPED_TRACE(name);
        beginDrag();
        ASSERT_FALSE(HasFatalFailure());
        happen();
        QTest::qWait(30);
        moveTo(QPoint(600, 300));
        release();
        bed.settle();
        QTest::qWait(30);
        EXPECT_EQ(selections(), 0);
        if (model.zoomRange()) {
            EXPECT_LT(model.zoomRange()->lo, model.zoomRange()->hi);
        }
    }
    expectNextDragToZoom();
}

TEST_F(ChartGestures, anAlertOrTheEndOfTheFoldersEndsADrag)
{
    bed.addFile("me", "bad.csv", "");
    model.rebuildGroups();
    bed.settle();
    beginDrag();
    openJump("bad");
    ASSERT_TRUE(model.hasError());
    release();
    QTest::keyClick(window, Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.hasError(); }));
    EXPECT_FALSE(model.zoomRange());
    openJump("b");
    expectNextDragToZoom();

    beginDrag();
    model.closeFolder();
    QTest::qWait(50);
    release();
    bed.openFolders("me");
    openJump("b");
    expectNextDragToZoom();
}

TEST_F(ChartGestures, rowsThatAreScrolledAwayFollowThePointerWhenTheyCome)
{
    showAllRows();
    QTest::qWait(100);
    const auto dots = [this](PlotOverlay* overlay) { return overlay->dots().list.size(); };
    PlotOverlay* const last = overlays().back();
    model.setHoveredSeconds(model.displayRange().lo + 100.0);
    EXPECT_GT(dots(overlays().front()), 0);
    EXPECT_EQ(dots(last), 0) << "not on screen";
    for (int notch = 0; notch < 40; ++notch) {
        const QPointF point = pointIn(plots()[1], 0.5);
        QWheelEvent wheel(point, window->mapToGlobal(point), {}, QPoint(0, -240), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        wheel.setTimestamp(1000 + 20 * static_cast<quint64>(notch));
        QCoreApplication::sendEvent(window, &wheel);
        QTest::qWait(5);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return dots(last) > 0; })) << "scrolled into view, without another move";
    model.setHoveredSeconds(std::nullopt);
    EXPECT_EQ(dots(last), 0);
}

} // namespace
} // namespace ospra
