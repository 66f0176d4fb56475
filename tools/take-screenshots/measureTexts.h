#pragma once

#include <QImage>
#include <QQuickWindow>
#include <QString>

#include <vector>

namespace ospra {

/// A text on screen and how far its strongest colour stands out from its ground.
struct TextContrast {
    QString text{};
    QRect place{};         ///< in pixels of the picture
    double contrast = 0.0; ///< as WCAG 2.1 defines it, 1 to 21
};

/// Measures in a picture of a window all texts that are to be read there. Left out are those of disabled controls and
/// hidden jumpers, which are faded to under a half, and signs that are no words. While a menu or dialog is open, what
/// lies below it does not count.
/// @param picture of the whole window; at twice the size or more, as thinner strokes do not reach their own colour
[[nodiscard]] std::vector<TextContrast> measureTexts(QQuickWindow& window, const QImage& picture);

} // namespace ospra
