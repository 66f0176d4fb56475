#include "tilemap/item/CameraMotion.h"

#include "tilemap/item/DragVelocity.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

const Camera start{.center = {0.5, 0.4}, .zoom = 12.0};

/// A motion of a camera that rests at first.
class CameraMotionTest : public testing::Test {
protected:
    /// Goes on to the end in steps of this length. @return the seconds that it took, at most 10
    double run(double step)
    {
        double seconds = 0.0;
        while (motion.isMoving() && seconds < 10.0) {
            view.camera = motion.advance(view, step);
            seconds += step;
        }
        return seconds;
    }

    CameraMotion motion;
    MapView view{.camera = start, .width = 400.0, .height = 300.0};
};

TEST_F(CameraMotionTest, glidesToExactlyItsTargetInItsTime)
{
    const Camera target{.center = {0.500123, 0.4000456}, .zoom = 13.7};
    for (const double step : {0.001, 0.016, 0.07, 1.0}) {
        motion.glide(start, target, 0.25);
        EXPECT_NEAR(run(step), 0.25, step + 1e-9);
        EXPECT_EQ(view.camera, target) << step;
    }
}

TEST_F(CameraMotionTest, startsAndEndsSoftly)
{
    motion.glide(start, {.center = start.center, .zoom = 14.0}, 1.0);
    const double first = motion.advance(view, 0.1).zoom - 12.0;
    const double half = motion.advance(view, 0.4).zoom - 12.0;
    const double last = 14.0 - motion.advance(view, 0.4).zoom;
    EXPECT_LT(first, 0.1);
    EXPECT_NEAR(half, 1.0, 1e-9);
    EXPECT_NEAR(last, first, 1e-9);
}

TEST_F(CameraMotionTest, goesOnToAnotherTargetInTheTimeThatWasLeft)
{
    motion.glide(start, {.center = start.center, .zoom = 14.0}, 0.25);
    view.camera = motion.advance(view, 0.2);
    const Camera other{.center = {0.6, 0.4}, .zoom = 11.0};
    motion.redirect(other);
    EXPECT_EQ(motion.end(view), other);
    EXPECT_NEAR(run(0.01), 0.05, 0.011);
    EXPECT_EQ(view.camera, other);
    motion.redirect(start); // at rest: nothing to redirect
    EXPECT_FALSE(motion.isMoving());
}

TEST_F(CameraMotionTest, slidesTheSameWayHoweverOftenItIsAsked)
{
    const MapView before = view;
    for (const double step : {0.004, 0.033}) {
        view = before;
        motion.slide({.x = 800.0, .y = 0.0});
        const double foretold = before.pixelAt(motion.end(view).center).x;
        run(step);
        const double middle = before.pixelAt(view.camera.center).x;
        EXPECT_NEAR(middle, foretold, 15.0) << step;
        EXPECT_NEAR(middle, 200.0 - (800.0 - 40.0) * 0.325, 1.0) << step; // to the left, as the ground goes right
        EXPECT_EQ(view.camera.center.y, start.center.y);
    }
}

TEST_F(CameraMotionTest, takesHardlyAnyVelocityForNone)
{
    for (const double speed : {0.0, 20.0, std::nan("")}) {
        motion.slide({.x = speed, .y = 0.0});
        EXPECT_FALSE(motion.isMoving()) << speed;
    }
}

TEST(DragVelocity, isThatOfTheLastMoment)
{
    DragVelocity velocity;
    velocity.begin({.x = 0.0, .y = 0.0}, 0);
    EXPECT_EQ(velocity.atRelease(0).x, 0.0);    // a click
    velocity.move({.x = 500.0, .y = 0.0}, 300); // fast at first
    for (int i = 1; i <= 10; ++i)
        velocity.move({.x = 500.0, .y = i * 2.0}, 300 + i * 10);
    EXPECT_NEAR(velocity.atRelease(405).x, 0.0, 1e-9);
    EXPECT_NEAR(velocity.atRelease(405).y, 200.0, 1e-9);
    EXPECT_EQ(velocity.atRelease(600).y, 0.0); // it has stood still before it was let go
}

} // namespace
} // namespace ospra
