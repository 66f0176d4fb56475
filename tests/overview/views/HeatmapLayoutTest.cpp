#include "overview/views/HeatmapLayout.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(HeatmapLayout, findsTheSquareAtAPlaceAndNothingBetweenSquares)
{
    // Labels of 14 and a gap of 3 stand above the squares, which begin every 14 pixels and are 12 wide.
    const HeatmapLayout layout;
    struct Row {
        double x, y;
        std::optional<HeatmapCell> cell;
    };
    for (const auto& [x, y, cell] : {
             Row{0.0, 17.0, HeatmapCell{.week = 0, .day = 0}}, Row{11.9, 28.9, HeatmapCell{.week = 0, .day = 0}},
             Row{12.0, 20.0, std::nullopt}, Row{13.9, 20.0, std::nullopt},
             Row{14.0, 20.0, HeatmapCell{.week = 1, .day = 0}}, Row{5.0, 29.0, std::nullopt},
             Row{5.0, 31.0, HeatmapCell{.week = 0, .day = 1}}, Row{39.9, 112.9, HeatmapCell{.week = 2, .day = 6}},
             Row{39.9, 113.0, std::nullopt}, Row{5.0, 16.9, std::nullopt}, Row{-0.1, 20.0, std::nullopt},
             Row{42.0, 20.0, std::nullopt}, // a fourth week
         }) {
        SCOPED_TRACE(testing::Message() << x << ", " << y);
        EXPECT_EQ(layout.cellAt(x, y, 3), cell);
    }
    EXPECT_EQ(layout.cellAt(0.0, 20.0, 0), std::nullopt);
}

TEST(HeatmapLayout, staysExactInAGridOfCenturies)
{
    const HeatmapLayout layout;
    const std::ptrdiff_t week = 418'999;
    EXPECT_EQ(layout.cellAt(14.0 * 418'999 + 11.5, 20.0, 419'000), (HeatmapCell{.week = week, .day = 0}));
    EXPECT_EQ(layout.cellAt(14.0 * 418'999 + 12.5, 20.0, 419'000), std::nullopt);
    EXPECT_EQ(layout.columnsBetween(14.0 * 418'990, 14.0 * 419'010, 419'000), (IndexWindow{418'990, 419'000}));
}

TEST(HeatmapLayout, takesTheColumnsThatReachIntoTheView)
{
    const HeatmapLayout layout;
    EXPECT_EQ(layout.columnsBetween(0.0, 28.0, 10), (IndexWindow{0, 2}));
    EXPECT_EQ(layout.columnsBetween(-50.0, 28.5, 10), (IndexWindow{0, 3}));
    EXPECT_EQ(layout.columnsBetween(13.9, 14.1, 10), (IndexWindow{0, 2}));
    EXPECT_EQ(layout.columnsBetween(500.0, 600.0, 10), (IndexWindow{10, 10}));
    EXPECT_EQ(layout.columnsBetween(0.0, 100.0, 0), (IndexWindow{0, 0}));
    EXPECT_EQ(HeatmapLayout::barsBetween(8.0, 20.0, 100), (IndexWindow{2, 5}));
    EXPECT_EQ(layout.width(53), 53 * 14.0 - 2.0);
    EXPECT_EQ(layout.width(0), 0.0);
}

} // namespace
} // namespace ospra
