#pragma once

#include "workspace/theme/desktop/DesktopLook.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QVariantMap>

namespace ospra {

/// The look as the desktop portal tells it over D-Bus, now and whenever the user changes it. Nothing here waits: until
/// the portal has answered, or where there is none, the look is empty.
class PortalSettings : public QObject {
    Q_OBJECT

public:
    /// @param bus the session's bus; one without a connection is well
    explicit PortalSettings(const QDBusConnection& bus, QObject* parent = nullptr);

    [[nodiscard]] const DesktopLook& look() const { return m_look; }

signals:
    void lookChanged();

private slots:
    void takeChange(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAll(const QDBusConnection& bus);

    DesktopLook m_look;
};

} // namespace ospra
