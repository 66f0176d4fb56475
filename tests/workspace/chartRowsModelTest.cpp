#include "workspace/ChartRowsModel.h"

#include "tests/core/ModelTestBed.h"
#include "workspace/ZoomModesModel.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace ospra {
namespace {

QVariant valueOf(const QAbstractListModel& list, int row, const char* role)
{
    return list.data(list.index(row), list.roleNames().key(role));
}

class ChartRows : public ModelTest {
protected:
    void SetUp() override
    {
        rows.setSource(&model);
        bed.addLog("me", "a.csv");
        bed.addLog("friend", "a.csv", {.openingAltitude = 900.0});
        bed.openFolders("me", {"friend"});
        bed.openNextJump();
    }

    QStringList titles() const
    {
        QStringList list;
        for (int row = 0; row < rows.rowCount(); ++row)
            list.append(valueOf(rows, row, "title").toString());
        return list;
    }

    ChartRowsModel rows;
};

TEST_F(ChartRows, standInTheirOrderAndTheOthersStayWhenOneComesOrGoes)
{
    EXPECT_EQ(titles(), (QStringList{"Elevation", "Vertical Speed", "Horizontal Distance"}));
    const QSignalSpy resets(&rows, &QAbstractItemModel::modelReset);
    const QSignalSpy removed(&rows, &QAbstractItemModel::rowsRemoved);
    model.setEnabledSeries({DataSeries::diveAngle, DataSeries::elevation, DataSeries::horizontalSpeed});
    model.setEnabledDistanceSeries({DistanceSeries::totalDistance});
    EXPECT_EQ(titles(),
              (QStringList{"Elevation", "Horizontal Speed", "Dive Angle", "Horizontal Distance", "Total Distance"}));
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(removed.count(), 1);
    model.setEnabledSeries({});
    EXPECT_TRUE(rows.hasSeries());
    model.setEnabledDistanceSeries({});
    EXPECT_FALSE(rows.hasSeries());
    EXPECT_EQ(titles(), QStringList{"Horizontal Distance"}) << "that row depends on no switch";
}

TEST_F(ChartRows, drawThePrimaryOnTopAndCompanionsFainter)
{
    const auto content = valueOf(rows, 0, "content").value<PlotContent>();
    ASSERT_EQ(content.lines.size(), 2u);
    EXPECT_EQ(content.lines[1].opacity, 1.0);
    EXPECT_EQ(content.lines[0].opacity, 0.7);
    EXPECT_LT(content.lines[0].width, content.lines[1].width);
    EXPECT_EQ(content.markers.size(), 4u);
    EXPECT_EQ(content.lines[1].x[0], model.visibleChartTracks()[0].seriesData[DataSeries::elevation][0].seconds);
    const auto distances = valueOf(rows, 2, "content").value<PlotContent>();
    ASSERT_EQ(distances.lines.size(), 4u);
    EXPECT_TRUE(distances.lines[2].dash.isSolid());
    EXPECT_FALSE(distances.lines[3].dash.isSolid());
    EXPECT_DOUBLE_EQ(distances.lines[1].opacity, 0.7 * 0.85);
}

TEST_F(ChartRows, aHoverChangesReadingsAndDotsButNoDataOfTheList)
{
    const QSignalSpy data(&rows, &QAbstractItemModel::dataChanged);
    QSignalSpy hovers(&rows, &ChartRowsModel::hoverChanged);
    rows.hoverAt(model.displayRange().lo + 10.0);
    ASSERT_EQ(rows.readings(0).size(), 2u);
    EXPECT_EQ(rows.readings(0)[0].name, "Me");
    EXPECT_EQ(rows.readings(0)[1].name, "friend");
    EXPECT_EQ(rows.dots(0).list.size(), 2);
    EXPECT_EQ(rows.dots(2).list.size(), 4);
    EXPECT_EQ(rows.timeLabel(), "T+10s");
    EXPECT_EQ(hovers.takeFirst(), (QVariantList{0, 2}));
    rows.hoverNothing();
    EXPECT_TRUE(rows.readings(0).empty());
    EXPECT_TRUE(rows.dots(0).list.isEmpty());
    EXPECT_EQ(data.count(), 0);
    for (const int row : {-1, 3}) {
        EXPECT_TRUE(rows.readings(row).empty());
        EXPECT_TRUE(rows.dots(row).list.isEmpty());
    }
}

TEST_F(ChartRows, letASelectionBeginInSightWhereTheCursorWasNot)
{
    const TimeRange shown = model.displayRange();
    const double first = model.tracks().front().elapsed.front();
    ASSERT_LT(first, shown.lo);
    rows.hoverAt(first);
    const double start = rows.moveCursor(ChartRowsModel::Back);
    EXPECT_DOUBLE_EQ(start, rows.hoveredSeconds());
    EXPECT_LE(rows.hoveredSeconds(), shown.hi);
    EXPECT_GT(rows.hoveredSeconds(), shown.hi - 1.0);
}

TEST_F(ChartRows, switchAZoomThatIsOnOff)
{
    ZoomModesModel zooms;
    zooms.setSource(&model);
    for (const bool isOn : {true, false}) {
        zooms.activate(2);
        EXPECT_EQ(valueOf(zooms, 2, "isOn"), isOn);
        EXPECT_EQ(valueOf(zooms, 0, "isOn"), !isOn) << "that of all";
        EXPECT_EQ(model.activeZoomMode() == ZoomMode::freefall, isOn);
    }
}

} // namespace
} // namespace ospra
