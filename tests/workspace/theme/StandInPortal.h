#pragma once

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

using SettingsByGroup = QMap<QString, QVariantMap>;

namespace ospra {

/// A desktop portal that answers what the test set.
class StandInPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    SettingsByGroup settings;

public slots:
    [[nodiscard]] SettingsByGroup ReadAll(const QStringList& groups) const
    {
        SettingsByGroup asked;
        for (const QString& group : groups)
            if (settings.contains(group))
                asked.insert(group, settings.value(group));
        return asked;
    }
};

} // namespace ospra
