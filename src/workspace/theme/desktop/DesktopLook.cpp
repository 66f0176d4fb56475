#include "workspace/theme/desktop/DesktopLook.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QStringList>

#include <algorithm>
#include <array>

namespace ospra {

namespace {

const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString gnomeGroup = QStringLiteral("org.gnome.desktop.interface");
const QString gnomeAccessGroup = QStringLiteral("org.gnome.desktop.a11y.interface");
const QString kdeGroup = QStringLiteral("org.kde.kdeglobals.KDE");

// Signals and replies wrap a value in one variant or two.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<uint> toNumber(const QVariant& value)
{
    if (value.metaType() != QMetaType::fromType<uint>())
        return std::nullopt;
    return value.toUInt();
}

// Three doubles from 0 to 1; any other number means that the user chose none.
std::optional<QColor> toColor(const QVariant& value)
{
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("(ddd)"))
        return std::nullopt;
    std::array<double, 3> channels{};
    argument.beginStructure();
    argument >> channels[0] >> channels[1] >> channels[2];
    argument.endStructure();
    if (!std::ranges::all_of(channels, [](double channel) { return channel >= 0.0 && channel <= 1.0; }))
        return std::nullopt;
    const auto channel = [&](std::size_t index) { return static_cast<float>(channels.at(index)); };
    return QColor::fromRgbF(channel(0), channel(1), channel(2));
}

void takeAppearance(DesktopLook& look, const QString& key, const QVariant& value)
{
    if (key == QLatin1String("accent-color")) {
        look.accent = toColor(value);
        return;
    }
    const auto number = toNumber(value);
    if (!number)
        return;
    if (key == QLatin1String("color-scheme"))
        look.isDark = *number == 1 || *number == 2 ? std::optional(*number == 1) : std::nullopt;
    else if (key == QLatin1String("contrast"))
        look.isHighContrast = *number == 1;
    else if (key == QLatin1String("reduced-motion"))
        look.isMotionReduced = *number == 1;
}

void takeGnome(DesktopLook& look, const QString& key, const QVariant& value)
{
    const bool isSwitch = value.metaType() == QMetaType::fromType<bool>();
    const bool isForMotion = key == QLatin1String("enable-animations") || key == QLatin1String("gtk-enable-animations");
    if (isSwitch && isForMotion)
        look.isMotionReduced = !value.toBool();
}

} // namespace

void takeSetting(DesktopLook& look, const QString& group, const QString& key, const QVariant& wrapped)
{
    const QVariant value = unwrapped(wrapped);
    if (group == appearanceGroup)
        takeAppearance(look, key, value);
    else if (group == gnomeGroup)
        takeGnome(look, key, value);
    else if (group == gnomeAccessGroup && key == QLatin1String("high-contrast") && value.toBool())
        look.isHighContrast = true;
    else if (group == kdeGroup && key == QLatin1String("AnimationDurationFactor"))
        look.isMotionReduced = value.toString().toDouble() <= 0.0;
}

QStringList settingGroups()
{
    return {appearanceGroup, gnomeGroup, gnomeAccessGroup, kdeGroup};
}

} // namespace ospra
