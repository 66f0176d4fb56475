#include "tests/workspace/WindowTest.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

namespace ospra {
namespace {

/// Logs of jumpers that nothing has been done about, in the window with all rows on.
class OddJumps : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        model.setEnabledSeries({allDataSeries.begin(), allDataSeries.end()});
        model.setEnabledDistanceSeries({allDistanceSeries.begin(), allDistanceSeries.end()});
    }

    /// A log of one row a second from a moment of the day on, `rest` behind the time in each.
    static std::string log(int count, const std::string& rest, int firstSecond = 0)
    {
        std::string text = "time,lat,lon,hMSL,velN,velE,velD\n,(deg),(deg),(m),(m/s),(m/s),(m/s)\n";
        for (int i = 0; i < count; ++i)
            text += time(firstSecond + i) + rest;
        return text;
    }

    static std::string time(int second)
    {
        std::array<char, 40> text{};
        std::snprintf(text.data(), text.size(), "2023-05-06T%02d:%02d:%02d.00Z,", second / 3600, second / 60 % 60,
                      second % 60);
        return text.data();
    }

    void open(const std::string& mine, const std::string& companions)
    {
        bed.addFile("me", "odd.csv", mine);
        bed.addFile("friend", "odd.csv", companions);
        LoadRequest request{.jumpers = model.jumpers(), .units = model.units()};
        for (std::size_t i = 0; i < 2; ++i)
            request.entries.push_back({.url = bed.folder(i == 0 ? "me" : "friend") / "odd.csv",
                                       .name = "odd",
                                       .jumperID = model.jumpers()[i].id});
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
        open(mine, companions);
        ASSERT_FALSE(HasFatalFailure());
        EXPECT_EQ(model.tracks().size(), 2u);
        use();
    }
}

TEST_F(OddJumps, fitAnyWidthAndAnyNumberOfRows)
{
    press(Qt::Key_Down);
    waitForPictures();
    window->setMinimumSize({1, 1});
    for (const int width : {900, 1200, 4000}) { // at 900 the charts are as narrow as they get
        for (const std::size_t count : {std::size_t{1}, allDataSeries.size()}) {
            SCOPED_TRACE(testing::Message() << width << " px, " << count);
            window->resize(width, 700);
            model.setEnabledSeries({allDataSeries.begin(), allDataSeries.begin() + std::ptrdiff_t(count)});
            model.setEnabledDistanceSeries(count == 1 ? std::set<DistanceSeries>{}
                                                      : std::set(allDistanceSeries.begin(), allDistanceSeries.end()));
            QTest::qWait(60);
            const std::vector<PlotItem*> list = plots();
            ASSERT_EQ(list.size(), count == 1 ? 2u : count + 4u);
            for (const PlotItem* plot : list) {
                EXPECT_EQ(plot->mapToScene({}).x(), list[0]->mapToScene({}).x());
                EXPECT_EQ(plot->width(), list[0]->width());
                EXPECT_GE(plot->height(), 70.0);
                EXPECT_LE(plot->mapToScene({plot->width(), 0.0}).x(), width);
            }
        }
    }
}

TEST_F(OddJumps, twoMillionSamplesAreDrawnAndHovered)
{
    constexpr int seconds = 80'000;
    std::string text = "time,lat,lon,hMSL,velN,velE,velD\n,(deg),(deg),(m),(m/s),(m/s),(m/s)\n";
    for (int second = 0; second < seconds; ++second) {
        std::string start = time(second);
        start.resize(start.size() - 4);
        for (const char* const part : {"00", "04", "08", "12", "16", "20", "24", "28", "32", "36", "40", "44", "48",
                                       "52", "56", "60", "64", "68", "72", "76", "80", "84", "88", "92", "96"})
            text += start + part + "Z,47.1,8.2,1234.5,10.1,2.2,3.3\n";
    }
    open(text, log(60, "47,8,1000,1,1,0\n"));
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
