#include "tests/workspace/shell/ShellTestBed.h"
#include "workspace/shell/TerminationSignals.h"
#include "workspace/shell/mapCredits.h"
#include "workspace/theme/desktop/Appearance.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

namespace ospra {
namespace {

/// The words of all labels below an item that are to be seen.
QStringList textsIn(const QQuickItem& item)
{
    QStringList texts;
    const QList<QQuickItem*> children = item.childItems();
    for (const QQuickItem* child : children) {
        if (!child->isVisible())
            continue;
        if (child->inherits("QQuickText"))
            texts.append(child->property("text").toString());
        texts.append(textsIn(*child));
    }
    return texts;
}

class ShellWindows : public ShellTestBed {
protected:
    void openSettings()
    {
        press(Qt::Key_Comma, Qt::ControlModifier);
        settings = windowTitled(QStringLiteral("Settings"));
        ASSERT_TRUE(settings);
        ASSERT_TRUE(QTest::qWaitForWindowActive(settings));
    }

    void openAbout()
    {
        QQuickItem* entry = nullptr;
        QMetaObject::invokeMethod(menu(0), "itemAt", Q_RETURN_ARG(QQuickItem*, entry), Q_ARG(int, 0));
        QMetaObject::invokeMethod(entry, "press");
        ASSERT_TRUE(windowTitled(QStringLiteral("About Ospra")));
    }

    QQuickWindow* settings = nullptr;
};

TEST_F(ShellWindows, theChoiceOfUnitsReachesTheModelThroughTheStoreOnly)
{
    openWindow();
    openFolders();
    press(Qt::Key_Down);
    openSettings();
    EXPECT_FALSE(bed.settings().contains("useMetric"));
    const double metres = model.chartData().front()[DataSeries::elevation][0].value;
    QTest::keyClick(settings, Qt::Key_Down);
    EXPECT_TRUE(bed.settings().contains("useMetric"));
    EXPECT_FALSE(bed.settings().boolean("useMetric"));
    EXPECT_FALSE(units.useMetric());
    EXPECT_TRUE(model.useMetric());
    bed.settings().deliver();
    EXPECT_FALSE(model.useMetric());
    EXPECT_NEAR(model.chartData().front()[DataSeries::elevation][0].value, metres * 3.28084, 1e-6);
    bed.settings().deliver(); // of the model's own write
    QTest::keyClick(settings, Qt::Key_Up);
    bed.settings().deliver();
    EXPECT_TRUE(model.useMetric());
}

TEST_F(ShellWindows, thePaneFollowsAChangeByAnother)
{
    openWindow();
    openSettings();
    const QSignalSpy told(&units, &UnitsSetting::useMetricChanged);
    bed.settings().setBoolean("useMetric", false);
    bed.settings().deliver();
    EXPECT_GE(told.count(), 1);
    EXPECT_FALSE(units.useMetric());
}

TEST_F(ShellWindows, askedForTwiceIsShownOnceAndEscapeCloses)
{
    openWindow();
    openSettings();
    EXPECT_EQ(settings->width(), 300);
    EXPECT_EQ(settings->transientParent(), window);
    QQuickWindow* const first = settings;
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    openSettings();
    EXPECT_EQ(settings, first);
    QTest::keyClick(settings, Qt::Key_Escape);
    EXPECT_FALSE(windowTitled(QStringLiteral("Settings")));
    window->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    openSettings();
    EXPECT_EQ(settings, first);
}

TEST_F(ShellWindows, openWindowsFollowTheDesktop)
{
    openWindow();
    openSettings();
    const int height = settings->height();
    const QColor light = settings->color();
    Appearance::instance()->setOverrides({{QStringLiteral("fontSize"), 26.0},
                                          {QStringLiteral("isDark"), true},
                                          {QStringLiteral("isHighContrast"), true}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return settings->width() == 600 && settings->height() > height; }));
    EXPECT_EQ(settings->color(), QColor(Qt::black));
    Appearance::instance()->setOverrides({{QStringLiteral("fontSize"), 13.0}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return settings->width() == 300 && settings->height() == height; }));
    EXPECT_EQ(settings->color(), light);
}

TEST_F(ShellWindows, aboutTellsVersionLibrariesAndTheLicence)
{
    openWindow();
    openAbout();
    QQuickWindow* const about = windowTitled(QStringLiteral("About Ospra"));
    ASSERT_TRUE(about);
    ASSERT_TRUE(QTest::qWaitForWindowActive(about));
    ASSERT_TRUE(QTest::qWaitFor([about] { return about->activeFocusItem() != nullptr; }));
    const int height = about->height();
    QTest::keyClick(about, Qt::Key_Space); // the button that shows the licence has the focus
    EXPECT_TRUE(about->property("showsLicence").toBool());
    EXPECT_TRUE(QTest::qWaitFor([&] { return about->height() > height; }));
    QTest::keyClick(about, Qt::Key_Backtab);
    QQuickItem* const words = about->activeFocusItem();
    ASSERT_TRUE(words);
    const QString licence = words->property("text").toString();
    EXPECT_TRUE(licence.startsWith(QStringLiteral("MIT License"))) << licence.toStdString();
    EXPECT_TRUE(licence.contains(QStringLiteral("WITHOUT WARRANTY OF ANY KIND")));
}

TEST_F(ShellWindows, aboutNamesEveryGiverOfMapsOnce)
{
    openWindow();
    const std::vector<MapSource> sources{{.id = "a", .attribution = "© Höhe & Co"},
                                         {.id = "b"},
                                         {.id = "c", .attribution = "Tiles by <C>"},
                                         {.id = "d", .attribution = "© Höhe & Co"}};
    // As the running program does once it has read them.
    ASSERT_TRUE(window->setProperty("mapCredits", QVariant::fromValue(mapCredits(sources))));
    openAbout();
    const QStringList shown = textsIn(*windowTitled(QStringLiteral("About Ospra"))->contentItem());
    EXPECT_EQ(shown.count(QStringLiteral("© Höhe & Co")), 1);
    EXPECT_EQ(shown.count(QStringLiteral("Tiles by <C>")), 1);
    EXPECT_FALSE(shown.contains(QString())); // of the source that asks for no words
}

TEST(TerminationSignals, arriveOnTheMainThread)
{
    TerminationSignals signal;
    const QSignalSpy received(&signal, &TerminationSignals::received);
    for (const int number : {SIGTERM, SIGHUP}) {
        std::raise(number);
        const qsizetype before = received.count();
        EXPECT_TRUE(QTest::qWaitFor([&] { return received.count() > before; }));
    }
    struct sigaction action = {};
    ::sigaction(SIGTERM, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL); // a second one ends the program at once
}

} // namespace
} // namespace ospra
