#include "display/zoom.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

TEST(ZoomRangeFor, ignoresPhasesThatTakeNoTime)
{
    JumpTrack track = makeBareTrack({5.0, 5.0}, {{.phase = JumpPhase::freefall, .startIndex = 0, .endIndex = 1}});
    EXPECT_EQ(zoomRangeFor(ZoomMode::freefall, {&track, 1}, {}), std::nullopt);
    track.elapsed = {50.0, 40.0}; // the clock ran backwards
    EXPECT_EQ(zoomRangeFor(ZoomMode::freefall, {&track, 1}, {}), std::nullopt);
}

TEST(ZoomRangeForDrag, needsANumber)
{
    EXPECT_EQ(zoomRangeForDrag(NAN, 4.0), std::nullopt);
}

} // namespace
} // namespace ospra
