#include "tests/tilemap/item/MapBed.h"

#include <QTest>
#include <QWheelEvent>

#include <cmath>

namespace ospra {
namespace {

/// A map on a level path, at rest.
class TileMapHand : public MapBed {
protected:
    void SetUp() override
    {
        MapBed::SetUp();
        showLevelPath();
    }

    void drag(QPoint from, QPoint to, int steps, int pause)
    {
        press(from);
        for (int step = 1; step <= steps; ++step) {
            QTest::mouseMove(m_window.get(), from + (to - from) * step / steps);
            QTest::qWait(pause);
        }
    }
    void press(QPoint at) { QTest::mousePress(m_window.get(), Qt::LeftButton, {}, at); }
    void release(QPoint at) { QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, at); }
    /// To the left, fast enough for a slide.
    void fling()
    {
        drag({340, 150}, {240, 150}, 10, 8);
        release({240, 150});
    }

    void wheel(QPointF at, QPoint pixels, QPoint angle)
    {
        QWheelEvent event(at, m_window->mapToGlobal(at), pixels, angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(m_window.get(), &event);
    }

    const Coordinate m_mark{47.0, 8.0025}; // 40 px right of the middle
};

TEST_F(TileMapHand, dragsTheGroundAlong)
{
    drag({240, 150}, {300, 110}, 6, 10);
    EXPECT_LT(distance(m_mark, {300.0, 110.0}), 0.01);
    QTest::qWait(120); // held still, so that it does not slide on
    release({300, 110});
    EXPECT_FALSE(m_map->isMoving());
}

TEST_F(TileMapHand, slidesOnAfterAFlingUntilItIsTouched)
{
    fling();
    EXPECT_TRUE(m_map->isMoving());
    QTest::qWait(60);
    EXPECT_LT(pixelAt(m_mark).x(), 139.0);
    press({200, 100});
    EXPECT_FALSE(m_map->isMoving());
    const double stopped = pixelAt(m_mark).x();
    QTest::qWait(60);
    EXPECT_EQ(pixelAt(m_mark).x(), stopped);
    release({200, 100});
    EXPECT_FALSE(m_map->isMoving());
}

TEST_F(TileMapHand, doesNotSlideWhereMotionIsUnwanted)
{
    m_map->setProperty("cameraDuration", 0);
    fling();
    EXPECT_FALSE(m_map->isMoving());
}

TEST_F(TileMapHand, zoomsWithTheWheelAboutThePointer)
{
    const double before = m_map->zoom();
    const QPointF at = pixelAt(m_mark);
    wheel(at, {}, {0, 120});
    wheel(at, {}, {0, 120});
    QTest::qWait(30);
    EXPECT_LT(distance(m_mark, at), 0.01);
    settle();
    EXPECT_NEAR(m_map->zoom(), before + 1.0, 1e-9);
    EXPECT_LT(distance(m_mark, at), 0.01);
    wheel(at, {0, -100}, {0, -40}); // a touchpad, which tells pixels, moves it at once
    EXPECT_NEAR(m_map->zoom(), before + 0.5, 1e-9);
    EXPECT_LT(distance(m_mark, at), 0.01);
    wheel(at, {}, {0, 120 * 100});
    settle();
    EXPECT_EQ(m_map->zoom(), highestZoom);
}

TEST_F(TileMapHand, zoomsInOnADoubleClickAndOutWithShift)
{
    const double before = m_map->zoom();
    const QPoint at = pixelAt(m_mark).toPoint();
    QTest::mouseDClick(m_window.get(), Qt::LeftButton, {}, at);
    settle();
    EXPECT_NEAR(m_map->zoom(), before + 1.0, 1e-9);
    EXPECT_LT(distance(m_mark, at), 0.6);
    QTest::qWait(500); // not a triple click
    QTest::mouseDClick(m_window.get(), Qt::LeftButton, Qt::ShiftModifier, at);
    settle();
    EXPECT_NEAR(m_map->zoom(), before, 1e-9);
}

TEST_F(TileMapHand, obeysItsKeys)
{
    const Camera before = m_map->camera();
    EXPECT_TRUE(m_map->pressKey(Qt::Key_Right));
    settle();
    EXPECT_LT(distance(m_mark, {120.0, 150.0}), 0.01);
    EXPECT_TRUE(m_map->pressKey(Qt::Key_Up));
    EXPECT_TRUE(m_map->pressKey(Qt::Key_Up)); // at once: the ways add up
    settle();
    EXPECT_LT(distance(m_mark, {120.0, 390.0}), 0.01);
    for (const auto& [key, levels] : {std::pair{Qt::Key_Plus, 1.0}, {Qt::Key_Equal, 2.0}, {Qt::Key_Minus, 1.0}}) {
        EXPECT_TRUE(m_map->pressKey(key));
        settle();
        EXPECT_NEAR(m_map->zoom(), before.zoom + levels, 1e-9);
    }
    EXPECT_TRUE(m_map->pressKey(Qt::Key_0));
    settle();
    EXPECT_EQ(m_map->camera(), before);
    EXPECT_FALSE(m_map->pressKey(Qt::Key_Space));
}

TEST_F(TileMapHand, interruptsTheProgram)
{
    m_map->showRegion({47.0, 8.0}, {0.001, 0.002});
    pass(50);
    ASSERT_TRUE(m_map->isMoving());
    press({100, 100});
    EXPECT_FALSE(m_map->isMoving());
    const Camera stopped = m_map->camera();
    settle();
    EXPECT_EQ(m_map->camera(), stopped);
    m_map->showRegion({47.0, 8.0}, {0.001, 0.002}); // while the button is held
    pass(20);
    QTest::mouseMove(m_window.get(), {110, 100});
    EXPECT_FALSE(m_map->isMoving());
    release({110, 100});
    EXPECT_NE(m_map->camera(), stopped);
}

TEST_F(TileMapHand, pinchesWithTwoFingers)
{
    const std::unique_ptr<QPointingDevice> device(QTest::createTouchDevice());
    const auto touch = [&] { return QTest::touchEvent(m_window.get(), device.get()); };
    const double before = m_map->zoom();
    touch().press(0, {150, 150}).press(1, {250, 150});
    for (int step = 1; step <= 10; ++step)
        touch().move(0, {150 - 10 * step, 150}).move(1, {250 + 10 * step, 150});
    pass(50); // moves are handed over with the next frame
    EXPECT_NEAR(m_map->zoom(), before + std::log2(3.0), 1e-6);
    EXPECT_LT(distance({47.0, 8.0}, {200.0, 150.0}), 0.01); // the middle between the fingers
    touch().release(1, {350, 150}).move(0, {50, 150});
    touch().move(0, {70, 170});
    pass(50);
    EXPECT_LT(distance({47.0, 8.0}, {220.0, 170.0}), 0.01); // one finger goes on alone, without a jump
    QTest::qWait(120);
    touch().release(0, {70, 170});
    EXPECT_FALSE(m_map->isMoving());
}

} // namespace
} // namespace ospra
