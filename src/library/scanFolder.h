#pragma once

#include "library/JumpFileEntry.h"
#include "library/Jumper.h"

#include <stop_token>
#include <vector>

namespace ospra {

/// Finds and dates the logs in a jumper's folder, at any depth. Each file is read once, by the probe.
/// @param stop when requested, the scan ends within one file; its result is then of no use
/// @return sorted by the bytes of the path; empty for a folder that cannot be read. Never fails.
[[nodiscard]] std::vector<JumpFileEntry> scanFolder(const Jumper& jumper, const std::stop_token& stop = {});

} // namespace ospra
