#include "core/OspraModel.h"
#include "library/groupJumps.h"
#include "library/scanFolder.h"

#include <algorithm>
#include <utility>

namespace ospra {

void OspraModel::rebuildGroups()
{
    setLoading(true);
    const int revision = ++m_jumpGroupsRevision;
    m_services.pool->post([this, alive = std::weak_ptr(m_alive), mailbox = m_services.mailbox, names = m_services.names,
                           jumpers = m_jumpers, revision](const std::stop_token& stop) {
        std::vector<std::vector<JumpFileEntry>> entries;
        for (const Jumper& jumper : jumpers) {
            if (stop.stop_requested())
                return;
            entries.push_back(scanFolder(jumper, stop));
        }
        mailbox->post([this, alive, revision, groups = groupJumps(entries, *names)]() mutable {
            if (!alive.expired())
                finishRebuild(revision, std::move(groups));
        });
    });
}

void OspraModel::finishRebuild(int revision, std::vector<JumpGroup> groups)
{
    if (revision != m_jumpGroupsRevision)
        return;
    setJumpGroups(std::move(groups));
    setLoading(false);
    if (!m_sidebarSelection)
        setSelection(m_selectedGroup, SidebarSelection::overview());
    else if (m_selectedGroup)
        adoptRegroupedSelection();
}

/// The ids of all groups are new: the selected jump is found again by the path of its primary log. A jump that has
/// gone from the disk stays selected as it was.
void OspraModel::adoptRegroupedSelection()
{
    const auto group = std::ranges::find(m_jumpGroups, m_selectedGroup->primaryEntry.url,
                                         [](const JumpGroup& candidate) { return candidate.primaryEntry.url; });
    if (group == m_jumpGroups.end())
        return;
    if (m_sidebarSelection->isOverview()) {
        m_selectedGroup = *group;
        return;
    }
    openGroup(*group);
}

void OspraModel::setJumpGroups(std::vector<JumpGroup> groups)
{
    if (groups.empty() && m_jumpGroups.empty())
        return;
    m_jumpGroups = std::move(groups);
    emit jumpGroupsChanged();
}

} // namespace ospra
