#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QRasterWindow>
#include <QUrl>

#include <cstdio>

namespace {

/// What a file manager is to the program: a window from which files are dragged.
class DragSource : public QRasterWindow {
public:
    explicit DragSource(QList<QUrl> addresses) : m_addresses(std::move(addresses)) {}

private:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(0, 0, width(), height(), Qt::darkCyan); }

    void mousePressEvent(QMouseEvent*) override
    {
        auto* data = new QMimeData;
        data->setUrls(m_addresses);
        QDrag drag(this);
        drag.setMimeData(data);
        const Qt::DropAction action = drag.exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction);
        std::printf("%s\n", action == Qt::CopyAction ? "copy" : action == Qt::IgnoreAction ? "ignored" : "other");
        std::fflush(stdout);
    }

    QList<QUrl> m_addresses;
};

} // namespace

/// usage: drag-source PATH...
/// Shows a small window at the top left of the screen from which the files are dragged, and prints what became of each
/// drag. Proposes to move them, as file managers do within a disk.
int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QList<QUrl> addresses;
    for (const QString& path : QGuiApplication::arguments().mid(1))
        addresses.append(QUrl::fromLocalFile(path));
    DragSource source(addresses);
    source.setTitle(QStringLiteral("Files"));
    source.setFlags(Qt::FramelessWindowHint);
    source.setGeometry(0, 0, 60, 60);
    source.show();
    return QGuiApplication::exec();
}
