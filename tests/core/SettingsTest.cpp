#include "tests/core/ModelTestBed.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

using Series = std::set<DataSeries>;
using Texts = std::vector<std::string>;

TEST(ModelSettings, aFirstStartTakesTheLocalesUnitsAndStoresNothing)
{
    for (const bool metric : {true, false}) {
        ModelTestBed bed;
        bed.localeIsMetric = metric;
        EXPECT_EQ(bed.model().useMetric(), metric);
        EXPECT_TRUE(bed.model().useAGL());
        EXPECT_EQ(bed.model().enabledSeries(), (Series{DataSeries::elevation, DataSeries::verticalSpeed}));
        EXPECT_TRUE(bed.model().enabledDistanceSeries().empty());
        EXPECT_EQ(bed.settings().writes(), 0);
    }
}

TEST(ModelSettings, anotherSettingsWriteDoesNotDisturbUnitsThatWereNeverChosen)
{
    ModelTestBed bed;
    bed.model().setUseAGL(false);
    bed.settings().deliver();
    EXPECT_TRUE(bed.model().useMetric());
    EXPECT_FALSE(bed.settings().contains("useMetric"));
}

TEST(ModelSettings, storedSeriesAreCleanedAndAListOfUnknownNamesIsLeftAlone)
{
    const Series byDefault{DataSeries::elevation, DataSeries::verticalSpeed};
    struct Row {
        Texts stored;
        Series series;
        Texts storedThen;
    };
    for (const auto& [stored, series, storedThen] :
         {Row{{"Dive Angle", "Airspeed"}, {DataSeries::diveAngle}, {"Dive Angle"}},
          Row{{"Airspeed"}, byDefault, {"Airspeed"}}, Row{{}, byDefault, {}}}) {
        SCOPED_TRACE(testing::PrintToString(stored));
        ModelTestBed bed;
        bed.settings().setTexts("enabledSeries", stored);
        bed.settings().setTexts("enabledDistanceSeries", stored);
        EXPECT_EQ(bed.model().enabledSeries(), series);
        EXPECT_EQ(bed.settings().texts("enabledSeries"), storedThen);
        EXPECT_TRUE(bed.model().enabledDistanceSeries().empty()) << "which are off by default";
        EXPECT_EQ(bed.settings().texts("enabledDistanceSeries"), Texts{});
    }
}

TEST(ModelSettings, valuesOfAnotherTypeGiveDefaults)
{
    ModelTestBed bed;
    bed.settings().setTexts("useAGL", {"true"});
    bed.settings().setBoolean("enabledSeries", true);
    bed.settings().setBoolean("enabledDistanceSeries", true);
    EXPECT_FALSE(bed.model().useAGL());
    EXPECT_EQ(bed.model().enabledSeries().size(), 2u);
    EXPECT_TRUE(bed.model().enabledDistanceSeries().empty());
}

TEST(ModelSettings, everyAssignmentIsWrittenAndOnlyAChangeIsTold)
{
    ModelTestBed bed;
    OspraModel& model = bed.model();
    int told = 0;
    for (auto signal : {&OspraModel::useMetricChanged, &OspraModel::useAGLChanged, &OspraModel::enabledSeriesChanged,
                        &OspraModel::enabledDistanceSeriesChanged})
        QObject::connect(&model, signal, [&told] { ++told; });
    model.setUseMetric(model.useMetric());
    model.setUseAGL(model.useAGL());
    model.setEnabledSeries(model.enabledSeries());
    model.setEnabledDistanceSeries(model.enabledDistanceSeries());
    EXPECT_EQ(bed.settings().writes(), 4);
    EXPECT_EQ(told, 0);
    model.setUseMetric(false);
    model.setEnabledDistanceSeries({DistanceSeries::totalDistance});
    EXPECT_EQ(bed.settings().writes(), 6);
    EXPECT_EQ(told, 2);
}

TEST(ModelSettings, aWriteByTheSettingsPaneReachesTheModelAndItsData)
{
    ModelTestBed bed;
    bed.addLog("me", "a.csv");
    bed.openFolders("me");
    bed.openNextJump();
    const double metres = bed.model().chartData().front()[DataSeries::elevation][0].value;
    bed.settings().setBoolean("useMetric", false);
    bed.settings().deliver();
    EXPECT_FALSE(bed.model().useMetric());
    EXPECT_DOUBLE_EQ(bed.model().chartData().front()[DataSeries::elevation][0].value, metres * 3.28084);

    // The notice of the setter's own write finds nothing to do.
    int rebuilt = 0;
    QObject::connect(&bed.model(), &OspraModel::chartDataChanged, [&rebuilt] { ++rebuilt; });
    bed.settings().deliver();
    EXPECT_EQ(rebuilt, 0);
}

} // namespace
} // namespace ospra
