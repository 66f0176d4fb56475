#include "tests/workspace/ChartsTest.h"
#include "tilemap/item/TileMap.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

class MainWindow : public ChartsTest {};

TEST_F(MainWindow, theMapTakesTheArrowKeysWhileItHasTheFocus)
{
    press(Qt::Key_Down);
    waitForPictures();
    auto* const map = window->findChild<TileMap*>();
    ASSERT_TRUE(map);
    const std::string jump = model.tracks().front().file.fileName;
    QTest::mouseClick(window, Qt::LeftButton, {}, map->mapToScene({50.0, 50.0}).toPoint());
    const Camera before = map->camera();
    press(Qt::Key_Down);
    EXPECT_TRUE(QTest::qWaitFor([&] { return map->camera() != before; }));
    EXPECT_EQ(model.tracks().front().file.fileName, jump);
    press(Qt::Key_Space); // is no key of the map's
    EXPECT_FALSE(model.zoomRange());
}

TEST_F(MainWindow, chartsAndMapFitAnyWidthAndAnyNumberOfRows)
{
    press(Qt::Key_Down);
    waitForPictures();
    window->setMinimumSize({1, 1});
    const auto* const map = window->findChild<TileMap*>();
    const auto* const charts = window->findChild<QQuickItem*>(QStringLiteral("charts"));
    for (const int width : {900, 1000, 1200, 4000}) { // at 900 the charts are as narrow as they get
        for (const std::size_t count : {std::size_t{1}, allDataSeries.size()}) {
            SCOPED_TRACE(testing::Message() << width << " px, " << count);
            window->resize(width, 700);
            showAllRows();
            if (count == 1) {
                model.setEnabledSeries({allDataSeries[0]});
                model.setEnabledDistanceSeries({});
            }
            QTest::qWait(60);
            const std::vector<PlotItem*> list = plots();
            ASSERT_EQ(list.size(), count == 1 ? 2u : count + 4u);
            const double left = map->mapToScene({}).x();
            for (const PlotItem* plot : list) {
                EXPECT_EQ(plot->mapToScene({}).x(), list[0]->mapToScene({}).x());
                EXPECT_EQ(plot->width(), list[0]->width());
                EXPECT_GE(plot->height(), 70.0);
                EXPECT_LE(plot->mapToScene({plot->width(), 0.0}).x(), left);
            }
            EXPECT_GE(left - charts->mapToScene({}).x(), 400.0);
            EXPECT_GE(map->width(), 300.0);
            EXPECT_NEAR(left + map->width(), width, 0.5);
        }
    }
}

TEST_F(MainWindow, theWelcomeButtonHasTheKeyboardWhereNobodyElseWantsIt)
{
    const auto isOnButton = [this] {
        const QQuickItem* const item = window->activeFocusItem();
        return item && item->property("text") == QStringLiteral("Open Jumps Folder...");
    };
    EXPECT_FALSE(isOnButton()) << "not while jumps are shown";
    model.closeFolder();
    EXPECT_TRUE(QTest::qWaitFor(isOnButton));

    bed.openFolders("me");
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_FALSE(model.zoomRange()) << "with a jump on screen the keys are the charts' again";

    press(Qt::Key_Tab);
    const QQuickItem* const elsewhere = window->activeFocusItem();
    ASSERT_TRUE(elsewhere && elsewhere->mapToScene({}).x() < 200.0) << "the sidebar's menu comes first";
    model.closeFolder();
    QTest::qWait(50);
    EXPECT_EQ(window->activeFocusItem(), elsewhere);
}

} // namespace
} // namespace ospra
