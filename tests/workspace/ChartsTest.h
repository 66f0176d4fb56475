#pragma once

#include "plot/PlotItem.h"
#include "plot/PlotOverlay.h"
#include "tests/workspace/WindowTest.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <vector>

namespace ospra {

/// The window of two jumps, with what a test needs to know of the rows of charts.
class ChartsTest : public WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        openJumps();
    }

    /// The plots on screen, top to bottom.
    std::vector<PlotItem*> plots() const { return visibleItems<PlotItem>(window->contentItem()); }
    std::vector<PlotOverlay*> overlays() const { return visibleItems<PlotOverlay>(window->contentItem()); }

    void showAllRows()
    {
        model.setEnabledSeries({allDataSeries.begin(), allDataSeries.end()});
        model.setEnabledDistanceSeries({allDistanceSeries.begin(), allDistanceSeries.end()});
    }

    static QPoint pointIn(const PlotItem* plot, double x)
    {
        return plot->mapToScene(QPointF(x * plot->width(), plot->height() / 2)).toPoint();
    }

    void waitForPictures() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] {
            const std::vector<PlotItem*> list = plots();
            return !list.empty() && std::ranges::all_of(list, [](PlotItem* plot) { return plot->rasterCount() > 0; });
        }));
        QTest::qWait(100);
    }
};

/// A jump of two that shows whole.
class WholeJumpTest : public ChartsTest {
protected:
    void SetUp() override
    {
        ChartsTest::SetUp();
        press(Qt::Key_Down);
        press(Qt::Key_Space);
        waitForPictures();
        ASSERT_FALSE(model.zoomRange());
    }

    /// How many rows show a selection.
    std::ptrdiff_t selections() const
    {
        return std::ranges::count_if(overlays(), [](const PlotOverlay* overlay) {
            return std::isfinite(overlay->property("dragStart").toDouble());
        });
    }
};

} // namespace ospra
