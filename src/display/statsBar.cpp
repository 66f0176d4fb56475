#include "display/statsBar.h"

namespace ospra {

std::array<StatsItem, 9> statsBarItems(const JumpStatistics& statistics, UnitSystem system)
{
    return {{
        {"Exit", formatAltitude(statistics.exitAltitude, system)},
        {"Pitch", formatAltitude(statistics.pitchAltitude, system)},
        {"Saddle", formatAltitude(statistics.deploymentAltitude, system)},
        {"Freefall", formatDuration(statistics.freefallDuration)},
        {"Canopy", formatDuration(statistics.canopyDuration)},
        {"Max V.Spd", formatSpeed(statistics.maxFreefallSpeed, system)},
        {"Max H.Spd", formatSpeed(statistics.maxHorizontalSpeed, system)},
        {"Avg F.Spd", formatSpeed(statistics.avgFreefallSpeed, system)},
        {"Deploy Spd", formatSpeed(statistics.deploymentSpeed, system)},
    }};
}

} // namespace ospra
