#include "analysis/JumpStatistics.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace ospra {

namespace {

using Samples = std::span<const FlySightDataPoint>;

constexpr double leastSinkRateOfGlide = 0.5; // m/s, exclusive; below it the ratio would only show noise

const FlySightDataPoint& sampleAt(Samples samples, std::ptrdiff_t index)
{
    return samples[static_cast<std::size_t>(index)];
}

/// The samples from `first` to `last`, both included.
Samples samplesBetween(Samples samples, std::ptrdiff_t first, std::ptrdiff_t last)
{
    return samples.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first + 1));
}

/// The greatest value of a quantity. The first sample is the first candidate, so that a fall in which nothing sinks
/// has a negative maximum.
template <typename Quantity>
double greatest(Samples samples, Quantity quantity)
{
    double result = std::invoke(quantity, samples.front());
    for (const FlySightDataPoint& sample : samples.subspan(1)) {
        const double value = std::invoke(quantity, sample);
        if (value > result)
            result = value;
    }
    return result;
}

double duration(Samples samples)
{
    return secondsBetween(samples.front().time, samples.back().time);
}

/// Fills what is measured over the fall, from the exit to where the canopy begins.
void addFreefall(JumpStatistics& statistics, Samples fall)
{
    double sum = 0.0;
    for (const FlySightDataPoint& sample : fall)
        sum += sample.velocityDown;

    statistics.deploymentAltitude = fall.back().altitudeMSL;
    statistics.maxFreefallSpeed = greatest(fall, &FlySightDataPoint::velocityDown);
    statistics.avgFreefallSpeed = sum / static_cast<double>(fall.size());
    statistics.maxHorizontalSpeed = greatest(fall, horizontalSpeed);
    statistics.freefallDuration = duration(fall);
}

double exitAltitude(Samples samples, const JumpPhaseRange* aircraft, const JumpPhaseRange* freefall)
{
    if (freefall)
        return sampleAt(samples, freefall->startIndex).altitudeMSL;
    if (aircraft)
        return greatest(samplesBetween(samples, aircraft->startIndex, aircraft->endIndex),
                        &FlySightDataPoint::altitudeMSL);
    return samples.front().altitudeMSL;
}

} // namespace

const JumpPhaseRange* findPhase(std::span<const JumpPhaseRange> phases, JumpPhase phase)
{
    const auto found = std::ranges::find(phases, phase, &JumpPhaseRange::phase);
    return found == phases.end() ? nullptr : &*found;
}

double glideRatio(const FlySightDataPoint& sample)
{
    const double sinkRate = std::abs(sample.velocityDown);
    return sinkRate > leastSinkRateOfGlide ? horizontalSpeed(sample) / sinkRate : 0.0;
}

std::optional<JumpStatistics> computeStatistics(std::span<const FlySightDataPoint> samples,
                                                std::span<const JumpPhaseRange> phases)
{
    if (samples.empty())
        return std::nullopt;

    const JumpPhaseRange* freefall = findPhase(phases, JumpPhase::freefall);
    const JumpPhaseRange* deployment = findPhase(phases, JumpPhase::deployment);
    const JumpPhaseRange* canopy = findPhase(phases, JumpPhase::canopy);
    const JumpPhaseRange* ground = findPhase(phases, JumpPhase::ground);

    JumpStatistics statistics;
    statistics.exitAltitude = exitAltitude(samples, findPhase(phases, JumpPhase::aircraft), freefall);
    statistics.landingAltitude =
        ground ? sampleAt(samples, ground->startIndex).altitudeMSL : samples.back().altitudeMSL;
    statistics.groundElevation = statistics.landingAltitude;
    statistics.totalDuration = duration(samples);

    if (freefall) {
        const std::ptrdiff_t last = deployment ? deployment->endIndex : freefall->endIndex;
        addFreefall(statistics, samplesBetween(samples, freefall->startIndex, last));
        statistics.pitchAltitude = sampleAt(samples, freefall->endIndex).altitudeMSL;
    }
    if (deployment) {
        const FlySightDataPoint& pitch = sampleAt(samples, deployment->startIndex);
        statistics.pitchAltitude = pitch.altitudeMSL;
        statistics.deploymentSpeed = totalSpeed(pitch);
        statistics.pitchIndex = deployment->startIndex;
    }
    if (canopy) {
        const Samples flight = samplesBetween(samples, canopy->startIndex, canopy->endIndex);
        statistics.canopyDuration = duration(flight);
        statistics.maxGlideRatio = greatest(flight, glideRatio);
    }
    return statistics;
}

} // namespace ospra
