#include "workspace/theme/renderIcon.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace ospra {

QImage renderIcon(const QString& name, int size, const QColor& color)
{
    QImage image(std::max(size, 1), std::max(size, 1), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QFile file(QStringLiteral(":/qt/qml/Ospra/Theme/icons/%1.svg").arg(name));
    if (name.contains('/') || !file.open(QIODevice::ReadOnly))
        return image;
    QByteArray drawing = file.readAll();
    const bool isTinted = drawing.contains("currentColor");
    drawing.replace("currentColor", color.name(QColor::HexRgb).toLatin1());

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(drawing).render(&painter, image.rect());
    if (isTinted) { // thinned as a whole, so that strokes that cross do not darken each other
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.fillRect(image.rect(), QColor(0, 0, 0, color.alpha()));
    }
    return image;
}

} // namespace ospra
