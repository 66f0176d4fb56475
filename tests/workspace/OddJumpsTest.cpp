#include "tests/workspace/ChartsTest.h"

#include <QTime>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace ospra {
namespace {

/// Logs of jumpers that nothing has been done about, in the window with all rows on.
class OddJumps : public ChartsTest {
protected:
    void SetUp() override
    {
        ChartsTest::SetUp();
        showAllRows();
    }

    /// A log from a second of the day on, `rest` behind the time in each row.
    static std::string log(int seconds, const std::string& rest, int firstSecond = 0, int rowsPerSecond = 1)
    {
        std::string text = "time,lat,lon,hMSL,velN,velE,velD\n,(deg),(deg),(m),(m/s),(m/s),(m/s)\n";
        for (int second = firstSecond; second < firstSecond + seconds; ++second) {
            const QTime time = QTime::fromMSecsSinceStartOfDay(1000 * second);
            const std::string start = "2023-05-06T" + time.toString(Qt::ISODate).toStdString() + ".";
            for (int row = 0; row < rowsPerSecond; ++row)
                text += start + std::to_string(1000 + 1000 * row / rowsPerSecond).substr(1) + "Z," + rest;
        }
        return text;
    }

    void openLogs(const std::string& mine, const std::string& companions)
    {
        bed.addFile("me", "odd.csv", mine);
        bed.addFile("Maya", "odd.csv", companions);
        LoadRequest request{.jumpers = model.jumpers(), .units = model.units()};
        for (const Jumper& jumper : model.jumpers())
            request.entries.push_back({.url = jumper.directoryURL / "odd.csv", .name = "odd", .jumperID = jumper.id});
        model.selectSidebarItem(SidebarSelection::jumpGroup(model.jumpGroups()[0]));
        bed.settle();
        model.loadTracks(request);
        bed.settle();
        ASSERT_FALSE(model.hasError()) << *model.errorMessage();
        model.clearZoom();
        waitForPictures();
    }

    /// Pointer and drag over every row that can be reached, and an axis that makes sense on all of them.
    void use()
    {
        for (const PlotItem* plot : plots()) {
            EXPECT_TRUE(std::isfinite(plot->yMin()) && std::isfinite(plot->yMax()) && plot->yMin() < plot->yMax());
            EXPECT_FALSE(plot->tickLabels().contains(QString()));
            EXPECT_EQ(plot->width(), plots()[0]->width());
            EXPECT_GT(plot->rasterCount(), 0);
        }
        for (const double x : {0.0, 0.3, 0.999})
            QTest::mouseMove(window, pointIn(plots()[0], x));
        QTest::mousePress(window, Qt::LeftButton, {}, pointIn(plots()[0], 0.3));
        for (const double x : {0.4, 0.5, 0.6})
            QTest::mouseMove(window, pointIn(plots()[0], x));
        QTest::mouseRelease(window, Qt::LeftButton, {}, pointIn(plots()[0], 0.6));
        model.chooseZoomMode(ZoomMode::canopy);
        model.zoomToDrag(1e6, 2e6); // no sample there
        waitForPictures();
        model.setHoveredSeconds(1.5e6);
        model.clearZoom();
        waitForPictures();
    }
};

TEST_F(OddJumps, areDrawnHoveredAndZoomed)
{
    const std::string level = "47,8,1000,1,1,0\n";
    const struct {
        const char* name;
        std::string mine;
        std::string companions;
    } rows[] = {
        {"one sample", log(1, level), log(1, level)},
        {"all equal", log(60, level), log(60, level)},
        {"no numbers", log(60, "nan,nan,nan,nan,nan,nan\n"), log(60, level)},
        {"infinite", log(60, "inf,-inf,inf,-inf,inf,-inf\n"), log(60, "47,8,nan,1,1,inf\n")},
        {"huge", log(30, level) + log(30, "1e300,-1e300,1e300,1e300,1e300,-1e300\n", 30), log(60, level)},
        {"a clock that steps back", log(60, level) + log(60, level, 20), log(60, "47,8,900,0,0,5\n", 40)},
        {"a clock that ends before it began", log(30, level, 600) + log(60, level), log(60, level)},
        {"a companion on another part of the day", log(60, level), log(60, level, 50'000)},
    };
    for (const auto& [name, mine, companions] : rows) {
        SCOPED_TRACE(name);
        openLogs(mine, companions);
        ASSERT_FALSE(HasFatalFailure());
        EXPECT_EQ(model.tracks().size(), 2u);
        use();
    }
}

TEST_F(OddJumps, twoMillionSamplesAreDrawnAndHovered)
{
    constexpr int seconds = 80'000;
    openLogs(log(seconds, "47.1,8.2,1234.5,10.1,2.2,3.3\n", 0, 25), log(60, "47,8,1000,1,1,0\n"));
    ASSERT_EQ(model.tracks()[0].elapsed.size(), 2'000'000u);
    const int before = plots()[0]->rasterCount();
    QTest::mouseMove(window, pointIn(plots()[0], 0.5));
    ASSERT_TRUE(QTest::qWaitFor([this] { return model.hoveredSeconds().has_value(); }));
    EXPECT_NEAR(*model.hoveredSeconds(), seconds / 2.0, seconds / 200.0);
    QTest::qWait(50);
    EXPECT_EQ(plots()[0]->rasterCount(), before);
    model.zoomToDrag(100.0, 101.0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return plots()[0]->rasterCount() > before; }));
}

} // namespace
} // namespace ospra
