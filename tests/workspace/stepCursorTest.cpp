#include "workspace/stepCursor.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <vector>

namespace ospra {
namespace {

using enum CursorStep;

struct Row {
    std::optional<double> cursor;
    CursorStep step;
    std::optional<double> wanted;
};

void expectSteps(const std::vector<double>& elapsed, TimeRange shown, const std::vector<Row>& rows)
{
    for (const auto& [cursor, step, wanted] : rows) {
        SCOPED_TRACE(testing::Message() << cursor.value_or(-1.0) << ", step " << static_cast<int>(step));
        EXPECT_EQ(stepCursor(elapsed, shown, cursor, step), wanted);
    }
}

TEST(StepCursor, goesFromSampleToSampleAndStaysInSight)
{
    expectSteps({0.0, 1.0, 2.0, 2.0, 3.5, 4.0, 9.0}, {1.0, 4.0},
                {
                    {2.0, forward, 3.5},
                    {2.0, back, 1.0},
                    {2.4, forward, 3.5}, // between two, as the end of a log may leave it
                    {2.4, back, 2.0},
                    {4.0, forward, 4.0},
                    {1.0, back, 1.0},
                    {3.5, toStart, 1.0},
                    {std::nullopt, toEnd, 4.0},
                    {std::nullopt, forward, 1.0},
                    {std::nullopt, back, 4.0},
                    {0.0, forward, 1.0}, // out of sight
                    {9.0, forward, 1.0},
                    {9.0, back, 4.0},
                });
}

TEST(StepCursor, leapsATwentiethOfWhatIsShownAndOneSampleAtLeast)
{
    expectSteps({0.0, 1.0, 2.0, 2.5, 9.0, 30.0, 40.0}, {0.0, 40.0},
                {
                    {0.0, leapForward, 2.0},
                    {0.5, leapForward, 2.5},
                    {2.5, leapForward, 9.0},
                    {40.0, leapForward, 40.0},
                    {39.0, leapForward, 40.0}, // the end is nearer than a leap
                    {2.5, leapBack, 0.0},
                    {9.0, leapBack, 2.5},
                    {1.0, leapBack, 0.0},
                    {std::nullopt, leapForward, 0.0},
                });
}

TEST(StepCursor, findsNothingWhereNothingIsShown)
{
    for (const CursorStep step : {back, forward, leapBack, leapForward, toStart, toEnd}) {
        EXPECT_EQ(stepCursor({}, {0.0, 1.0}, std::nullopt, step), std::nullopt);
        EXPECT_EQ(stepCursor(std::vector{0.0, 5.0}, {1.0, 4.0}, 2.0, step), std::nullopt);
        EXPECT_EQ(stepCursor(std::vector{0.0, 5.0}, {5.0, 0.0}, 2.0, step), std::nullopt);
    }
}

TEST(StepCursor, visitsEverySampleOfAClockThatRanBackwards)
{
    const std::vector<double> elapsed{0.0, 3.0, 1.0, std::numeric_limits<double>::quiet_NaN(), 2.0};
    std::optional<double> cursor;
    for (const double wanted : {0.0, 1.0, 2.0, 3.0, 3.0}) {
        cursor = stepCursor(elapsed, {0.0, 3.0}, cursor, forward);
        EXPECT_EQ(cursor, wanted);
    }
}

} // namespace
} // namespace ospra
