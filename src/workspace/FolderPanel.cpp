#include "workspace/FolderPanel.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QWindow>

#include <functional>
#include <utility>

namespace ospra {

FolderPanel::~FolderPanel()
{
    delete m_dialog;
}

void FolderPanel::openFolder()
{
    ask(QStringLiteral("Select a folder containing FlySight CSV files"), QStringLiteral("Open"),
        &OspraModel::openFolder);
}

void FolderPanel::addCompanion()
{
    ask(QStringLiteral("Select a folder containing a companion jumper's FlySight CSV files"), QStringLiteral("Add"),
        &OspraModel::addCompanion);
}

void FolderPanel::ask(const QString& message, const QString& confirm, Operation operation)
{
    if (m_dialog) {
        m_dialog->raise();
        return;
    }
    QWindow* window = QGuiApplication::focusWindow();
    m_dialog = new QFileDialog;
    m_dialog->setWindowTitle(message);
    m_dialog->setFileMode(QFileDialog::Directory);
    m_dialog->setOption(QFileDialog::ShowDirsOnly);
    m_dialog->setOption(QFileDialog::ReadOnly);
    m_dialog->setLabelText(QFileDialog::Accept, confirm);
    m_dialog->setWindowModality(Qt::ApplicationModal);
    connect(m_dialog, &QFileDialog::finished, this, [this, operation](int result) {
        QFileDialog* dialog = std::exchange(m_dialog, nullptr);
        dialog->deleteLater();
        if (result == QDialog::Accepted && !dialog->selectedFiles().isEmpty() && m_source)
            std::invoke(operation, m_source, QFile::encodeName(dialog->selectedFiles().constFirst()).toStdString());
    });
    m_dialog->winId(); // makes the native window, so that it can stand above ours
    if (m_dialog->windowHandle())
        m_dialog->windowHandle()->setTransientParent(window);
    m_dialog->open();
}

} // namespace ospra
