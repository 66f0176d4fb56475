#include "tilemap/scaleBar.h"

#include <gtest/gtest.h>

#include <limits>

namespace ospra {
namespace {

TEST(ScaleBar, isTheLongestRoundLengthThatFits)
{
    struct Row {
        double metersPerPixel;
        double greatestWidth;
        LengthUnits units;
        const char* text;
        double width;
    };
    for (const Row& row : {
             Row{1.0, 100.0, LengthUnits::metric, "100 m", 100.0}, // just fits
             Row{1.0, 99.9, LengthUnits::metric, "50 m", 50.0},
             Row{1.0, 49.0, LengthUnits::metric, "25 m", 25.0},
             Row{0.05, 90.0, LengthUnits::metric, "1 m", 20.0}, // no 2.5 m
             Row{0.0099, 100.0, LengthUnits::metric, "", 0.0},
             Row{10.0, 99.0, LengthUnits::metric, "500 m", 50.0},
             Row{10.0, 100.0, LengthUnits::metric, "1 km", 100.0},
             Row{30.0, 100.0, LengthUnits::metric, "2.5 km", 2500.0 / 30.0},
             Row{300.0, 100.0, LengthUnits::metric, "25 km", 2500.0 / 30.0},
             Row{78'271.5, 100.0, LengthUnits::metric, "5000 km", 5e6 / 78'271.5},
             Row{1e300, 100.0, LengthUnits::metric, "500000 km", 0.0},
             Row{0.3048, 100.0, LengthUnits::imperial, "100 ft", 100.0},
             Row{0.3048, 4.9, LengthUnits::imperial, "1 ft", 1.0}, // no 2.5 ft
             Row{16.0, 100.0, LengthUnits::imperial, "5000 ft", 1524.0 / 16.0},
             Row{16.1, 100.0, LengthUnits::imperial, "1 mi", 1609.344 / 16.1},
             Row{50.0, 100.0, LengthUnits::imperial, "2.5 mi", 2.5 * 1609.344 / 50.0},
         }) {
        SCOPED_TRACE(testing::Message() << row.metersPerPixel << " m/px, " << row.greatestWidth << " px");
        const ScaleBar bar = scaleBar(row.metersPerPixel, row.greatestWidth, row.units);
        EXPECT_EQ(bar.text, row.text);
        EXPECT_NEAR(bar.width, row.width, 1e-6);
        EXPECT_LE(bar.width, row.greatestWidth);
    }
}

TEST(ScaleBar, isEmptyWhereThereIsNoScale)
{
    for (const double bad : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(scaleBar(bad, 100.0, LengthUnits::metric).text, "") << bad;
        EXPECT_EQ(scaleBar(1.0, bad, LengthUnits::imperial).text, "") << bad;
    }
    EXPECT_EQ(scaleBar(std::numeric_limits<double>::infinity(), 100.0, LengthUnits::metric).text, "");
}

} // namespace
} // namespace ospra
