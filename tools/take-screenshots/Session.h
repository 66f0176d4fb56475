#pragma once

#include "workspace/OspraApp.h"
#include "workspace/shell/CheckForUpdatesViewModel.h"

#include <QSize>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>

namespace ospra {

/// What a run takes pictures of.
enum class Choice {
    all,       ///< every screen, and the main ones in a small window too
    main,      ///< the main screens
    bareMaps,  ///< the maps, which have no imagery in this run
    contrasts, ///< every screen once: no picture is kept, the texts in it are measured
};

/// One run of the program in one appearance, from screen to screen.
class Session {
public:
    struct Options {
        QString folder{}; ///< for the pictures
        QString suffix{}; ///< of their names, such as "-dark@2x"
        Choice choice = Choice::all;
        QUrl feed{}; ///< of releases, for the window that tells of one
    };

    explicit Session(Options options);

    /// Takes all pictures. @return false if the window did not open, a state did not come, a picture could not be
    /// written or a text in it is too faint
    [[nodiscard]] bool run();

private:
    void takeScreens();
    void takeOverview();
    void takeJumpScreens();
    void takeSeriesScreens();
    void takeMaps();
    void takeMenus();
    void takeSmallWindows();
    void takeUpdates();

    void openJump(std::size_t index);
    [[nodiscard]] std::size_t firstJump(const std::function<bool(const JumpGroup&)>& fits);
    void hoverAt(double share);
    void waitUntil(const std::function<bool()>& isReached, const char* what);
    static void rest(int milliseconds);
    [[nodiscard]] bool wants(const QString& name) const;
    void take(const QString& name);
    void takeWindow(const QString& name, QQuickWindow& window);
    [[nodiscard]] bool textsAreReadable(const QString& name, QQuickWindow& window) const;

    Options m_options;
    QSize m_size;
    std::unique_ptr<CheckForUpdatesViewModel> m_updates; // goes after the window that shows it
    OspraApp m_app;
    bool m_allDone = true;
};

} // namespace ospra
