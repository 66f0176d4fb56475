#include "analysis/JumpTrack.h"

namespace ospra {

std::vector<double> elapsedTimes(std::span<const FlySightDataPoint> samples)
{
    std::vector<double> elapsed;
    elapsed.reserve(samples.size());
    for (const FlySightDataPoint& sample : samples)
        elapsed.push_back(secondsBetween(samples.front().time, sample.time));
    return elapsed;
}

} // namespace ospra
