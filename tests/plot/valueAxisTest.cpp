#include "plot/valueAxis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace ospra {
namespace {

using testing::ElementsAre;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::vector<std::string> labelsOf(const ValueAxis& axis)
{
    std::vector<std::string> labels;
    for (const PlotTick& tick : axis.ticks)
        labels.push_back(tick.label);
    return labels;
}

TEST(LinearScale, hasNoPlacesWithoutAWidth)
{
    for (const ValueRange domain : {ValueRange{5.0, 5.0}, {0.0, infinity}, {notANumber, 1.0}, {-1.5e308, 1.5e308}}) {
        const LinearScale x{domain, 0.0, 200.0};
        EXPECT_FALSE(x.isValid());
        EXPECT_EQ(x.pixelAt(5.0), 100.0);
        EXPECT_TRUE(std::isnan(x.valueAt(10.0)));
    }
    EXPECT_TRUE(std::isnan((LinearScale{{0.0, 1.0}, 0.0, 0.0}).valueAt(0.0)));
}

TEST(AxisLabel, isChosenByMagnitude)
{
    using Row = std::pair<double, const char*>;
    for (const auto& [value, label] :
         {Row{0.0, "0"},        Row{-0.0, "0"},        Row{0.25, "0.2"},    Row{0.35, "0.3"},
          Row{0.999, "1.0"},    Row{1.0, "1"},         Row{2.5, "2"},       Row{3.5, "4"},
          Row{999.9, "1000"},   Row{1000.0, "1.0k"},   Row{1234.0, "1.2k"}, Row{1250.0, "1.2k"},
          Row{9999.0, "10.0k"}, Row{10000.0, "10k"},   Row{12345.0, "12k"}, Row{-12500.0, "-12k"},
          Row{-0.5, "-0.5"},    Row{-1500.0, "-1.5k"}, Row{infinity, ""},   Row{notANumber, ""}}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(axisLabel(value), label);
    }
}

TEST(ValueAxis, hasRoundStepsThatLinesFill)
{
    struct Row {
        ValueRange values;
        double height;
        std::vector<std::string> labels;
        ValueRange domain;
    };
    // Heights of four rows and of rows that share a higher window. The air at an open end is 3 % of the range.
    for (const auto& [values, height, labels, domain] : {
             Row{{900.0, 4068.0}, 96.0, {"0", "2.0k", "4.0k"}, {0.0, 4068.0 * 1.03}},
             Row{{0.0, 222.0}, 96.0, {"0", "100", "200"}, {0.0, 222.0 * 1.03}},
             Row{{0.0, 3900.0}, 96.0, {"0", "1.0k", "2.0k", "3.0k", "4.0k"}, {0.0, 4000.0}},
             Row{{10.0, 690.0}, 96.0, {"0", "200", "400", "600", "800"}, {0.0, 800.0}},
             Row{{12.0, 130.0}, 96.0, {"0", "50", "100", "150"}, {0.0, 150.0}},
             Row{{0.0, 13600.0}, 108.0, {"0", "5.0k", "10k", "15k"}, {0.0, 15000.0}},
             Row{{-15.0, 145.0}, 108.0, {"0", "50", "100", "150"}, {-19.8, 150.0}},
             Row{{0.0, 11728.0}, 108.0, {"0", "5.0k", "10k"}, {0.0, 11728.0 * 1.03}},
             Row{{-300.0, -20.0}, 96.0, {"-300", "-200", "-100", "0"}, {-300.0, 0.0}},
             // From 38 hundredths of a step on there is one step more.
             Row{{0.0, 237.9}, 80.0, {"0", "100", "200"}, {0.0, 237.9 * 1.03}},
             Row{{0.0, 238.0}, 80.0, {"0", "100", "200", "300"}, {0.0, 300.0}},
             Row{{0.0, 200.0}, 80.0, {"0", "100", "200"}, {0.0, 200.0}},
         }) {
        SCOPED_TRACE(values.hi);
        const ValueAxis axis = makeValueAxis(values, height);
        EXPECT_EQ(labelsOf(axis), labels);
        EXPECT_DOUBLE_EQ(axis.domain.lo, domain.lo);
        EXPECT_DOUBLE_EQ(axis.domain.hi, domain.hi);
    }
}

TEST(ValueAxis, isSaneWhateverTheValues)
{
    EXPECT_THAT(labelsOf(makeValueAxis(std::nullopt, 96.0)), ElementsAre("0"));
    EXPECT_EQ(makeValueAxis(ValueRange{0.0, 0.0}, 96.0).domain.hi, 1.0);
    EXPECT_THAT(labelsOf(makeValueAxis(ValueRange{0.0, 1e-9}, 27.0)), ElementsAre("0", "0.1"));
    for (const double lo : {-infinity, -1.7e308, -1e300, -5000.0, -0.04, 0.0, 3.0}) {
        for (const double hi : {3.0, 1e-300, 0.07, 1.4, 1100.0, 10400.0, 1e18, 1e300, 1.7e308, infinity}) {
            for (const double height : {-5.0, 0.0, 1.0, 13.0, 40.0, 96.0, 2000.0, 1e12, infinity, notANumber}) {
                SCOPED_TRACE(testing::Message() << lo << " " << hi << " " << height);
                const ValueAxis axis = makeValueAxis(ValueRange{lo, hi}, height);
                ASSERT_TRUE((LinearScale{axis.domain, 1.0, 0.0}).isValid());
                ASSERT_LE(axis.domain.lo, std::max(lo, -1e300));
                ASSERT_GE(axis.domain.hi, std::min(hi, 1e300));
                ASSERT_LE(axis.ticks.size(), 120U);
                for (std::size_t i = 1; i < axis.ticks.size(); ++i) {
                    ASSERT_LT(axis.ticks[i - 1].value, axis.ticks[i].value);
                    ASSERT_NE(axis.ticks[i - 1].label, axis.ticks[i].label);
                }
            }
        }
    }
}

TEST(ValueAxis, keepsAGivenDomain)
{
    const ValueAxis axis = makeFixedAxis({-1.5, 21.0}, 96.0);
    EXPECT_EQ(axis.domain, (ValueRange{-1.5, 21.0}));
    EXPECT_THAT(labelsOf(axis), ElementsAre("0", "10", "20"));
    EXPECT_TRUE(makeFixedAxis({1234.1, 1234.2}, 96.0).ticks.empty()); // each label would round
    for (const ValueRange bad : {ValueRange{1.0, 1.0}, {2.0, 1.0}, {0.0, infinity}, {1e300, 1e300 * (1.0 + 1e-15)}})
        EXPECT_EQ(makeFixedAxis(bad, 96.0).domain, (ValueRange{0.0, 1.0}));
}

TEST(VisibleValues, looksAtFinitePointsInTheDomain)
{
    // seconds and value by turns
    const std::vector<double> points{0.0,  99.0, 1.0,      5.0,        2.0,  notANumber, 3.0,
                                     -7.0, 4.0,  infinity, notANumber, 50.0, 5.0,        80.0};
    const PlotLine line{.x = points.data(), .y = points.data() + 1, .stride = 2, .count = points.size() / 2};
    EXPECT_EQ(visibleValues({&line, 1}, {1.0, 4.0}), (ValueRange{-7.0, 5.0}));
    EXPECT_EQ(visibleValues({&line, 1}, {1.5, 2.5}), std::nullopt);
    EXPECT_EQ(visibleValues({}, {0.0, 1.0}), std::nullopt);
}

} // namespace
} // namespace ospra
