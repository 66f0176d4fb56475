#include "display/units.h"
#include "overview/overviewTexts.h"
#include "tests/properties/Dice.h"
#include "tests/properties/print.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <string>

namespace ospra::properties {

namespace {

std::string printed(const char* format, double value)
{
    return std::isnan(value) ? "nan"
                             : print(format, value); // the C library shows a sign, which no processor sets alike
}

/// Numbers at which roundings part: whole numbers and halves, tenths and hundredths of them, the doubles beside them,
/// zeros of both signs, the ends of the range, and any bits.
double makeNumber(Dice& dice)
{
    using Limits = std::numeric_limits<double>;
    constexpr std::array ties{0.4, -0.4, 0.5, -0.5, 0.05, -0.05, 0.005, 0.015, 2.675, 9.995, 9.95, 99.5, 999.5};
    constexpr std::array large{1e15 + 0.5, 0x1p52 + 0.5, 0x1p53, 1e22, greatest, -greatest, infinity, -infinity};
    constexpr std::array others{0.0, -0.0, Limits::min(), Limits::denorm_min(), noNumber, -noNumber};
    switch (dice.below(4)) {
    case 0: return dice.oneIn(2) ? dice.oneOf(ties) : dice.oneIn(2) ? dice.oneOf(large) : dice.oneOf(others);
    case 1: return std::bit_cast<double>(dice.bits());
    default: {
        constexpr std::array parts{0.5, 0.05, 0.005, 0.25, 0.125, 0.45, 0.95, 0.995};
        double value = static_cast<double>(dice.between(-20'000, 20'000)) + dice.oneOf(parts);
        value /= dice.oneIn(3) ? 10.0 : dice.oneIn(2) ? 100.0 : 1.0;
        return dice.oneIn(2) ? value : std::nextafter(value, dice.oneIn(2) ? 1e9 : -1e9);
    }
    }
}

TEST(TextOfAnyNumber, isRoundedAsTheCLibraryDoes)
{
    Dice dice(11);
    for (int round = 0; round < 30'000; ++round) {
        const double value = makeNumber(dice);
        SCOPED_TRACE(value);
        ASSERT_EQ(formatAltitude(value, UnitSystem::metric), printed("%.0f", value) + " m");
        ASSERT_EQ(fixed(value, 0), printed("%.0f", value));
        ASSERT_EQ(formatAltitude(value, UnitSystem::imperial), printed("%.0f", value * 3.28084) + " ft");
        ASSERT_EQ(formatSpeed(value, UnitSystem::metric), printed("%.0f", value * 3.6) + " km/h");
        ASSERT_EQ(formatSpeed(value, UnitSystem::imperial), printed("%.0f", value * 2.23694) + " mph");
        ASSERT_EQ(formatDistance(value, UnitSystem::imperial), printed("%.0f", value) + " ft");
        const DisplayUnits units{.system = UnitSystem::imperial, .altitude = AltitudeReference::aboveGround};
        ASSERT_EQ(formatSeriesValue(DataSeries::elevation, value, units), printed("%.0f", value) + " ft AGL");
        ASSERT_EQ(formatSeriesValue(DataSeries::verticalSpeed, value, units), printed("%.0f", value) + " mph");
        ASSERT_EQ(formatSeriesValue(DataSeries::glideRatio, value, units), printed("%.2f", value));
        ASSERT_EQ(formatSeriesValue(DataSeries::diveAngle, value, units), printed("%.1f", value) + " deg");
        if (std::isfinite(value)) {
            ASSERT_EQ(averageText(value), printed("%.1f", value) + "/wk");
        }
    }
}

TEST(DurationOfAnyLength, isCutTowardsZero)
{
    Dice dice(12);
    for (int round = 0; round < 30'000; ++round) {
        double seconds = static_cast<double>(dice.between(-7'300, 7'300));
        if (!dice.oneIn(3))
            seconds =
                std::nextafter(seconds, dice.oneIn(2) ? 1e9 : -1e9) + (dice.oneIn(2) ? 0.0 : dice.real(-1.0, 1.0));
        const long whole = static_cast<long>(seconds);
        ASSERT_EQ(formatDuration(seconds), print("%ld:%02ld", whole / 60, whole % 60)) << seconds;
    }
}

} // namespace

} // namespace ospra::properties
