#pragma once

#include "analysis/JumpPhase.h"
#include "analysis/JumpStatistics.h"
#include "logs/FlySightFile.h"

#include <vector>

/// Phases and statistics once more, each rule written out where it applies, with neither helpers nor an eye on speed.
/// The fast ones must agree with them to the last digit on every log of finite numbers.
namespace ospra::naive {

[[nodiscard]] std::vector<double> movingMedian(const std::vector<double>& values, long width);
[[nodiscard]] std::vector<JumpPhaseRange> detectPhases(const std::vector<FlySightDataPoint>& samples);
/// @param samples not empty
[[nodiscard]] JumpStatistics computeStatistics(const std::vector<FlySightDataPoint>& samples,
                                               const std::vector<JumpPhaseRange>& phases);

} // namespace ospra::naive
