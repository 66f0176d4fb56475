#include "tests/workspace/WindowTest.h"
#include "workspace/shell/TerminationSignals.h"
#include "workspace/shell/mapCredits.h"
#include "workspace/theme/desktop/Appearance.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

namespace ospra {
namespace {

class ShellWindows : public WindowTest {
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
        QMetaObject::invokeMethod(itemAt(menu(0), 0), "press");
        about = windowTitled(QStringLiteral("About Ospra"));
        ASSERT_TRUE(about);
    }

    QQuickWindow* settings = nullptr;
    QQuickWindow* about = nullptr;
};

TEST_F(ShellWindows, theChoiceOfUnitsReachesTheModelThroughTheStoreOnly)
{
    openSettings();
    EXPECT_FALSE(bed.settings().contains("useMetric"));
    QTest::keyClick(settings, Qt::Key_Down);
    EXPECT_TRUE(bed.settings().contains("useMetric"));
    EXPECT_FALSE(bed.settings().boolean("useMetric") || units.useMetric());
    EXPECT_TRUE(model.useMetric());
    bed.settings().deliver();
    EXPECT_FALSE(model.useMetric());
    bed.settings().deliver(); // of the model's own write
    QTest::keyClick(settings, Qt::Key_Up);
    bed.settings().deliver();
    EXPECT_TRUE(model.useMetric());

    const QSignalSpy told(&units, &UnitsSetting::useMetricChanged);
    bed.settings().setBoolean("useMetric", false); // by another
    bed.settings().deliver();
    EXPECT_GE(told.count(), 1);
    EXPECT_FALSE(units.useMetric());
}

TEST_F(ShellWindows, askedForTwiceIsShownOnceAndEscapeCloses)
{
    openSettings();
    EXPECT_EQ(settings->width(), 300);
    EXPECT_EQ(settings->transientParent(), window);
    QQuickWindow* const first = settings;
    for (const bool isClosed : {false, true}) {
        if (isClosed)
            QTest::keyClick(settings, Qt::Key_Escape);
        EXPECT_EQ(windowTitled(QStringLiteral("Settings")), isClosed ? nullptr : first);
        window->requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        openSettings();
        EXPECT_EQ(settings, first);
    }
}

TEST_F(ShellWindows, openWindowsFollowTheDesktop)
{
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
    openAbout();
    ASSERT_TRUE(QTest::qWaitForWindowActive(about));
    ASSERT_TRUE(QTest::qWaitFor([this] { return about->activeFocusItem() != nullptr; }));
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
    const std::vector<MapSource> sources{{.id = "a", .attribution = "© Höhe & Co"},
                                         {.id = "b"},
                                         {.id = "c", .attribution = "Tiles by <C>"},
                                         {.id = "d", .attribution = "© Höhe & Co"}};
    // As the running program does once it has read them.
    ASSERT_TRUE(window->setProperty("mapCredits", QVariant::fromValue(mapCredits(sources))));
    openAbout();
    QStringList shown;
    for (const QQuickItem* const item : visibleItems(about->contentItem()))
        if (item->inherits("QQuickText"))
            shown.append(item->property("text").toString());
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
