#pragma once

#include "platform/Color.h"

#include <QObject>
#include <QQmlEngine>

/// The colours that the logic speaks of, for QML: `Theme.named(NamedColor.Cyan)`. Enum cases begin with a capital, as
/// QML demands. The order is that of `ospra::Color`.
namespace NamedColor {
Q_NAMESPACE
QML_ELEMENT

enum Name { White, Yellow, Cyan, Pink, Mint, Indigo, Blue, Green, Red, Purple, Orange, Teal, PrimaryTrack };
Q_ENUM_NS(Name)

static_assert(static_cast<int>(ospra::Color::white) == White);
static_assert(static_cast<int>(ospra::Color::blue) == Blue);
static_assert(static_cast<int>(ospra::Color::primaryTrack) == PrimaryTrack);

} // namespace NamedColor
