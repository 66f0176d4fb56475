#pragma once

#include "core/OspraModel.h"

#include <QObject>
#include <QQmlEngine>

class QFileDialog;

namespace ospra {

/// The panels in which the user picks a folder: the desktop's own where there is one, else the toolkit's. One panel at
/// a time, modal; only a confirmed choice does anything.
class FolderPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::OspraModel* source MEMBER m_source NOTIFY sourceChanged REQUIRED)

public:
    using QObject::QObject;
    ~FolderPanel() override;

    /// For the folder of the primary jumper.
    Q_INVOKABLE void openFolder();
    /// For the folder of a companion.
    Q_INVOKABLE void addCompanion();

signals:
    void sourceChanged();

private:
    using Operation = void (OspraModel::*)(const std::filesystem::path&);

    void ask(const QString& message, const QString& confirm, Operation operation);

    OspraModel* m_source = nullptr;
    QFileDialog* m_dialog = nullptr;
};

} // namespace ospra
