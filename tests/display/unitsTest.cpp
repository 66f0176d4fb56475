#include "display/units.h"

#include "display/statsBar.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

using enum DataSeries;

constexpr DisplayUnits metricAGL{.system = UnitSystem::metric, .altitude = AltitudeReference::aboveGround};
constexpr DisplayUnits imperialMSL{.system = UnitSystem::imperial, .altitude = AltitudeReference::aboveSeaLevel};

TEST(FormatDuration, takesAnyNumber)
{
    for (const double none : {0.0, -0.9, static_cast<double>(NAN), HUGE_VAL, -1e300, 0x1p63})
        EXPECT_EQ(formatDuration(none), "0:00") << none;
    EXPECT_EQ(formatDuration(-65.0), "-1:-5");
    EXPECT_EQ(formatDuration(0x1p62), "76861433640456465:04");
}

TEST(SeriesUnit, namesUnitAndReference)
{
    EXPECT_EQ(seriesUnit(elevation, metricAGL), "m AGL");
    EXPECT_EQ(seriesUnit(elevation, imperialMSL), "ft MSL");
    EXPECT_EQ(seriesUnit(verticalSpeed, metricAGL), "km/h");
    EXPECT_EQ(seriesUnit(glideRatio, imperialMSL), "");
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
