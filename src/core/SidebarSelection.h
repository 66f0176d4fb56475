#pragma once

#include "library/JumpGroup.h"

#include <optional>
#include <utility>

namespace ospra {

/// What the sidebar shows as selected: the overview or one jump.
class SidebarSelection {
public:
    [[nodiscard]] static SidebarSelection overview() { return SidebarSelection{}; }
    [[nodiscard]] static SidebarSelection jumpGroup(JumpGroup group)
    {
        SidebarSelection selection;
        selection.m_group = std::move(group);
        return selection;
    }

    [[nodiscard]] bool isOverview() const { return !m_group; }
    /// The jump; null for the overview.
    [[nodiscard]] const JumpGroup* group() const { return m_group ? &*m_group : nullptr; }

    /// The same case and, for jumps, the same group id.
    friend bool operator==(const SidebarSelection&, const SidebarSelection&) = default;

private:
    std::optional<JumpGroup> m_group;
};

} // namespace ospra
