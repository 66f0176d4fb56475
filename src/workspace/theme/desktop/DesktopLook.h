#pragma once

#include <QColor>
#include <QString>
#include <QVariant>

#include <optional>

namespace ospra {

/// What a desktop says about the look its user chose. A field is absent where the desktop said nothing.
struct DesktopLook {
    std::optional<bool> isDark;
    std::optional<bool> isHighContrast;
    std::optional<bool> isMotionReduced;
    std::optional<QColor> accent;

    bool operator==(const DesktopLook&) const = default;
};

/// Takes one setting of the desktop portal into the look.
/// @param group the namespace of the setting, for instance "org.freedesktop.appearance"
/// @param value as it came over D-Bus; unknown settings and values of a wrong type change nothing, a value outside
///              the range of its setting makes the field absent
/// Settings and values: the documentation of org.freedesktop.portal.Settings.
void takeSetting(DesktopLook& look, const QString& group, const QString& key, const QVariant& value);

/// The groups that `takeSetting` knows.
[[nodiscard]] QStringList settingGroups();

} // namespace ospra
