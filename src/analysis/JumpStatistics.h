#pragma once

#include "analysis/JumpPhase.h"
#include "logs/FlySightFile.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace ospra {

/// The key numbers of a jump, in base units. The speed span runs from the exit through the deployment to the sample
/// where the canopy begins; all freefall numbers are taken over it. A missing phase leaves 0.
struct JumpStatistics {
    double exitAltitude = 0.0;                  ///< m MSL at the exit
    double pitchAltitude = 0.0;                 ///< m MSL where the deployment begins
    double deploymentAltitude = 0.0;            ///< m MSL where the canopy begins
    double landingAltitude = 0.0;               ///< m MSL at the landing, or of the last sample
    double maxFreefallSpeed = 0.0;              ///< m/s, greatest unsmoothed sink rate of the speed span
    double avgFreefallSpeed = 0.0;              ///< m/s, mean sink rate of the speed span
    double maxHorizontalSpeed = 0.0;            ///< m/s, greatest of the speed span
    double deploymentSpeed = 0.0;               ///< m/s, total speed where the deployment begins
    double freefallDuration = 0.0;              ///< s, of the speed span; negative if the clock ran backwards
    double canopyDuration = 0.0;                ///< s; negative if the clock ran backwards
    double totalDuration = 0.0;                 ///< s, of the whole log; negative if the clock ran backwards
    double maxGlideRatio = 0.0;                 ///< greatest of the canopy phase, samples with little sink left out
    double groundElevation = 0.0;               ///< m MSL, equal to `landingAltitude`
    std::optional<std::ptrdiff_t> pitchIndex{}; ///< the sample where the deployment begins
};

/// @param samples of one log
/// @param phases of the same log, as `detectPhases` gives them
/// @return absent only without samples; without phases most fields are 0
[[nodiscard]] std::optional<JumpStatistics> computeStatistics(std::span<const FlySightDataPoint> samples,
                                                              std::span<const JumpPhaseRange> phases);

/// The first range of the phase; null if the log has no such phase.
[[nodiscard]] const JumpPhaseRange* findPhase(std::span<const JumpPhaseRange> phases, JumpPhase phase);

/// Glide ratio of one sample: horizontal speed by the absolute sink rate, or 0 if that is 0.5 m/s or less.
[[nodiscard]] double glideRatio(const FlySightDataPoint& sample);

} // namespace ospra
