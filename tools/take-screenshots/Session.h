#pragma once

#include "workspace/OspraApp.h"

#include <QSize>
#include <QString>

#include <functional>

namespace ospra {

/// One run of the program in one appearance, from screen to screen.
class Session {
public:
    /// @param folder for the pictures
    /// @param suffix of their names, such as "-dark@2x"
    Session(QString folder, QString suffix);

    /// Takes all pictures. @return false if the window did not open or a picture could not be written
    [[nodiscard]] bool run();

private:
    void takeScreens();
    void takeJumpScreens();
    void takeMenus();
    void openJump(std::size_t index);
    [[nodiscard]] std::size_t firstJump(const std::function<bool(const JumpGroup&)>& fits);
    void setMenuOpen(const QString& title, bool isOpen);
    void waitUntil(const std::function<bool()>& isReached);
    void rest(int milliseconds);
    void take(const QString& name);

    QString m_folder;
    QString m_suffix;
    QSize m_size;
    OspraApp m_app;
    bool m_allWritten = true;
};

} // namespace ospra
