#pragma once

#include <QObject>
#include <QQmlEngine>

/// Qt Quick Test asks an object of this kind to prepare the engine of each test file.
class Setup : public QObject {
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine* engine) { engine->addImportPath(QStringLiteral("qrc:/qt/qml")); }
};
