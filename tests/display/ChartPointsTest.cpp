#include "display/ChartPoints.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

std::vector<ChartPoint> pointsAt(const std::vector<double>& seconds)
{
    std::vector<ChartPoint> points;
    points.reserve(seconds.size());
    for (const double second : seconds)
        points.push_back({.id = std::ssize(points), .seconds = second, .value = second * 2.0});
    return points;
}

std::vector<std::int64_t> ids(const ChartPoints& points)
{
    std::vector<std::int64_t> result;
    for (const ChartPoint& point : points)
        result.push_back(point.id);
    return result;
}

TEST(ChartPoints, shareTheirStorageWithTheirCuts)
{
    ChartPoints part;
    const ChartPoint* first = nullptr;
    {
        const ChartPoints whole(pointsAt({0.0, 1.0, 2.0, 3.0}));
        first = &whole[0];
        part = whole.cut(1.0, 2.0);
        EXPECT_EQ(part.owner(), whole.owner());
    }
    EXPECT_EQ(&part[0], first + 1);
    EXPECT_EQ(ids(part), (std::vector<std::int64_t>{1, 2}));
}

TEST(ChartPoints, areEqualByValue)
{
    EXPECT_EQ(ChartPoints(pointsAt({1.0, 2.0})), ChartPoints(pointsAt({1.0, 2.0})));
    EXPECT_NE(ChartPoints(pointsAt({1.0, 2.0})), ChartPoints(pointsAt({1.0})));
    EXPECT_EQ(ChartPoints(pointsAt({1.0})).cut(2.0, 3.0), ChartPoints());
    const ChartPoints unknown(pointsAt({NAN}));
    EXPECT_NE(unknown, ChartPoints(unknown));
}

} // namespace
} // namespace ospra
