#include "tilemap/item/CameraMotion.h"

#include "tilemap/item/DragVelocity.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

MapView viewAt(const Camera& camera)
{
    return {.camera = camera, .width = 400.0, .height = 300.0};
}

const Camera start{.center = {0.5, 0.4}, .zoom = 12.0};

/// Runs a motion to its end in steps of this length. @return the seconds that it took, at most 10
double run(CameraMotion& motion, MapView& view, double step)
{
    double seconds = 0.0;
    while (motion.isMoving() && seconds < 10.0) {
        view.camera = motion.advance(view, step);
        seconds += step;
    }
    return seconds;
}

TEST(CameraMotion, glidesToExactlyItsTargetInItsTime)
{
    for (const double step : {0.001, 0.016, 0.07, 1.0}) {
        SCOPED_TRACE(step);
        const Camera target{.center = {0.500123, 0.4000456}, .zoom = 13.7};
        CameraMotion motion;
        motion.glide(start, target, 0.25);
        MapView view = viewAt(start);
        EXPECT_NEAR(run(motion, view, step), 0.25, step + 1e-9);
        EXPECT_EQ(view.camera, target);
    }
}

TEST(CameraMotion, startsAndEndsSoftly)
{
    CameraMotion motion;
    motion.glide(start, {.center = start.center, .zoom = 14.0}, 1.0);
    MapView view = viewAt(start);
    const double first = motion.advance(view, 0.1).zoom - 12.0;
    const double half = motion.advance(view, 0.4).zoom - 12.0;
    const double last = 14.0 - motion.advance(view, 0.4).zoom;
    EXPECT_LT(first, 0.1);
    EXPECT_NEAR(half, 1.0, 1e-9);
    EXPECT_NEAR(last, first, 1e-9);
}

TEST(CameraMotion, goesOnToAnotherTargetInTheTimeThatWasLeft)
{
    CameraMotion motion;
    motion.glide(start, {.center = start.center, .zoom = 14.0}, 0.25);
    MapView view = viewAt(start);
    view.camera = motion.advance(view, 0.2);
    const Camera other{.center = {0.6, 0.4}, .zoom = 11.0};
    motion.redirect(other);
    EXPECT_EQ(motion.end(view), other);
    EXPECT_NEAR(run(motion, view, 0.01), 0.05, 0.011);
    EXPECT_EQ(view.camera, other);
    motion.redirect(start); // at rest: nothing to redirect
    EXPECT_FALSE(motion.isMoving());
}

TEST(CameraMotion, slidesTheSameWayHoweverOftenItIsAsked)
{
    double ways[2] = {};
    for (const double step : {0.004, 0.033}) {
        CameraMotion motion;
        motion.slide({.x = 800.0, .y = 0.0});
        MapView view = viewAt(start);
        const double foretold = viewAt(start).pixelAt(motion.end(view).center).x;
        run(motion, view, step);
        ways[step > 0.01] = 200.0 - viewAt(start).pixelAt(view.camera.center).x;
        EXPECT_NEAR(200.0 - foretold, ways[step > 0.01], 15.0);
        EXPECT_EQ(view.camera.center.y, start.center.y);
    }
    EXPECT_NEAR(ways[0], ways[1], 3.0);
    EXPECT_NEAR(ways[0], 800.0 * 0.325, 20.0); // the ground goes to the right, so the camera to the left
}

TEST(CameraMotion, takesHardlyAnyVelocityForNone)
{
    CameraMotion motion;
    for (const double speed : {0.0, 20.0, std::nan("")}) {
        motion.slide({.x = speed, .y = 0.0});
        EXPECT_FALSE(motion.isMoving()) << speed;
    }
}

TEST(CameraMotion, zoomsAboutAPlaceThatStays)
{
    CameraMotion motion;
    MapView view = viewAt(start);
    const ViewPoint pixel{.x = 350.0, .y = 20.0};
    const WorldPoint place = view.placeAt(pixel);
    motion.zoomAbout(pixel, 13.5);
    while (motion.isMoving()) {
        view.camera = motion.advance(view, 0.016);
        EXPECT_NEAR(view.pixelAt(place).x, 350.0, 1e-3);
        EXPECT_NEAR(view.pixelAt(place).y, 20.0, 1e-3);
    }
    EXPECT_DOUBLE_EQ(view.camera.zoom, 13.5);
    motion.zoomAbout(pixel, 99.0);
    EXPECT_LT(run(motion, view, 0.016), 2.0);
    EXPECT_EQ(view.camera.zoom, highestZoom);
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
