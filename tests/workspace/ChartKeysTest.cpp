#include "tests/workspace/ChartsTest.h"

#include <QAccessible>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ospra {
namespace {

/// The charts with the keyboard on them and the pointer elsewhere.
class ChartKeys : public WholeJumpTest {
protected:
    void SetUp() override
    {
        WholeJumpTest::SetUp();
        charts = window->findChild<QQuickItem*>(QStringLiteral("charts"));
        ASSERT_TRUE(charts);
        charts->forceActiveFocus(Qt::TabFocusReason);
        ASSERT_TRUE(charts->hasActiveFocus());
    }

    double sample(std::size_t index) const { return model.tracks().front().elapsed[index]; }
    double lastSample() const { return model.tracks().front().elapsed.back(); }

    /// Both ends of the selection in each row.
    void expectSelection(double start, double end) const
    {
        for (const PlotOverlay* overlay : overlays()) {
            EXPECT_DOUBLE_EQ(overlay->property("dragStart").toDouble(), start);
            EXPECT_DOUBLE_EQ(overlay->property("dragEnd").toDouble(), end);
        }
    }

    QQuickItem* charts = nullptr;
};

TEST_F(ChartKeys, moveTheCursorFromSampleToSample)
{
    press(Qt::Key_Right, {}, 3);
    EXPECT_EQ(model.hoveredSeconds(), sample(2));
    press(Qt::Key_Left);
    EXPECT_EQ(model.hoveredSeconds(), sample(1));
    press(Qt::Key_End);
    EXPECT_EQ(model.hoveredSeconds(), lastSample());
    press(Qt::Key_Home);
    EXPECT_EQ(model.hoveredSeconds(), sample(0));
    press(Qt::Key_Escape);
    EXPECT_FALSE(model.hoveredSeconds());
}

TEST_F(ChartKeys, goOnFromWhereThePointerStands)
{
    QTest::mouseMove(window, pointIn(plots()[1], 0.5));
    ASSERT_TRUE(QTest::qWaitFor([this] { return model.hoveredSeconds().has_value(); }));
    const double pointed = *model.hoveredSeconds();
    press(Qt::Key_Right, {}, 2);
    const double moved = *model.hoveredSeconds();
    EXPECT_GT(moved, pointed);
    QTest::qWait(100); // frames in which the pointer rests
    EXPECT_EQ(model.hoveredSeconds(), moved);

    QTest::mouseMove(window, QPoint(20, 300));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !model.hoveredSeconds(); }));
    QTest::mouseMove(window, pointIn(plots()[1], 0.5));
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.hoveredSeconds() == pointed; })) << "back at the same place";
}

TEST_F(ChartKeys, selectWithShiftAndZoomWithReturn)
{
    press(Qt::Key_Home);
    press(Qt::Key_Right, Qt::ControlModifier);
    const double start = *model.hoveredSeconds();
    EXPECT_GT(start, sample(1));
    press(Qt::Key_Right, Qt::ShiftModifier, 2);
    press(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier, 3);
    const double end = *model.hoveredSeconds();
    expectSelection(start, end);
    press(Qt::Key_Return);
    EXPECT_EQ(selections(), 0);
    EXPECT_EQ(model.zoomRange(), (TimeRange{start, end}));

    press(Qt::Key_Home, Qt::ShiftModifier);
    expectSelection(end, start);
    press(Qt::Key_Space); // toggles the zoom, as everywhere
    EXPECT_FALSE(model.zoomRange());
    EXPECT_EQ(selections(), 0);
}

TEST_F(ChartKeys, letGoOfTheSelectionFirstAndOfTheCursorThen)
{
    press(Qt::Key_End, Qt::ShiftModifier);
    expectSelection(lastSample(), lastSample());
    press(Qt::Key_Home, Qt::ShiftModifier);
    expectSelection(lastSample(), sample(0));
    press(Qt::Key_Escape);
    EXPECT_EQ(selections(), 0);
    EXPECT_TRUE(model.hoveredSeconds());
    press(Qt::Key_Escape);
    EXPECT_FALSE(model.hoveredSeconds());

    press(Qt::Key_Right, Qt::ShiftModifier, 2);
    press(Qt::Key_Right);
    EXPECT_EQ(selections(), 0);
    press(Qt::Key_Right, Qt::ShiftModifier);
    charts->setFocus(false);
    EXPECT_EQ(selections(), 0);
    press(Qt::Key_Return);
    EXPECT_FALSE(model.zoomRange());
}

TEST_F(ChartKeys, leaveTheJumpsToUpAndDown)
{
    press(Qt::Key_Down);
    EXPECT_EQ(model.tracks().front().file.fileName, "a");
    QTest::qWait(50);
    press(Qt::Key_Up);
    EXPECT_EQ(model.tracks().front().file.fileName, "b");
}

TEST_F(ChartKeys, scrollTheRows)
{
    model.setEnabledSeries({allDataSeries.begin(), allDataSeries.end()});
    window->resize(900, 560);
    QTest::qWait(100);
    PlotItem* const top = plots()[0];
    const double before = top->mapToScene({}).y();
    press(Qt::Key_PageDown, {}, 5);
    EXPECT_LT(top->mapToScene({}).y(), before);
    press(Qt::Key_PageUp, {}, 5);
    EXPECT_DOUBLE_EQ(top->mapToScene({}).y(), before);
}

TEST_F(ChartKeys, areAStopOnlyWhereThereAreCharts)
{
    model.setEnabledSeries({});
    EXPECT_FALSE(charts->hasActiveFocus());
    EXPECT_FALSE(charts->isEnabled());
    press(Qt::Key_Down);
    EXPECT_EQ(model.tracks().front().file.fileName, "a") << "the keys of the window go on";
    model.setEnabledSeries({DataSeries::elevation});
    EXPECT_TRUE(charts->isEnabled());
}

TEST_F(ChartKeys, tellScreenReadersWhatStandsUnderTheCursor)
{
    const auto reading = [this] {
        for (QQuickItem* const item : visibleItems(charts))
            if (QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(item);
                reader && reader->role() == QAccessible::Chart && reader->text(QAccessible::Name) == "Vertical Speed")
                return reader->text(QAccessible::Description).toStdString();
        return std::string("no such row");
    };
    QAccessible::setActive(true);
    EXPECT_EQ(reading(), "");
    press(Qt::Key_Home);
    EXPECT_THAT(reading(), testing::MatchesRegex("Me .*, Maya .*"));
    QAccessible::setActive(false);
    press(Qt::Key_Escape);
    QAccessible::setActive(true); // a reader that comes later
    EXPECT_EQ(reading(), "");
    QAccessible::setActive(false);
}

} // namespace
} // namespace ospra
