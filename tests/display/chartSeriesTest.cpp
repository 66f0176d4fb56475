#include "display/chartSeries.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(FullRange, isThatOfTheFirstTrack)
{
    EXPECT_EQ(fullRange({}), (TimeRange{0.0, 1.0}));
    EXPECT_EQ(fullRange(std::vector{makeBareTrack({}), makeBareTrack({3.0, 4.0})}), (TimeRange{0.0, 1.0}));
    EXPECT_EQ(fullRange(std::vector{makeBareTrack({5.0, 9.0, 4.0})}), (TimeRange{5.0, 4.0}));
}

} // namespace
} // namespace ospra
