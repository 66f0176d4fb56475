#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace ospra {

/// What the about window tells of the program.
class ProgramInfo : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(QList<QString> libraries READ libraries CONSTANT)
    Q_PROPERTY(QString licence READ licence CONSTANT)

public:
    using QObject::QObject;

    [[nodiscard]] QString version() const;
    /// The libraries that the program stands on, each with its version and licence.
    [[nodiscard]] QList<QString> libraries() const;
    /// The whole text of the licence.
    [[nodiscard]] QString licence() const;
};

} // namespace ospra
