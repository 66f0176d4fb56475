#include "display/zoom.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

/// One sample every ten seconds from `start` on: exit at the second, deployment at the third, canopy at the fourth,
/// landing at the fifth of six.
JumpTrack jumpFrom(double start)
{
    using enum JumpPhase;
    return makeBareTrack({start, start + 10, start + 20, start + 30, start + 40, start + 50},
                         {{.phase = aircraft, .startIndex = 0, .endIndex = 1},
                          {.phase = freefall, .startIndex = 1, .endIndex = 2},
                          {.phase = deployment, .startIndex = 2, .endIndex = 3},
                          {.phase = canopy, .startIndex = 3, .endIndex = 4},
                          {.phase = ground, .startIndex = 4, .endIndex = 5}});
}

TEST(ZoomRangeFor, ignoresPhasesThatTakeNoTime)
{
    JumpTrack track = jumpFrom(0.0);
    track.elapsed.assign(6, 5.0);
    EXPECT_EQ(zoomRangeFor(ZoomMode::freefall, std::vector{track}, {}), std::nullopt);
    track.elapsed = {50.0, 40.0, 30.0, 20.0, 10.0, 0.0}; // the clock ran backwards
    EXPECT_EQ(zoomRangeFor(ZoomMode::freefall, std::vector{track}, {}), std::nullopt);
}

TEST(ZoomRangeForDrag, takesEndsInAnyOrderBeyondHalfASecond)
{
    EXPECT_EQ(zoomRangeForDrag(9.0, 4.0), (TimeRange{4.0, 9.0}));
    EXPECT_EQ(zoomRangeForDrag(4.0, 4.5), std::nullopt);
    EXPECT_EQ(zoomRangeForDrag(4.5625, 4.0), (TimeRange{4.0, 4.5625}));
    EXPECT_EQ(zoomRangeForDrag(NAN, 4.0), std::nullopt);
}

} // namespace
} // namespace ospra
