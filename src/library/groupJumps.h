#pragma once

#include "library/JumpFileEntry.h"
#include "library/JumpGroup.h"
#include "platform/NaturalOrder.h"

#include <span>
#include <vector>

namespace ospra {

/// Makes the list of jumps: one for each log of the first jumper, newest first, with the log of each companion that
/// left the aircraft less than 45 seconds before or after.
/// @param entriesByJumper the logs of each jumper, the primary first; an empty list gives no jumps
/// @param names orders the logs of which one has no date
[[nodiscard]] std::vector<JumpGroup> groupJumps(std::span<const std::vector<JumpFileEntry>> entriesByJumper,
                                                const NaturalOrder& names);

} // namespace ospra
