#include "overview/views/HeatmapItem.h"

#include "tests/overview/views/OverviewBed.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace ospra {
namespace {

/// A heatmap 280 pixels wide: 20 columns.
struct Heatmap {
    explicit Heatmap(std::initializer_list<Instant> dates) : bed(dates)
    {
        item.setOverview(&bed.state());
        item.setLook(&look);
        item.setSize({280.0, item.implicitHeight()});
    }

    void press(Qt::Key key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&item, &event);
        EXPECT_TRUE(event.isAccepted()) << key;
    }
    void focusByTab()
    {
        QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
        QCoreApplication::sendEvent(&item, &event);
    }

    OverviewBed bed;
    HeatmapLook look;
    HeatmapItem item;
};

TEST(HeatmapItem, readsOutTheDayUnderThePointer)
{
    // 2 July 2023 is a Sunday, with which a week begins here.
    Heatmap map({utc(2023, 7, 2, 10), utc(2023, 7, 2, 12), utc(2023, 7, 15, 10)});
    map.item.hoverAt(5.0, 20.0);
    EXPECT_EQ(map.item.hoveredDayText(), "2 jumps on Jul 2, 2023");
    EXPECT_TRUE(map.item.hoveredDayHasJumps());
    map.item.hoverAt(5.0, 34.0);
    EXPECT_EQ(map.item.hoveredDayText(), "No jumps on Jul 3, 2023");
    EXPECT_FALSE(map.item.hoveredDayHasJumps());
    map.item.hoverAt(13.0, 34.0); // between two weeks
    EXPECT_FALSE(map.item.isOverDay());
    map.item.hoverAt(5.0, 17.0 + 6 * 14.0);
    EXPECT_EQ(map.item.hoveredDayText(), "No jumps on Jul 8, 2023");
    map.item.setContentX(14.0); // scrolled below a resting pointer
    EXPECT_EQ(map.item.hoveredDayText(), "1 jump on Jul 15, 2023");
    map.item.endHover();
    EXPECT_EQ(map.item.hoveredDayText(), "");
}

TEST(HeatmapItem, selectsADayAndClearsIt)
{
    Heatmap map({utc(2023, 7, 2, 10), utc(2023, 7, 15, 10)});
    map.item.clickAt(19.0, 34.0);
    EXPECT_EQ(map.bed.model().overviewSelectedDay(), utc(2023, 7, 10));
    EXPECT_EQ(map.item.scene().selectedCell, (HeatmapCell{.week = 1, .day = 1}));
    map.item.clickAt(13.0, 34.0); // between two weeks
    EXPECT_TRUE(map.bed.model().overviewSelectedDay());
    map.item.clickAt(19.0, 34.0);
    EXPECT_FALSE(map.bed.model().overviewSelectedDay());
    EXPECT_EQ(map.item.scene().selectedCell, std::nullopt);
}

TEST(HeatmapItem, goesFromDayToDayWithTheKeys)
{
    Heatmap map({utc(2023, 1, 1, 10), utc(2023, 7, 11, 10)});
    QSignalSpy reveals(&map.item, &HeatmapItem::revealRequested);
    map.focusByTab();
    EXPECT_EQ(map.item.focusedDayText(), "1 jump on Jul 11, 2023"); // the last with jumps
    ASSERT_EQ(reveals.count(), 1);                                  // far to the right
    map.item.setContentX(reveals[0][0].toDouble());
    EXPECT_EQ(map.item.contentX(), map.item.contentWidth() - 280.0);
    map.press(Qt::Key_Down);
    EXPECT_EQ(map.item.focusedDayText(), "No jumps on Jul 12, 2023");
    map.press(Qt::Key_Left);
    EXPECT_EQ(map.item.focusedDayText(), "No jumps on Jul 5, 2023");
    map.press(Qt::Key_Space);
    EXPECT_EQ(map.bed.model().overviewSelectedDay(), utc(2023, 7, 5));
    map.press(Qt::Key_Return);
    EXPECT_FALSE(map.bed.model().overviewSelectedDay());
    map.press(Qt::Key_Home);
    map.press(Qt::Key_Left); // no further
    EXPECT_EQ(map.item.focusedCell()->week, 0);
    for (int i = 0; i < 7; ++i)
        map.press(Qt::Key_Up);
    EXPECT_EQ(map.item.focusedDayText(), "1 jump on Jan 1, 2023");
}

TEST(HeatmapItem, takesOnlyTheColumnsOnScreenOfAGridOfCenturies)
{
    QElapsedTimer timer;
    Heatmap map({utc(1970, 1, 5), utc(2106, 3, 1), utc(2290, 5, 5)});
    timer.start();
    map.bed.state().refresh();
    EXPECT_GT(map.item.contentWidth(), 16'000 * 14.0);
    map.item.setContentX(map.item.contentWidth() - 280.0);
    const HeatmapScene scene = map.item.scene();
    EXPECT_LT(scene.columns.size(), 40U);
    EXPECT_EQ(scene.columns.back().levels[3], 0);
    EXPECT_LT(timer.elapsed(), 100);
}

TEST(HeatmapItem, drawsSquaresSharpAtEveryScale)
{
    HeatmapLook look;
    look.levels = {QColor("#ffffff"), QColor("#000001"), QColor("#000002"), QColor("#000003"), QColor("#ff0000")};
    HeatmapScene scene{.width = 100.0, .margin = 4.0};
    scene.columns = {{.levels = {4, 0, 0, 0, 0, 0, 0}}, {.levels = {4, 0, 0, 0, 0, 0, 0}}};
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        scene.scale = scale;
        const QImage image = paintHeatmap(scene, look);
        const int margin = qRound(4.0 * scale);
        const int row = margin + qRound(17.0 * scale) + qRound(6.0 * scale);
        const int size = qRound(12.0 * scale);
        const int next = margin + qRound(14.0 * scale);
        EXPECT_EQ(image.pixelColor(margin - 1, row).alpha(), 0);
        EXPECT_EQ(image.pixelColor(margin, row), QColor("#ff0000"));
        EXPECT_EQ(image.pixelColor(margin + size - 1, row), QColor("#ff0000"));
        EXPECT_EQ(image.pixelColor(margin + size, row).alpha(), 0);
        EXPECT_EQ(image.pixelColor(next - 1, row).alpha(), 0);
        EXPECT_EQ(image.pixelColor(next, row), QColor("#ff0000"));
    }
}

} // namespace
} // namespace ospra
