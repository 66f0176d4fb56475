#pragma once

#include "core/OspraModel.h"

#include <QObject>
#include <QQmlEngine>

namespace ospra {

/// What the window shows: which screen stands in the detail area, and what the sidebar is when it has no list.
class ContentState : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::OspraModel* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)
    Q_PROPERTY(Screen screen READ screen NOTIFY screenChanged)
    Q_PROPERTY(bool sidebarIsLoading READ sidebarIsLoading NOTIFY sidebarIsLoadingChanged)

public:
    enum Screen { LoadingJumps, Welcome, Overview, LoadingJump, JumpDetail };
    Q_ENUM(Screen)

    using QObject::QObject;

    [[nodiscard]] OspraModel* source() const { return m_source; }
    void setSource(OspraModel* source);
    [[nodiscard]] Screen screen() const { return m_screen; }
    /// No list yet, and one is on its way.
    [[nodiscard]] bool sidebarIsLoading() const { return m_sidebarIsLoading; }

    /// The named zooms, as the commands of the menus ask for them.
    Q_INVOKABLE void zoomToFreefall() const;
    Q_INVOKABLE void zoomToCanopy() const;

signals:
    void sourceChanged();
    void screenChanged();
    void sidebarIsLoadingChanged();

private:
    void update();
    [[nodiscard]] Screen currentScreen() const;

    OspraModel* m_source = nullptr;
    Screen m_screen = Welcome;
    bool m_sidebarIsLoading = false;
};

} // namespace ospra
