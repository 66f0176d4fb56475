#pragma once

#include "library/JumpFileEntry.h"
#include "platform/Instant.h"

#include <cstddef>
#include <span>
#include <vector>

namespace ospra {

/// The logs of one companion by the moment of exit, so that the log nearest to another's exit is found without looking
/// at all of them. It refers to the entries that it was made from, which must stay in place.
class NearestLog {
public:
    /// @param entries in the order of the scan; those without a `freefallDate` are never found
    explicit NearestLog(std::span<const JumpFileEntry> entries);

    /// @return the log whose freefall began nearest to `freefallDate`, of two at equal distance the earlier in the
    /// scan; null unless it lies closer than the tolerance of 45 seconds
    [[nodiscard]] const JumpFileEntry* find(Instant freefallDate) const;

private:
    struct Candidate {
        Instant freefallDate{};
        std::ptrdiff_t position = 0; ///< in the scan
    };

    std::span<const JumpFileEntry> m_entries;
    std::vector<Candidate> m_candidates; ///< ascending, the dates all different
};

} // namespace ospra
