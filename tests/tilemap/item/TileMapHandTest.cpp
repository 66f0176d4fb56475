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
        m_map->setContent(levelContent());
        settle();
    }

    void drag(QPoint from, QPoint to, int steps, int pause)
    {
        QTest::mousePress(m_window.get(), Qt::LeftButton, {}, from);
        for (int step = 1; step <= steps; ++step) {
            QTest::mouseMove(m_window.get(), from + (to - from) * step / steps);
            QTest::qWait(pause);
        }
    }
    void release(QPoint at) { QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, at); }

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
    EXPECT_NEAR(pixelAt(m_mark).x(), 300.0, 0.01);
    EXPECT_NEAR(pixelAt(m_mark).y(), 110.0, 0.01);
    QTest::qWait(120); // held still, so that it does not slide on
    release({300, 110});
    EXPECT_FALSE(m_map->isMoving());
    settle();
    EXPECT_NEAR(pixelAt(m_mark).x(), 300.0, 0.01);
}

TEST_F(TileMapHand, slidesOnAfterAFlingUntilItIsTouched)
{
    drag({340, 150}, {240, 150}, 10, 8);
    release({240, 150});
    EXPECT_TRUE(m_map->isMoving());
    QTest::qWait(60);
    EXPECT_LT(pixelAt(m_mark).x(), 139.0);
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {200, 100});
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
    drag({340, 150}, {240, 150}, 10, 8);
    release({240, 150});
    EXPECT_FALSE(m_map->isMoving());
}

TEST_F(TileMapHand, zoomsWithTheWheelAboutThePointer)
{
    const double before = m_map->zoom();
    const QPointF at = pixelAt(m_mark);
    wheel(at, {}, {0, 120});
    wheel(at, {}, {0, 120});
    QTest::qWait(30);
    EXPECT_NEAR(pixelAt(m_mark).x(), at.x(), 0.01);
    settle();
    EXPECT_NEAR(m_map->zoom(), before + 1.0, 1e-9);
    EXPECT_NEAR(pixelAt(m_mark).x(), at.x(), 0.01);
    wheel(at, {0, -100}, {0, -40}); // a touchpad, which tells pixels, moves it at once
    EXPECT_NEAR(m_map->zoom(), before + 0.5, 1e-9);
    EXPECT_NEAR(pixelAt(m_mark).x(), at.x(), 0.01);
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
    EXPECT_NEAR(pixelAt(m_mark).x(), at.x(), 0.6);
    QTest::qWait(500); // not a triple click
    QTest::mouseDClick(m_window.get(), Qt::LeftButton, Qt::ShiftModifier, at);
    settle();
    EXPECT_NEAR(m_map->zoom(), before, 1e-9);
}

TEST_F(TileMapHand, obeysItsKeys)
{
    const Camera before = m_map->camera();
    const double zoom = before.zoom;
    EXPECT_TRUE(m_map->pressKey(Qt::Key_Right));
    settle();
    EXPECT_NEAR(pixelAt(m_mark).x(), 120.0, 0.01);
    EXPECT_TRUE(m_map->pressKey(Qt::Key_Up));
    EXPECT_TRUE(m_map->pressKey(Qt::Key_Up)); // at once: the ways add up
    settle();
    EXPECT_NEAR(pixelAt(m_mark).y(), 390.0, 0.01);
    EXPECT_TRUE(m_map->pressKey(Qt::Key_Plus));
    settle();
    EXPECT_NEAR(m_map->zoom(), zoom + 1.0, 1e-9);
    EXPECT_TRUE(m_map->pressKey(Qt::Key_Minus));
    settle();
    EXPECT_TRUE(m_map->pressKey(Qt::Key_0));
    settle();
    EXPECT_EQ(m_map->camera(), before);
    EXPECT_FALSE(m_map->pressKey(Qt::Key_Space));
    EXPECT_FALSE(m_map->pressKey(Qt::Key_A));
}

TEST_F(TileMapHand, interruptsTheProgram)
{
    m_map->showRegion({47.0, 8.0}, {0.001, 0.002});
    pass(50);
    ASSERT_TRUE(m_map->isMoving());
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {100, 100});
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
    std::unique_ptr<QPointingDevice> device(QTest::createTouchDevice());
    const double before = m_map->zoom();
    QTest::touchEvent(m_window.get(), device.get()).press(0, {150, 150}).press(1, {250, 150});
    for (int step = 1; step <= 10; ++step)
        QTest::touchEvent(m_window.get(), device.get()).move(0, {150 - 10 * step, 150}).move(1, {250 + 10 * step, 150});
    pass(50); // moves are handed over with the next frame
    EXPECT_NEAR(m_map->zoom(), before + std::log2(3.0), 1e-6);
    EXPECT_NEAR(pixelAt({47.0, 8.0}).x(), 200.0, 0.01); // the middle between the fingers
    QTest::touchEvent(m_window.get(), device.get()).release(1, {350, 150}).move(0, {50, 150});
    QTest::touchEvent(m_window.get(), device.get()).move(0, {70, 170});
    pass(50);
    EXPECT_NEAR(pixelAt({47.0, 8.0}).x(), 220.0, 0.01); // one finger goes on alone, without a jump
    EXPECT_NEAR(pixelAt({47.0, 8.0}).y(), 170.0, 0.01);
    QTest::qWait(120);
    QTest::touchEvent(m_window.get(), device.get()).release(0, {70, 170});
    EXPECT_FALSE(m_map->isMoving());
}

} // namespace
} // namespace ospra
