#include "plot/PlotItem.h"

#include "plot/PlotOverlay.h"

#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>

namespace ospra {
namespace {

/// A level red line at `value` from 0 to 100 s.
PlotContent levelLine(double value)
{
    auto points = std::make_shared<const std::array<double, 4>>(std::array{0.0, value, 100.0, value});
    return {.lines = {{.owner = points,
                       .x = points->data(),
                       .y = points->data() + 1,
                       .stride = 2,
                       .count = 2,
                       .color = 0xff0000}},
            .seconds = {0.0, 100.0},
            .valueRange = ValueRange{0.0, 100.0}};
}

/// A window with a plot view: the plot is 200 x 100 and begins at 45, 12.
class PlotItemTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_engine.addImportPath("qrc:/qt/qml");
        QQmlComponent component(&m_engine);
        component.setData(R"(
            import QtQuick
            import Ospra.Plot
            Window {
                width: 245; height: 117; visible: true; color: "black"
                property alias view: view
                PlotView {
                    id: view
                    anchors.fill: parent
                    gridColor: "transparent"; labelColor: "transparent"
                    labelFont: Qt.font({ pixelSize: 10 })
                    cursorColor: "#00ff00"; dragColor: "#0000ff"
                }
            })",
                          QUrl("qrc:/test.qml"));
        m_window.reset(qobject_cast<QQuickWindow*>(component.create()));
        ASSERT_TRUE(m_window) << component.errorString().toStdString();
        m_view = m_window->property("view").value<QQuickItem*>();
        m_plot = m_window->findChild<PlotItem*>();
        m_overlay = m_window->findChild<PlotOverlay*>();
        ASSERT_TRUE(m_view && m_plot && m_overlay);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        ASSERT_TRUE(QTest::qWaitFor([this] { return m_plot->rasterCount() > 0; }));
        QTest::qWait(50); // a picture of the first size may have come before that of the last
    }

    /// Waits for the picture of a change, and draws it.
    QImage nextPicture(int countBefore)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_plot->rasterCount() > countBefore; }));
        return m_window->grabWindow();
    }

    QImage show(const PlotContent& content)
    {
        const int before = m_plot->rasterCount();
        m_plot->setContent(content);
        return nextPicture(before);
    }

    /// The row of the window in which the column is reddest.
    static int lineRow(const QImage& image, int column)
    {
        int best = 0;
        for (int row = 0; row < image.height(); ++row) {
            if (image.pixelColor(column, row).red() > image.pixelColor(column, best).red())
                best = row;
        }
        return image.pixelColor(column, best).red() > 0 ? best : -1;
    }

    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QQuickItem* m_view = nullptr;
    PlotItem* m_plot = nullptr;
    PlotOverlay* m_overlay = nullptr;
};

TEST_F(PlotItemTest, drawsNoLinesAnewWhileThePointerMoves)
{
    show(levelLine(50.0));
    const int before = m_plot->rasterCount();
    for (int second = 0; second <= 100; second += 5) {
        m_overlay->setProperty("cursorSeconds", second);
        m_overlay->setDots({{{double(second), 20.0, 0x00ffff, 1.0}, {double(second), 80.0, 0xffff00, 0.5}}});
        m_overlay->setProperty("dragStart", 10.0);
        m_overlay->setProperty("dragEnd", double(second));
        m_view->setProperty("gridColor", QColor(second, 0, 0));
        m_window->grabWindow();
        QCoreApplication::processEvents();
    }
    const QImage image = m_window->grabWindow();
    EXPECT_EQ(m_plot->rasterCount(), before);
    EXPECT_EQ(image.pixelColor(45 + 100, 12 + 90), QColor(0, 0, 255)); // the selection lies over the line
    m_overlay->setProperty("dragEnd", std::nan(""));
    m_overlay->setProperty("cursorSeconds", 50.0);
    m_overlay->setDots({{{50.0, 20.0, 0x00ffff, 1.0}}});
    const QImage hovered = m_window->grabWindow();
    EXPECT_EQ(hovered.pixelColor(45 + 100, 12 + 10), QColor(0, 255, 0));
    EXPECT_EQ(hovered.pixelColor(45 + 100, 12 + 80), QColor(0, 255, 255));
    m_overlay->setProperty("cursorSeconds", 101.0); // outside the domain: neither cursor nor dots
    EXPECT_EQ(m_window->grabWindow().pixelColor(45 + 100, 12 + 80), QColor(0, 0, 0));
    EXPECT_EQ(m_plot->rasterCount(), before);
}

TEST_F(PlotItemTest, keepsTheOldPictureUntilTheOneOfAllChangesIsThere)
{
    show(levelLine(75.0));
    const int before = m_plot->rasterCount();
    m_view->setProperty("axisWidth", 20.0);
    m_view->setProperty("bottomMargin", 55.0); // the plot is now 220 x 50
    m_plot->setContent(levelLine(75.0));
    // Grabbing draws the window without running the event loop, so that no new picture can have come back.
    const QImage meanwhile = m_window->grabWindow();
    EXPECT_EQ(m_plot->rasterCount(), before);
    const QImage image = nextPicture(before);
    for (const QImage& shown : {meanwhile, image}) {
        EXPECT_NEAR(lineRow(shown, 27), 12 + 12.5, 1);
        EXPECT_NEAR(lineRow(shown, 243), 12 + 12.5, 1);
        EXPECT_EQ(lineRow(shown, 22), -1); // left of the plot
    }
    QCoreApplication::processEvents();
    m_window->grabWindow();
    EXPECT_EQ(m_plot->rasterCount(), before + 1);
}

TEST_F(PlotItemTest, tellsAxisAndConversions)
{
    PlotContent content = levelLine(4068.0);
    content.valueRange.reset();
    m_plot->setContent(content);
    EXPECT_EQ(m_plot->tickLabels(), (QStringList{"0", "2.0k", "4.0k"}));
    EXPECT_EQ(m_plot->tickPositions().front(), 100.0);
    EXPECT_NEAR(m_plot->tickPositions().back(), 100.0 - 100.0 * 4000.0 / (4068.0 * 1.03), 1e-9);
    EXPECT_DOUBLE_EQ(m_plot->xAt(25.0), 50.0);
    EXPECT_DOUBLE_EQ(m_plot->secondsAt(50.0), 25.0);
    content.seconds.hi = 0.0;
    m_plot->setContent(content);
    EXPECT_TRUE(std::isnan(m_plot->secondsAt(50.0)));
    content.seconds.hi = 2.0;
    m_plot->setContent(content); // only the point at 0 is left; nothing else has changed
    EXPECT_EQ(m_plot->tickLabels(), (QStringList{"0", "2.0k", "4.0k"}));
}

TEST_F(PlotItemTest, placesTheLettersOfMarkersInTheDomain)
{
    PlotContent content = levelLine(50.0);
    content.markers = {{.seconds = 50.0, .color = 0x112233, .letter = "P", .letterOpacity = 0.9},
                       {.seconds = 101.0, .letter = "P"},
                       {.seconds = 100.0, .letter = "S"},
                       {.seconds = 20.0}};
    m_plot->setContent(content);
    EXPECT_EQ(m_plot->letterTexts(), (QStringList{"P", "S"}));
    ASSERT_EQ(m_plot->letterPositions().size(), 2);
    EXPECT_EQ(m_plot->letterPositions().front(), 100.0);
    EXPECT_LT(m_plot->letterPositions().back(), 198.0);
    EXPECT_NEAR(m_plot->letterColors().front().alphaF(), 0.9, 0.01);
}

TEST_F(PlotItemTest, canGoWhileItsPictureIsDrawn)
{
    for (int round = 0; round < 20; ++round) {
        m_plot->setContent(levelLine(round));
        m_window->grabWindow();
    }
    m_window.reset();
    QCoreApplication::processEvents();
}

} // namespace
} // namespace ospra
