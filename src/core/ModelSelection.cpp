#include "core/OspraModel.h"

#include <algorithm>
#include <utility>

namespace ospra {

void OspraModel::setSelection(std::optional<JumpGroup> group, std::optional<SidebarSelection> selection)
{
    m_selectedGroup = std::move(group);
    const bool changed = selection != m_sidebarSelection;
    m_sidebarSelection = std::move(selection);
    if (changed)
        emit sidebarSelectionChanged();
}

void OspraModel::selectSidebarItem(const std::optional<SidebarSelection>& selection)
{
    if (!selection)
        return;
    if (selection->isOverview())
        setSelection(std::nullopt, selection);
    else
        openGroup(*selection->group());
}

void OspraModel::openGroup(const JumpGroup& group)
{
    setSelection(group, SidebarSelection::jumpGroup(group));
    loadTracks(*m_selectedGroup);
}

void OspraModel::selectNextJump()
{
    if (m_jumpGroups.empty() || !m_sidebarSelection)
        return;
    if (m_sidebarSelection->isOverview()) {
        openGroup(m_jumpGroups.front());
        return;
    }
    const auto selected = std::ranges::find(m_jumpGroups, *m_sidebarSelection->group());
    if (selected != m_jumpGroups.end() && selected + 1 != m_jumpGroups.end())
        openGroup(*(selected + 1));
}

void OspraModel::selectPreviousJump()
{
    if (m_jumpGroups.empty() || !m_sidebarSelection || m_sidebarSelection->isOverview())
        return;
    const auto selected = std::ranges::find(m_jumpGroups, *m_sidebarSelection->group());
    if (selected == m_jumpGroups.end())
        return;
    if (selected == m_jumpGroups.begin())
        setSelection(std::nullopt, SidebarSelection::overview());
    else
        openGroup(*(selected - 1));
}

} // namespace ospra
