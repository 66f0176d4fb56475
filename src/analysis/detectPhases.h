#pragma once

#include "analysis/JumpPhase.h"
#include "logs/FlySightFile.h"

#include <span>
#include <vector>

namespace ospra {

/// Cuts a log into the phases of a jump. Windows are counted in samples; the rate of the logger is never looked at.
/// Linear in the number of samples.
/// @param samples in the order of the log; may be empty and may hold NaN and infinities
/// @return each phase at most once, in flight order, each range ending at the sample where the next begins and the
///     last at the last sample; empty for fewer than 11 samples. Never fails. A log without a jump is cut as well.
[[nodiscard]] std::vector<JumpPhaseRange> detectPhases(std::span<const FlySightDataPoint> samples);

} // namespace ospra
