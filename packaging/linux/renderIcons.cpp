#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

/// Draws an icon in every size that desktops ask for, each where an icon theme keeps it: FOLDER/48x48/apps/NAME.png.
int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("usage: render-icons SVG FOLDER NAME\n", stderr);
        return 2;
    }
    QSvgRenderer icon(QString::fromLocal8Bit(argv[1]));
    if (!icon.isValid()) {
        std::fprintf(stderr, "render-icons: cannot read %s\n", argv[1]);
        return 1;
    }
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        icon.render(&painter);
        painter.end();
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[2])).arg(size);
        const QString file = folder + QLatin1Char('/') + QString::fromLocal8Bit(argv[3]) + QStringLiteral(".png");
        if (!QDir().mkpath(folder) || !image.save(file)) {
            std::fprintf(stderr, "render-icons: cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
