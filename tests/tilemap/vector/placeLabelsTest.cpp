#include "tilemap/vector/placeLabels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>
#include <random>

namespace ospra {
namespace {

using testing::ElementsAre;

constexpr double upright = std::numbers::pi / 2.0;

LabelBox box(double x, double y, double angle = 0.0, std::string_view text = {})
{
    return {.center = {x, y}, .halfWidth = 20.0, .halfHeight = 5.0, .angle = angle, .text = text};
}

TEST(PlaceLabels, seesWhichBoxesTouch)
{
    struct Row {
        LabelBox other;
        double margin;
        bool touches;
    };
    const double diagonal = upright / 2.0;
    for (const auto& [other, margin, touches] : {
             Row{box(39.0, 0.0), 0.0, true},
             Row{box(41.0, 0.0), 0.0, false},
             Row{box(41.0, 0.0), 2.0, true},
             Row{box(0.0, 11.0), 0.0, false},
             Row{box(0.0, 24.0, upright), 0.0, true},
             Row{box(0.0, 26.0, upright), 0.0, false},
             // Upright boxes round these two would overlap; the texts run side by side.
             Row{box(12.0, -12.0, diagonal), 0.0, false},
             Row{box(12.0, 12.0, diagonal), 0.0, true},
         }) {
        SCOPED_TRACE(testing::Message() << other.center.x << ", " << other.center.y << " margin " << margin);
        const LabelBox fixed = box(0.0, 0.0, other.angle == diagonal ? diagonal : 0.0);
        EXPECT_EQ(boxesTouch(fixed, other, margin), touches);
        EXPECT_EQ(boxesTouch(other, fixed, margin), touches);
    }
}

TEST(PlaceLabels, repeatsATextOnlyFurtherAway)
{
    std::vector boxes{box(0.0, 0.0, 0.0, "Holt"), box(200.0, 0.0, 0.0, "Holt"), box(200.0, 0.0, 0.0, "Elm"),
                      box(0.0, 250.0, 0.0, "Holt")};
    for (LabelBox& one : boxes)
        one.leastRepeat = 250.0;
    EXPECT_THAT(placeLabels(boxes, 5.0), ElementsAre(0, 2, 3));
}

TEST(PlaceLabels, neverOverlapAndLeaveNoRoomUnused)
{
    std::mt19937 random(3);
    const auto upTo = [&](double greatest) { return greatest * static_cast<double>(random()) / 0x1p32; };
    std::vector<LabelBox> boxes;
    for (int i = 0; i < 3000; ++i) // some long enough to lie in many cells, on both sides of 0
        boxes.push_back({.center = {upTo(1200.0) - 300.0, upTo(900.0) - 300.0},
                         .halfWidth = 10.0 + upTo(i % 50 == 0 ? 400.0 : 40.0),
                         .halfHeight = 6.0,
                         .angle = upTo(3.0) - 1.5});
    constexpr double margin = 7.0;
    const std::vector<std::size_t> taken = placeLabels(boxes, margin);
    ASSERT_GT(taken.size(), 50U);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const bool isBlocked = std::ranges::any_of(
            taken, [&](std::size_t other) { return other < i && boxesTouch(boxes[other], boxes[i], margin); });
        EXPECT_NE(std::ranges::binary_search(taken, i), isBlocked) << i;
    }
}

TEST(StraightSpots, standInTheMiddleAndUpright)
{
    for (const double rise : {-200.0, 0.0, 200.0}) {
        const std::vector<PixelPoint> ends{{0.0, 0.0}, {200.0, rise}};
        for (const auto& line : {ends, std::vector(ends.rbegin(), ends.rend())}) {
            SCOPED_TRACE(testing::Message() << rise << " from " << line.front().x);
            const std::vector<LineSpot> spots = straightSpots(line, 100.0, 30.0, 2.0);
            ASSERT_FALSE(spots.empty());
            EXPECT_NEAR(spots[0].angle, rise / 200.0 * upright / 2.0, 1e-9);
            EXPECT_NEAR(spots[0].center.x, 100.0, 1e-9);
            EXPECT_NEAR(spots[0].center.y, rise / 2.0, 1e-9);
        }
    }
}

TEST(StraightSpots, keepOffBendsAndShortLines)
{
    const auto count = [](const std::vector<PixelPoint>& line) { return straightSpots(line, 100.0, 30.0, 2.0).size(); };
    EXPECT_EQ(count({{0.0, 0.0}, {99.0, 0.0}}), 0U);
    EXPECT_EQ(count({{0.0, 0.0}, {0.0, 0.0}, {0.0, 0.0}}), 0U);
    EXPECT_EQ(count({{0.0, 0.0}, {60.0, 3.0}, {120.0, 0.0}}), 0U) << "3 px off the straight";
    EXPECT_EQ(count({{0.0, 0.0}, {60.0, 1.0}, {120.0, 0.0}}), 1U);
    EXPECT_EQ(count({{0.0, 0.0}, {80.0, 0.0}, {0.0, 0.0}}), 0U) << "there and back";
    EXPECT_LT(count({{-1e15, 0.0}, {1e15, 0.0}}), 200U) << "bounded in number";
    // 160 px along and 150 down: only the beginnings and ends are straight for long enough.
    const std::vector<LineSpot> spots =
        straightSpots(std::vector<PixelPoint>{{0.0, 0.0}, {160.0, 0.0}, {160.0, 150.0}}, 100.0, 20.0, 2.0);
    ASSERT_FALSE(spots.empty());
    for (const LineSpot& spot : spots) {
        const bool isAlong = spot.center.y == 0.0 && spot.center.x <= 110.0;
        const bool isDown = spot.center.x == 160.0 && spot.center.y >= 50.0;
        EXPECT_TRUE(isAlong || isDown) << spot.center.x << ", " << spot.center.y;
    }
}

} // namespace
} // namespace ospra
