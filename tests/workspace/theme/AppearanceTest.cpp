#include "workspace/theme/desktop/Appearance.h"

#include "tests/workspace/theme/StandInPortal.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace ospra {

namespace {

constexpr int patience = 10'000; // ms; only a failing test waits as long

const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString gnomeGroup = QStringLiteral("org.gnome.desktop.interface");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");

// Three doubles, as the portal sends a colour.
QVariant colorValue(double red, double green, double blue)
{
    QDBusArgument argument;
    argument.beginStructure();
    argument << red << green << blue;
    argument.endStructure();
    return QVariant::fromValue(argument);
}

// Each test has a bus of its own.
class AppearanceTest : public testing::Test {
protected:
    void SetUp() override
    {
        const QString daemon = QStandardPaths::findExecutable("dbus-daemon");
        if (daemon.isEmpty())
            GTEST_SKIP() << "needs dbus-daemon";
        qDBusRegisterMetaType<SettingsByGroup>();
        m_daemon.start(daemon, {"--session", "--nofork", "--nopidfile", "--print-address"});
        ASSERT_TRUE(m_daemon.waitForReadyRead(patience));
        const QString address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        m_server = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(address, "portal"));
        m_client = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(address, "program"));
        ASSERT_TRUE(m_server->isConnected() && m_client->isConnected());
    }

    void TearDown() override
    {
        m_server.reset();
        m_client.reset();
        QDBusConnection::disconnectFromBus("portal");
        QDBusConnection::disconnectFromBus("program");
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }

    void servePortal()
    {
        ASSERT_TRUE(m_server->registerObject(portalPath, &m_portal, QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(m_server->registerService("org.freedesktop.portal.Desktop"));
    }

    // Whatever the program has asked of the bus has been done when an answer to one more question arrives.
    void settle() const { m_client->interface()->registeredServiceNames(); }

    void change(const QString& group, const QString& key, const QVariant& value) const
    {
        auto signal = QDBusMessage::createSignal(portalPath, settingsInterface, "SettingChanged");
        signal.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
        ASSERT_TRUE(m_server->send(signal));
    }

    QProcess m_daemon;
    StandInPortal m_portal;
    std::unique_ptr<QDBusConnection> m_server;
    std::unique_ptr<QDBusConnection> m_client;
};

TEST_F(AppearanceTest, takesWhatThePortalSays)
{
    m_portal.settings = {
        {appearanceGroup, {{"color-scheme", 1U}, {"contrast", 1U}, {"accent-color", colorValue(0.2, 0.4, 0.6)}}},
        {gnomeGroup, {{"enable-animations", false}}}};
    servePortal();
    const Appearance appearance(*m_client);
    EXPECT_FALSE(appearance.isDark()) << "nothing has been answered yet";
    QSignalSpy changes(&appearance, &Appearance::changed);
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_TRUE(appearance.isDark());
    EXPECT_TRUE(appearance.isHighContrast());
    EXPECT_TRUE(appearance.isMotionReduced());
    EXPECT_EQ(appearance.accent().name(), "#336699");
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(AppearanceTest, followsThePortalLive)
{
    servePortal();
    const Appearance appearance(*m_client);
    QSignalSpy changes(&appearance, &Appearance::changed);
    settle();
    const auto isTold = [&](const QString& group, const QString& key, const QVariant& value) {
        change(group, key, value);
        return changes.wait(patience);
    };
    ASSERT_TRUE(isTold(appearanceGroup, "color-scheme", 1U));
    EXPECT_TRUE(appearance.isDark());
    ASSERT_TRUE(isTold(appearanceGroup, "color-scheme", 2U));
    EXPECT_FALSE(appearance.isDark());
    ASSERT_TRUE(isTold(gnomeGroup, "enable-animations", false));
    EXPECT_TRUE(appearance.isMotionReduced());
    ASSERT_TRUE(isTold(appearanceGroup, "accent-color", colorValue(1.0, 0.0, 0.0)));
    EXPECT_EQ(appearance.accent().name(), "#ff0000");
    ASSERT_TRUE(isTold(appearanceGroup, "accent-color", colorValue(-1.0, 0.0, 0.0)));
    EXPECT_FALSE(appearance.hasAccent()) << "a channel out of range says that there is none";
}

// What has the wrong type, and what another program's settings are, changes nothing.
TEST_F(AppearanceTest, ignoresWhatItDoesNotUnderstand)
{
    servePortal();
    const Appearance appearance(*m_client);
    QSignalSpy changes(&appearance, &Appearance::changed);
    settle();
    change(appearanceGroup, "color-scheme", QString("dark"));
    change(appearanceGroup, "color-scheme", 7U);
    change(appearanceGroup, "accent-color", 12U);
    change(gnomeGroup, "enable-animations", 0U);
    change("org.example", "color-scheme", 1U);
    change(appearanceGroup, "contrast", 1U); // the one that counts, after all the others
    ASSERT_TRUE(changes.wait(patience));
    EXPECT_TRUE(appearance.isHighContrast());
    EXPECT_FALSE(appearance.isDark());
    EXPECT_FALSE(appearance.isMotionReduced());
    EXPECT_FALSE(appearance.hasAccent());
    EXPECT_EQ(changes.count(), 1);
}

// Where the portal is silent, or there is no bus at all, the palette tells.
TEST_F(AppearanceTest, fallsBackToThePalette)
{
    const QDBusConnection none("no such bus");
    for (const QDBusConnection& bus : {none, *m_client}) {
        const Appearance appearance(bus);
        EXPECT_FALSE(appearance.isDark());
        const QSignalSpy changes(&appearance, &Appearance::changed);
        const QPalette before = QGuiApplication::palette();
        QPalette night;
        night.setColor(QPalette::Window, QColor("#202020"));
        night.setColor(QPalette::WindowText, QColor("#E0E0E0"));
        QGuiApplication::setPalette(night);
        QCoreApplication::processEvents();
        EXPECT_TRUE(appearance.isDark());
        EXPECT_EQ(changes.count(), 1);
        QGuiApplication::setPalette(before);
        QCoreApplication::processEvents();
        EXPECT_FALSE(appearance.isDark());
    }
}

} // namespace

} // namespace ospra
