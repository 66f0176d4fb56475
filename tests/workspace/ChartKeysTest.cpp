#include "tests/workspace/WindowTest.h"

#include <QAccessible>

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

/// The charts of a jump that shows whole, with the keyboard on them and the pointer elsewhere.
class ChartKeys : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        if (HasFatalFailure())
            return;
        press(Qt::Key_Down);
        press(Qt::Key_Space);
        waitForPictures();
        charts = window->findChild<QQuickItem*>(QStringLiteral("charts"));
        ASSERT_TRUE(charts);
        charts->forceActiveFocus(Qt::TabFocusReason);
        ASSERT_TRUE(charts->hasActiveFocus());
    }

    void pressWith(Qt::KeyboardModifiers modifiers, Qt::Key key, int times = 1)
    {
        for (int time = 0; time < times; ++time)
            QTest::keyClick(window, key, modifiers);
    }

    double sample(std::size_t index) const { return model.tracks().front().elapsed[index]; }
    double lastSample() const { return model.tracks().front().elapsed.back(); }

    /// Both ends of the selection in each row; NaN without one.
    void expectSelection(double start, double end) const
    {
        for (const PlotOverlay* overlay : overlays()) {
            EXPECT_DOUBLE_EQ(overlay->property("dragStart").toDouble(), start);
            EXPECT_DOUBLE_EQ(overlay->property("dragEnd").toDouble(), end);
        }
    }

    void expectNoSelection() const
    {
        for (const PlotOverlay* overlay : overlays())
            EXPECT_TRUE(std::isnan(overlay->property("dragStart").toDouble()));
    }

    QQuickItem* charts = nullptr;
};

TEST_F(ChartKeys, moveTheCursorFromSampleToSample)
{
    pressWith({}, Qt::Key_Right, 3);
    EXPECT_EQ(model.hoveredSeconds(), sample(2));
    pressWith({}, Qt::Key_Left);
    EXPECT_EQ(model.hoveredSeconds(), sample(1));
    pressWith({}, Qt::Key_End);
    EXPECT_EQ(model.hoveredSeconds(), lastSample());
    pressWith({}, Qt::Key_Home);
    EXPECT_EQ(model.hoveredSeconds(), sample(0));
    pressWith({}, Qt::Key_Escape);
    EXPECT_FALSE(model.hoveredSeconds());
}

TEST_F(ChartKeys, goOnFromWhereThePointerStands)
{
    QTest::mouseMove(window, pointIn(plots()[1], 0.5));
    ASSERT_TRUE(QTest::qWaitFor([this] { return model.hoveredSeconds().has_value(); }));
    const double pointed = *model.hoveredSeconds();
    pressWith({}, Qt::Key_Right, 2);
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
    pressWith({}, Qt::Key_Home);
    pressWith(Qt::ControlModifier, Qt::Key_Right);
    const double start = *model.hoveredSeconds();
    EXPECT_GT(start, sample(1));
    pressWith(Qt::ShiftModifier, Qt::Key_Right, 2);
    pressWith(Qt::ShiftModifier | Qt::ControlModifier, Qt::Key_Right, 3);
    const double end = *model.hoveredSeconds();
    expectSelection(start, end);
    pressWith({}, Qt::Key_Return);
    expectNoSelection();
    EXPECT_EQ(model.zoomRange(), (TimeRange{start, end}));

    pressWith(Qt::ShiftModifier, Qt::Key_Home);
    expectSelection(end, start);
    pressWith({}, Qt::Key_Space); // toggles the zoom, as everywhere
    EXPECT_FALSE(model.zoomRange());
    expectNoSelection();
}

TEST_F(ChartKeys, letGoOfTheSelectionFirstAndOfTheCursorThen)
{
    pressWith(Qt::ShiftModifier, Qt::Key_End);
    expectSelection(lastSample(), lastSample());
    pressWith(Qt::ShiftModifier, Qt::Key_Home);
    expectSelection(lastSample(), sample(0));
    pressWith({}, Qt::Key_Escape);
    expectNoSelection();
    EXPECT_TRUE(model.hoveredSeconds());
    pressWith({}, Qt::Key_Escape);
    EXPECT_FALSE(model.hoveredSeconds());

    pressWith(Qt::ShiftModifier, Qt::Key_Right, 2);
    pressWith({}, Qt::Key_Right);
    expectNoSelection();
    pressWith(Qt::ShiftModifier, Qt::Key_Right);
    charts->setFocus(false);
    expectNoSelection();
    pressWith({}, Qt::Key_Return);
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
    pressWith({}, Qt::Key_PageDown, 5);
    EXPECT_LT(top->mapToScene({}).y(), before);
    pressWith({}, Qt::Key_PageUp, 5);
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
    std::vector<QQuickItem*> items;
    collect(charts, items);
    const auto descriptionOf = [&items](const QString& name) {
        for (QQuickItem* item : items)
            if (QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(item);
                reader != nullptr && reader->role() == QAccessible::Chart && reader->text(QAccessible::Name) == name)
                return reader->text(QAccessible::Description);
        return QStringLiteral("no such row");
    };
    QAccessible::setActive(true);
    EXPECT_EQ(descriptionOf(QStringLiteral("Vertical Speed")), "");
    pressWith({}, Qt::Key_Home);
    const QString first = descriptionOf(QStringLiteral("Vertical Speed"));
    EXPECT_TRUE(first.startsWith(QStringLiteral("Me "))) << first.toStdString();
    EXPECT_TRUE(first.contains(QStringLiteral(", friend "))) << first.toStdString();
    QAccessible::setActive(false);
    pressWith({}, Qt::Key_Escape);
    QAccessible::setActive(true); // a reader that comes later
    EXPECT_EQ(descriptionOf(QStringLiteral("Vertical Speed")), "");
    QAccessible::setActive(false);
}

} // namespace
} // namespace ospra
