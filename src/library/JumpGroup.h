#pragma once

#include "library/JumpFileEntry.h"
#include "platform/Instant.h"
#include "platform/Uuid.h"

#include <optional>
#include <vector>

namespace ospra {

/// One jump: the primary's log and the companions' logs of the same exit. The id is its identity.
struct JumpGroup {
    Uuid id{}; ///< fresh at every regrouping
    JumpFileEntry primaryEntry{};
    std::vector<JumpFileEntry> companionEntries{}; ///< at most one for each companion, in their order
    std::optional<Instant> jumpDate{};             ///< that of `primaryEntry`

    friend bool operator==(const JumpGroup& a, const JumpGroup& b) { return a.id == b.id; }
};

} // namespace ospra
