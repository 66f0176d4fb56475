#include "workspace/theme/desktop/PortalSettings.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMap>

namespace ospra {

namespace {

using SettingsByGroup = QMap<QString, QVariantMap>;

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

} // namespace

PortalSettings::PortalSettings(const QDBusConnection& bus, QObject* parent) : QObject(parent)
{
    if (!bus.isConnected())
        return;
    qDBusRegisterMetaType<SettingsByGroup>();
    qRegisterMetaType<QDBusVariant>(); // else Qt may not know it yet, and finds no slot for the signal
    // A service named here would make Qt ask the bus who owns it, and wait for the answer.
    QDBusConnection(bus).connect(QString(), path, interface, QStringLiteral("SettingChanged"), this,
                                 SLOT(takeChange(QString, QString, QDBusVariant)));
    readAll(bus);
}

void PortalSettings::readAll(const QDBusConnection& bus)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    call.setArguments({settingGroups()});
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<SettingsByGroup> reply = *watcher;
        if (reply.isError())
            return;
        const DesktopLook before = m_look;
        const SettingsByGroup groups = reply.value();
        for (auto group = groups.cbegin(); group != groups.cend(); ++group)
            for (auto setting = group->cbegin(); setting != group->cend(); ++setting)
                takeSetting(m_look, group.key(), setting.key(), setting.value());
        if (m_look != before)
            emit lookChanged();
    });
}

void PortalSettings::takeChange(const QString& group, const QString& key, const QDBusVariant& value)
{
    const DesktopLook before = m_look;
    takeSetting(m_look, group, key, value.variant());
    if (m_look != before)
        emit lookChanged();
}

} // namespace ospra
