#pragma once

#include <QColor>

#include <span>

namespace ospra {

/// The colour one sees where `over`, translucent or not, lies on the opaque `ground`.
[[nodiscard]] QColor blended(const QColor& over, const QColor& ground);

/// The contrast ratio of two colours, from 1 to 21; translucent text counts as seen on the ground.
/// Relative luminance and ratio as WCAG 2.1 defines them.
[[nodiscard]] double contrastRatio(const QColor& text, const QColor& ground);

/// The least contrast that text may have.
constexpr double readableContrast = 4.5;

/// An accent that the desktop names, darkened or lightened until text of this colour is readable on every one of the
/// grounds, which are taken plain and under a tint of the colour itself.
/// @param tint the opacity of the tint
[[nodiscard]] QColor readableAccent(QColor accent, std::span<const QColor> grounds, double tint);

/// The same accent as a fill: darkened until white text on it is readable.
[[nodiscard]] QColor accentUnderWhite(QColor accent);

} // namespace ospra
