#include "analysis/detectPhases.h"

#include "analysis/movingMedian.h"
#include "platform/Uuid.h"

#include <algorithm>
#include <array>
#include <optional>

namespace ospra {

namespace {

// Every comparison below is written so that NaN makes it false. A NaN can thus hide a boundary but never move one out
// of order, and the boundaries ascend whatever the samples hold.

using Samples = std::span<const FlySightDataPoint>;
using Index = std::ptrdiff_t;

constexpr Index leastSamples = 11; // a shorter log gets no phases
constexpr Index medianWidth = 5;   // samples

constexpr double usableAccuracy = 10.0; // m; a vertical accuracy below it, but above 0, tells of a usable fix

constexpr double exitSinkRate = 20.0; // m/s; a faster mean tells that the aircraft has been left
constexpr Index exitMeanLength = 5;   // samples of that mean
constexpr Index exitSearchMargin = 5; // samples before the end of the log where the search ends

constexpr Index leastFall = 10;          // samples behind the exit in which no opening is looked for
constexpr Index slowedSearchMargin = 10; // samples before the end of the log where the search ends
constexpr double canopySinkRate = 15.0;  // m/s; slower under an open canopy
constexpr double returnSinkRate = 20.0;  // m/s; faster again means that the canopy was not open
constexpr Index returnLength = 10;       // samples ahead in which the fall must not return
constexpr Index slowedLookBack = 30;     // samples back in which the speed before the opening is found
constexpr double slowedSinkDrop = 12.0;  // m/s; least fall of the sink rate since then
constexpr double slowedSpeedDrop = 10.0; // m/s; least fall of the total speed since then

constexpr Index peakLookBack = 35;      // samples before the slowed canopy in which the peak speeds are found
constexpr double sinkDropShare = 0.28;  // of the peak sink rate, lost when the deployment has begun
constexpr double leastSinkDrop = 10.0;  // m/s; and at least this
constexpr double speedDropShare = 0.18; // of the peak total speed, lost when the deployment has begun
constexpr double leastSpeedDrop = 9.0;  // m/s; and at least this
constexpr Index deploymentMargin = 5;   // samples before the slowed canopy where the search ends
constexpr Index confirmLength = 6;      // samples over which the drop must hold on average

constexpr Index steadyLag = 10;         // samples over which steady flight is judged
constexpr double steadySinkDrop = 8.0;  // m/s; a smaller fall of the sink rate is steady flight
constexpr double steadySpeedDrop = 6.0; // m/s; likewise of the total speed

constexpr Index shortDeployment = 2;  // samples; a deployment of no more is not refined
constexpr Index saddleLookAhead = 12; // samples behind the slowed canopy in which the slowest sink rate is looked for

constexpr double landedSpeed = 3.0; // m/s; a landed jumper moves slower
constexpr Index landedLength = 20;  // samples running

/// The smoothed velocities of a log, m/s.
struct Flight {
    std::vector<double> sink{};  ///< positive while sinking
    std::vector<double> speed{}; ///< through space; the median of the speeds, not the speed of the medians

    [[nodiscard]] Index last() const { return std::ssize(sink) - 1; }
};

template <typename Values>
auto& at(Values& values, Index index)
{
    return values[static_cast<std::size_t>(index)];
}

/// The values from `first` to `last`, both included.
std::span<const double> window(std::span<const double> values, Index first, Index last)
{
    return values.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first + 1));
}

double windowMean(std::span<const double> values, Index first, Index last)
{
    double sum = 0.0;
    for (const double value : window(values, first, last))
        sum += value;
    return sum / static_cast<double>(last - first + 1);
}

double windowPeak(std::span<const double> values, Index first, Index last)
{
    return std::ranges::max(window(values, first, last));
}

Flight smooth(Samples samples)
{
    std::vector<double> sink(samples.size());
    std::ranges::transform(samples, sink.begin(), &FlySightDataPoint::velocityDown);
    std::vector<double> speed(samples.size());
    std::ranges::transform(samples, speed.begin(), totalSpeed);
    return {.sink = movingMedian(sink, medianWidth), .speed = movingMedian(speed, medianWidth)};
}

/// The first sample with a usable fix; 0 for a log without accuracies.
Index findFirstFix(Samples samples)
{
    const auto usable = [](double accuracy) { return accuracy > 0.0 && accuracy < usableAccuracy; };
    const auto found = std::ranges::find_if(samples, usable, &FlySightDataPoint::verticalAccuracy);
    return found == samples.end() ? 0 : found - samples.begin();
}

/// The highest sample from `first` on, the earliest of equal ones.
Index findPeak(Samples samples, Index first)
{
    Index peak = first;
    for (Index i = first + 1; i < std::ssize(samples); ++i)
        if (at(samples, i).altitudeMSL > at(samples, peak).altitudeMSL)
            peak = i;
    return peak;
}

/// Where the fall begins; the peak itself in a log without a fall.
Index findExit(const Flight& flight, Index peak)
{
    const Index end = std::max(peak + 1, flight.last() + 1 - exitSearchMargin);
    for (Index i = peak; i < end; ++i)
        if (windowMean(flight.sink, i, std::min(i + exitMeanLength - 1, flight.last())) > exitSinkRate)
            return i;
    return peak;
}

/// Whether the sink rate is that of an open canopy, stays so, and was that of a fall shortly before.
bool hasSlowed(const Flight& flight, Index exit, Index i)
{
    if (!(at(flight.sink, i) < canopySinkRate))
        return false;
    const auto ahead = window(flight.sink, i, std::min(i + returnLength - 1, flight.last()));
    if (std::ranges::any_of(ahead, [](double sink) { return sink > returnSinkRate; }))
        return false;
    const Index back = std::max(exit, i - slowedLookBack);
    return windowPeak(flight.sink, back, i) - at(flight.sink, i) >= slowedSinkDrop &&
           windowPeak(flight.speed, back, i) - at(flight.speed, i) >= slowedSpeedDrop;
}

/// Where the canopy has slowed the fall; the last sample where none did.
Index findSlowed(const Flight& flight, Index exit)
{
    const Index start = std::min(exit + leastFall, flight.last());
    const Index end = std::max(start + 1, flight.last() + 1 - slowedSearchMargin);
    for (Index i = start; i < end; ++i)
        if (hasSlowed(flight, exit, i))
            return i;
    return flight.last();
}

/// The first sample that has lost enough of the peak speeds, at once and on average over the samples behind it.
std::optional<Index> findDrop(const Flight& flight, Index exit, Index slowed)
{
    const Index first = std::max(slowed - peakLookBack, exit);
    const Index last = std::max(slowed - deploymentMargin, first);
    if (first == last)
        return std::nullopt;

    const double peakSink = windowPeak(flight.sink, first, slowed);
    const double peakSpeed = windowPeak(flight.speed, first, slowed);
    const double sinkDrop = std::max(sinkDropShare * peakSink, leastSinkDrop);
    const double speedDrop = std::max(speedDropShare * peakSpeed, leastSpeedDrop);
    for (Index j = first; j <= last; ++j) {
        const Index confirmed = std::min(j + confirmLength - 1, flight.last());
        if (peakSink - at(flight.sink, j) >= sinkDrop && peakSpeed - at(flight.speed, j) >= speedDrop &&
            peakSink - windowMean(flight.sink, j, confirmed) >= sinkDrop &&
            peakSpeed - windowMean(flight.speed, j, confirmed) >= speedDrop)
            return j;
    }
    return std::nullopt;
}

/// One behind the latest sample of steady flight; `slowed` if there was none.
Index findEndOfSteadyFlight(const Flight& flight, Index exit, Index slowed)
{
    if (exit >= slowed - steadyLag)
        return slowed;
    for (Index k = slowed - steadyLag; k >= exit; --k)
        if (at(flight.sink, k) - at(flight.sink, k + steadyLag) < steadySinkDrop &&
            at(flight.speed, k) - at(flight.speed, k + steadyLag) < steadySpeedDrop)
            return k + 1;
    return slowed;
}

/// The slowest sample of the opening, the earliest of equal ones. It may lie on either side of `slowed`, which it is
/// itself unless another is strictly slower.
Index findCanopyStart(const Flight& flight, Index deployStart, Index slowed)
{
    Index slowest = slowed;
    if (deployStart + shortDeployment >= slowed)
        return slowest;
    const Index end = std::min(slowed + saddleLookAhead, flight.last());
    for (Index m = deployStart; m <= end; ++m)
        if (at(flight.sink, m) < at(flight.sink, slowest))
            slowest = m;
    return slowest;
}

/// The first of enough slow samples running, by unsmoothed speeds; the last sample if the log ends before.
Index findLanding(Samples samples, Index canopyStart)
{
    Index run = 0;
    for (Index i = canopyStart; i < std::ssize(samples); ++i) {
        run = totalSpeed(at(samples, i)) < landedSpeed ? run + 1 : 0;
        if (run == landedLength)
            return i - landedLength + 1;
    }
    return std::ssize(samples) - 1;
}

} // namespace

std::vector<JumpPhaseRange> detectPhases(std::span<const FlySightDataPoint> samples)
{
    if (std::ssize(samples) < leastSamples)
        return {};

    const Flight flight = smooth(samples);
    const Index firstFix = findFirstFix(samples);
    const Index exit = findExit(flight, findPeak(samples, firstFix));
    const Index slowed = findSlowed(flight, exit);
    const Index deployStart = findDrop(flight, exit, slowed).value_or(findEndOfSteadyFlight(flight, exit, slowed));
    const Index canopyStart = findCanopyStart(flight, deployStart, slowed);
    const Index landing = findLanding(samples, canopyStart);

    const std::array boundaries{firstFix, exit, deployStart, canopyStart, landing, flight.last()};
    std::vector<JumpPhaseRange> ranges;
    for (std::size_t i = 0; i < allJumpPhases.size(); ++i)
        if (boundaries[i] < boundaries[i + 1])
            ranges.push_back({.id = makeUuid(),
                              .phase = allJumpPhases[i],
                              .startIndex = boundaries[i],
                              .endIndex = boundaries[i + 1]});
    return ranges;
}

} // namespace ospra
