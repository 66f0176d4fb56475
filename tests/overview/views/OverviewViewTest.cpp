#include "overview/views/HeatmapItem.h"
#include "tests/overview/views/OverviewBed.h"
#include "workspace/theme/desktop/Appearance.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

Q_IMPORT_QML_PLUGIN(Ospra_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Ospra_ControlsPlugin)
Q_IMPORT_QML_PLUGIN(Ospra_OverviewPlugin)

namespace ospra {
namespace {

using testing::Contains;
using testing::Not;

/// The screen in a window, with animations that end at once.
class OverviewScreen {
public:
    explicit OverviewScreen(OverviewState& state)
    {
        Appearance::instance()->setOverrides({{"isMotionReduced", true}});
        QObject::connect(&m_engine, &QQmlEngine::warnings, [](const QList<QQmlError>& warnings) {
            for (const QQmlError& warning : warnings)
                ADD_FAILURE() << warning.toString().toStdString();
        });
        m_engine.addImportPath("qrc:/qt/qml");
        QQmlComponent component(&m_engine);
        component.setData(R"(
            import QtQuick
            import Ospra.Overview
            Window {
                id: window
                required property OverviewState overview
                width: 980; height: 660; visible: true
                OverviewView { anchors.fill: parent; overview: window.overview }
            })",
                          QUrl("qrc:/test.qml"));
        m_window.reset(qobject_cast<QQuickWindow*>(
            component.createWithInitialProperties({{"overview", QVariant::fromValue(&state)}})));
        EXPECT_TRUE(m_window) << component.errorString().toStdString();
    }

    [[nodiscard]] QQuickItem* content() const { return m_window->contentItem(); }

    /// All that can be read on the screen, from the top of the tree of items down.
    [[nodiscard]] std::vector<std::string> texts() const
    {
        QCoreApplication::processEvents();
        m_window->grabWindow();
        std::vector<std::string> found;
        collect(*content(), found);
        return found;
    }

private:
    static void collect(const QQuickItem& item, std::vector<std::string>& found)
    {
        if (!item.isVisible() || item.opacity() == 0.0)
            return;
        if (item.inherits("QQuickText") && !item.property("text").toString().isEmpty())
            found.push_back(item.property("text").toString().toStdString());
        for (const QQuickItem* child : item.childItems())
            collect(*child, found);
    }

    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

TEST(OverviewView, saysThatThereIsNoJump)
{
    OverviewBed bed({});
    const OverviewScreen screen(bed.state());
    EXPECT_EQ(screen.texts(), (std::vector<std::string>{
                                  "No Jump Data", "Open a folder containing GPS data files to see jump activity."}));
}

TEST(OverviewView, showsTheCardsOfItsModeAlsoWhenTheRangeHoldsNoJump)
{
    OverviewBed bed({utc(2003, 7, 3, 10)});
    const OverviewScreen screen(bed.state());
    bed.state().chooseRange(0);
    bed.state().selectDay(utc(2003, 7, 4));
    for (const char* text : {"Range", "0 jumps", "Jump Activity", "Weekly Trend", "Less", "Recent Jumps", "jump 1",
                             "Selected Day", "0 jumps on Jul 4, 2003", "No jumps", "Clear Day Filter"})
        EXPECT_THAT(screen.texts(), Contains(text));
    bed.state().chooseMode(1);
    EXPECT_THAT(screen.texts(), Contains("Monthly Stats"));
    for (const char* text : {"Selected Day", "Jump Activity"})
        EXPECT_THAT(screen.texts(), Not(Contains(text)));
}

TEST(OverviewView, givesTheKeysBackWhenItGoes)
{
    OverviewBed bed({utc(2023, 7, 3, 10)});
    const OverviewScreen screen(bed.state());
    auto* heatmap = screen.content()->window()->findChild<HeatmapItem*>();
    ASSERT_TRUE(heatmap);
    heatmap->forceActiveFocus(Qt::TabFocusReason);
    ASSERT_TRUE(heatmap->hasActiveFocus());
    screen.content()->childItems().constFirst()->setVisible(false);
    EXPECT_FALSE(heatmap->hasActiveFocus());
    EXPECT_FALSE(heatmap->focusedCell());
}

} // namespace
} // namespace ospra
