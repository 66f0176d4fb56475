#include "workspace/ContentState.h"

#include "core/replaceSource.h"

#include <utility>

namespace ospra {

void ContentState::setSource(OspraModel* source)
{
    if (!replaceSource(m_source, source, this))
        return;
    if (m_source) {
        connect(m_source, &OspraModel::sidebarSelectionChanged, this, &ContentState::update);
        connect(m_source, &OspraModel::isLoadingChanged, this, &ContentState::update);
        connect(m_source, &OspraModel::tracksChanged, this, &ContentState::update);
        connect(m_source, &OspraModel::jumpGroupsChanged, this, &ContentState::update);
    }
    update();
    emit sourceChanged();
}

void ContentState::zoomToFreefall() const
{
    if (m_source)
        m_source->chooseZoomMode(ZoomMode::freefall);
}

void ContentState::zoomToCanopy() const
{
    if (m_source)
        m_source->chooseZoomMode(ZoomMode::canopy);
}

void ContentState::update()
{
    const Screen screen = currentScreen();
    const bool sidebarIsLoading = m_source && !m_source->hasJumpGroups() && m_source->isLoading();
    if (std::exchange(m_screen, screen) != screen)
        emit screenChanged();
    if (std::exchange(m_sidebarIsLoading, sidebarIsLoading) != sidebarIsLoading)
        emit sidebarIsLoadingChanged();
}

ContentState::Screen ContentState::currentScreen() const
{
    if (!m_source)
        return Welcome;
    if (!m_source->sidebarSelection())
        return m_source->isLoading() ? LoadingJumps : Welcome;
    if (m_source->sidebarSelection()->isOverview())
        return Overview;
    if (m_source->isLoading())
        return LoadingJump;
    return m_source->hasTracks() ? JumpDetail : Welcome;
}

} // namespace ospra
