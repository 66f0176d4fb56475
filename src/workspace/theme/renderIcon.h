#pragma once

#include <QColor>
#include <QImage>
#include <QString>

namespace ospra {

/// Draws one of the theme's icons. Those of one colour are drawn in `color`, opacity included; the one of the program
/// keeps its own colours.
/// @param name the file's name in icons/ without its ending; an unknown one gives an empty picture
/// @param size side of the picture in device pixels, at least 1
/// @return a square, premultiplied, transparent around the icon
[[nodiscard]] QImage renderIcon(const QString& name, int size, const QColor& color);

} // namespace ospra
