#include "display/ChartPoints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

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

std::vector<std::int64_t> filteredIds(const std::vector<ChartPoint>& points, double lo, double hi)
{
    std::vector<std::int64_t> result;
    for (const ChartPoint& point : points)
        if (lo <= point.seconds && point.seconds <= hi)
            result.push_back(point.id);
    return result;
}

TEST(ChartPoints, cutAsAFilterWouldWhateverTheClockDid)
{
    std::mt19937 random(4);
    for (int round = 0; round < 600; ++round) {
        std::vector<double> seconds(random() % 12);
        for (double& second : seconds)
            second = static_cast<double>(random() % 8);
        if (round % 3 != 0)
            std::ranges::sort(seconds);
        if (round % 5 == 0 && !seconds.empty())
            seconds[random() % seconds.size()] = NAN;

        const std::vector<ChartPoint> points = pointsAt(seconds);
        const ChartPoints whole(points);
        for (const double lo : {-1.0, 0.0, 2.5, 5.0, 9.0, std::nan("")})
            for (const double hi : {-HUGE_VAL, 0.0, 2.5, 5.0, 9.0, std::nan("")}) {
                ASSERT_EQ(ids(whole.cut(lo, hi)), filteredIds(points, lo, hi)) << lo << ' ' << hi;
                ASSERT_EQ(ids(whole.cut(1.0, 6.0).cut(lo, hi)),
                          filteredIds(points, std::max(lo, 1.0), std::min(hi, 6.0)))
                    << lo << ' ' << hi;
            }
    }
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
