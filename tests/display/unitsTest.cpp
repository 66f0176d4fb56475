#include "display/units.h"

#include "display/statsBar.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <random>

namespace ospra {
namespace {

using enum DataSeries;

constexpr DisplayUnits metricAGL{.system = UnitSystem::metric, .altitude = AltitudeReference::aboveGround};
constexpr DisplayUnits imperialMSL{.system = UnitSystem::imperial, .altitude = AltitudeReference::aboveSeaLevel};

std::string printed(double value, int decimals)
{
    if (std::isnan(value))
        return "nan"; // the C library shows a sign
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

TEST(Fixed, printsAsTheCLibraryDoes)
{
    EXPECT_EQ(fixed(0.5, 0), "0");
    EXPECT_EQ(fixed(1.5, 0), "2");
    EXPECT_EQ(fixed(-0.4, 0), "-0");
    EXPECT_EQ(fixed(0.125, 2), "0.12");
    EXPECT_EQ(fixed(1234567.0, 0), "1234567");
    EXPECT_EQ(fixed(INFINITY, 0), "inf");
    EXPECT_EQ(fixed(-INFINITY, 2), "-inf");
    EXPECT_EQ(fixed(std::copysign(NAN, 1.0), 1), "nan");
    EXPECT_EQ(fixed(std::copysign(NAN, -1.0), 1), "nan");

    std::mt19937_64 random(3);
    for (int round = 0; round < 20'000; ++round) {
        const double anyBits = std::bit_cast<double>(random());
        const double halfway = static_cast<double>(static_cast<std::int64_t>(random()) >> 44) / 8.0;
        for (const int decimals : {0, 1, 2}) {
            ASSERT_EQ(fixed(anyBits, decimals), printed(anyBits, decimals));
            ASSERT_EQ(fixed(halfway, decimals), printed(halfway, decimals));
        }
    }
}

TEST(Formats, showAltitudesAndSpeedsInTheUsersUnits)
{
    EXPECT_EQ(formatAltitude(1000.0, UnitSystem::metric), "1000 m");
    EXPECT_EQ(formatAltitude(1000.0, UnitSystem::imperial), "3281 ft");
    EXPECT_EQ(formatAltitude(-0.4, UnitSystem::metric), "-0 m");
    EXPECT_EQ(formatSpeed(50.0, UnitSystem::metric), "180 km/h");
    EXPECT_EQ(formatSpeed(50.0, UnitSystem::imperial), "112 mph");
    EXPECT_EQ(formatDistance(1000.0, UnitSystem::imperial), "1000 ft"); // converted already
}

TEST(FormatDuration, cutsTowardsZeroAndKeepsMinutes)
{
    struct Row {
        double seconds;
        const char* text;
    };
    for (const auto& [seconds, text] :
         {Row{0.0, "0:00"}, Row{59.9, "0:59"}, Row{60.0, "1:00"}, Row{125.0, "2:05"}, Row{3700.0, "61:40"},
          Row{-0.9, "0:00"}, Row{-59.9, "0:-59"}, Row{-65.0, "-1:-5"}, Row{NAN, "0:00"}, Row{INFINITY, "0:00"},
          Row{-1e300, "0:00"}, Row{0x1p63, "0:00"}, Row{0x1p62, "76861433640456465:04"}}) {
        SCOPED_TRACE(seconds);
        EXPECT_EQ(formatDuration(seconds), text);
    }
}

TEST(SeriesTexts, carryUnitAndReference)
{
    EXPECT_EQ(seriesUnit(elevation, metricAGL), "m AGL");
    EXPECT_EQ(seriesUnit(elevation, imperialMSL), "ft MSL");
    EXPECT_EQ(seriesUnit(verticalSpeed, metricAGL), "km/h");
    EXPECT_EQ(seriesUnit(totalSpeed, imperialMSL), "mph");
    EXPECT_EQ(seriesUnit(glideRatio, imperialMSL), "");

    EXPECT_EQ(formatSeriesValue(elevation, 812.5, metricAGL), "812 m AGL");
    EXPECT_EQ(formatSeriesValue(horizontalSpeed, 99.6, imperialMSL), "100 mph");
    EXPECT_EQ(formatSeriesValue(DataSeries::glideRatio, 2.675, metricAGL), "2.67"); // just below, in binary
    EXPECT_EQ(formatSeriesValue(diveAngle, -12.25, metricAGL), "-12.2 deg");
}

TEST(StatsBar, showsAltitudesAboveSeaLevelInFixedOrder)
{
    const JumpStatistics statistics{.exitAltitude = 4450.0,
                                    .pitchAltitude = 1650.0,
                                    .deploymentAltitude = 1500.0,
                                    .maxFreefallSpeed = 60.0,
                                    .avgFreefallSpeed = 50.0,
                                    .maxHorizontalSpeed = 40.0,
                                    .deploymentSpeed = 30.0,
                                    .freefallDuration = 61.9,
                                    .canopyDuration = 245.0,
                                    .groundElevation = 450.0};
    std::string line;
    for (const StatsItem& item : statsBarItems(statistics, UnitSystem::metric))
        line += std::string(item.label) + "=" + item.value + "|";
    EXPECT_EQ(line, "Exit=4450 m|Pitch=1650 m|Saddle=1500 m|Freefall=1:01|Canopy=4:05|Max V.Spd=216 km/h|"
                    "Max H.Spd=144 km/h|Avg F.Spd=180 km/h|Deploy Spd=108 km/h|");
}

} // namespace
} // namespace ospra
