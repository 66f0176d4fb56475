#include <QGuiApplication>
#include <QQmlApplicationEngine>

/// The least that a program with a window in Qt Quick does: the yardstick of the start.
int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick\n"
                    "Window { width: 1200; height: 700; visible: true; title: \"Bare\"\n"
                    "    Text { anchors.centerIn: parent; text: \"Bare\" } }\n");
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
