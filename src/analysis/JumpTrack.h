#pragma once

#include "analysis/JumpPhase.h"
#include "analysis/JumpStatistics.h"
#include "logs/FlySightFile.h"
#include "platform/Color.h"
#include "platform/Uuid.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ospra {

/// One jumper's analysed log. A copy is a deep copy.
struct JumpTrack {
    Uuid id{}; ///< fresh for every load
    std::string jumperName{};
    Color jumperColor = Color::white;
    FlySightFile file{};
    std::vector<JumpPhaseRange> phases{};
    std::optional<JumpStatistics> statistics{};
    std::vector<double> elapsed{}; ///< s on the time axis that all tracks of a jump share, one value per sample
};

/// Time since the first sample of the log, sample for sample.
/// @param samples in the order of the log; may be empty
/// @return seconds, one value per sample, the first 0; falls where the clock ran backwards. Never fails.
[[nodiscard]] std::vector<double> elapsedTimes(std::span<const FlySightDataPoint> samples);

} // namespace ospra
