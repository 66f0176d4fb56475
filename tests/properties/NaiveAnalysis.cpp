#include "tests/properties/NaiveAnalysis.h"

#include <algorithm>
#include <cmath>

namespace ospra::naive {

namespace {

double totalSpeedOf(const FlySightDataPoint& p)
{
    return std::sqrt(p.velocityNorth * p.velocityNorth + p.velocityEast * p.velocityEast +
                     p.velocityDown * p.velocityDown);
}

double horizontalSpeedOf(const FlySightDataPoint& p)
{
    return std::sqrt(p.velocityNorth * p.velocityNorth + p.velocityEast * p.velocityEast);
}

/// A list that is asked by signed index and tells when it is asked beside its ends.
struct List {
    std::vector<double> values{};

    double operator[](long i) const { return values.at(static_cast<std::size_t>(i)); }
    [[nodiscard]] double mean(long a, long b) const
    {
        double sum = (*this)[a];
        for (long i = a + 1; i <= b; ++i)
            sum += (*this)[i];
        return sum / static_cast<double>(b - a + 1);
    }
    [[nodiscard]] double greatest(long a, long b) const
    {
        double result = (*this)[a];
        for (long i = a; i <= b; ++i)
            if ((*this)[i] > result)
                result = (*this)[i];
        return result;
    }
};

long firstUsableFix(const std::vector<FlySightDataPoint>& samples)
{
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (samples[i].verticalAccuracy > 0 && samples[i].verticalAccuracy < 10)
            return static_cast<long>(i);
    return 0;
}

long findExit(const List& D, long peak, long n)
{
    for (long i = peak; i < std::max(peak + 1, n - 5); ++i)
        if (D.mean(i, std::min(i + 4, n - 1)) > 20)
            return i;
    return peak;
}

long findSlowed(const List& D, const List& T, long exit, long n)
{
    const long s = std::min(exit + 10, n - 1);
    for (long i = s; i < std::max(s + 1, n - 10); ++i) {
        bool isFastAgain = false;
        for (long k = i; k <= std::min(n, i + 10) - 1; ++k)
            isFastAgain = isFastAgain || D[k] > 20;
        const long back = std::max(exit, i - 30);
        if (D[i] < 15 && !isFastAgain && D.greatest(back, i) - D[i] >= 12 && T.greatest(back, i) - T[i] >= 10)
            return i;
    }
    return n - 1;
}

long findDeployStart(const List& D, const List& T, long exit, long slowed, long n)
{
    const long lo = std::max(slowed - 35, exit);
    const double maxD = D.greatest(lo, slowed);
    const double maxT = T.greatest(lo, slowed);
    const double dropD = std::max(0.28 * maxD, 10.0);
    const double dropT = std::max(0.18 * maxT, 9.0);
    const long hi = std::max(slowed - 5, lo);
    for (long j = lo; lo < hi && j <= hi; ++j) {
        const long to = std::min(j + 5, n - 1);
        if (maxD - D[j] >= dropD && maxT - T[j] >= dropT && maxD - D.mean(j, to) >= dropD &&
            maxT - T.mean(j, to) >= dropT)
            return j;
    }
    if (exit < slowed - 10)
        for (long k = slowed - 10; k >= exit; --k)
            if (D[k] - D[k + 10] < 8 && T[k] - T[k + 10] < 6)
                return k + 1;
    return slowed;
}

long findCanopyStart(const List& D, long deployStart, long slowed, long n)
{
    long canopyStart = slowed;
    const long e = std::min(slowed + 12, n - 1);
    if (deployStart + 2 < slowed && deployStart < e) {
        double least = D[slowed];
        for (long m = deployStart; m <= e; ++m) {
            if (D[m] < least) {
                canopyStart = m;
                least = D[m];
            }
        }
    }
    return canopyStart;
}

long findLanding(const std::vector<FlySightDataPoint>& samples, long canopyStart)
{
    long run = 0;
    for (std::size_t i = static_cast<std::size_t>(canopyStart); i < samples.size(); ++i) {
        if (totalSpeedOf(samples[i]) < 3)
            ++run;
        else
            run = 0;
        if (run == 20)
            return static_cast<long>(i) - 19;
    }
    return static_cast<long>(samples.size()) - 1;
}

} // namespace

std::vector<double> movingMedian(const std::vector<double>& values, long width)
{
    if (values.empty() || width < 2)
        return values;
    const long n = static_cast<long>(values.size());
    const long h = width / 2;
    std::vector<double> medians;
    for (long i = 0; i < n; ++i) {
        std::vector<double> window;
        for (long k = std::max(0L, i - h); k <= std::min(i + h, n - 1); ++k)
            window.push_back(values.at(static_cast<std::size_t>(k)));
        std::sort(window.begin(), window.end());
        medians.push_back(window.at(window.size() / 2));
    }
    return medians;
}

std::vector<JumpPhaseRange> detectPhases(const std::vector<FlySightDataPoint>& samples)
{
    const long n = static_cast<long>(samples.size());
    if (n < 11)
        return {};
    std::vector<double> down;
    std::vector<double> total;
    for (const FlySightDataPoint& p : samples) {
        down.push_back(p.velocityDown);
        total.push_back(totalSpeedOf(p));
    }
    const List D{movingMedian(down, 5)};
    const List T{movingMedian(total, 5)};
    const long firstFix = firstUsableFix(samples);
    long peak = firstFix;
    for (long i = firstFix; i < n; ++i)
        if (samples.at(static_cast<std::size_t>(i)).altitudeMSL >
            samples.at(static_cast<std::size_t>(peak)).altitudeMSL)
            peak = i;
    const long exit = findExit(D, peak, n);
    const long slowed = findSlowed(D, T, exit, n);
    const long deployStart = findDeployStart(D, T, exit, slowed, n);
    const long canopyStart = findCanopyStart(D, deployStart, slowed, n);
    const long landing = findLanding(samples, canopyStart);

    std::vector<JumpPhaseRange> ranges;
    const auto append = [&ranges](JumpPhase phase, long start, long end) {
        if (start < end)
            ranges.push_back({.phase = phase, .startIndex = start, .endIndex = end});
    };
    append(JumpPhase::aircraft, firstFix, exit);
    append(JumpPhase::freefall, exit, deployStart);
    append(JumpPhase::deployment, deployStart, canopyStart);
    append(JumpPhase::canopy, canopyStart, landing);
    append(JumpPhase::ground, landing, n - 1);
    return ranges;
}

JumpStatistics computeStatistics(const std::vector<FlySightDataPoint>& samples,
                                 const std::vector<JumpPhaseRange>& phases)
{
    const auto at = [&samples](std::ptrdiff_t i) -> const FlySightDataPoint& {
        return samples.at(static_cast<std::size_t>(i));
    };
    const auto find = [&phases](JumpPhase phase) {
        std::optional<JumpPhaseRange> found;
        for (const JumpPhaseRange& range : phases)
            if (range.phase == phase && !found)
                found = range;
        return found;
    };
    const auto AC = find(JumpPhase::aircraft);
    const auto FF = find(JumpPhase::freefall);
    const auto DP = find(JumpPhase::deployment);
    const auto CN = find(JumpPhase::canopy);
    const auto GR = find(JumpPhase::ground);

    JumpStatistics result;
    result.exitAltitude = at(FF ? FF->startIndex : AC ? AC->startIndex : 0).altitudeMSL;
    if (!FF && AC)
        for (std::ptrdiff_t i = AC->startIndex; i <= AC->endIndex; ++i)
            if (at(i).altitudeMSL > result.exitAltitude)
                result.exitAltitude = at(i).altitudeMSL;
    result.pitchAltitude = DP ? at(DP->startIndex).altitudeMSL : FF ? at(FF->endIndex).altitudeMSL : 0;
    result.landingAltitude = GR ? at(GR->startIndex).altitudeMSL : samples.back().altitudeMSL;
    result.groundElevation = result.landingAltitude;
    result.totalDuration = samples.back().time.seconds - samples.front().time.seconds;
    if (FF) {
        const std::ptrdiff_t E = DP ? DP->endIndex : FF->endIndex;
        result.deploymentAltitude = at(E).altitudeMSL;
        result.freefallDuration = at(E).time.seconds - at(FF->startIndex).time.seconds;
        double sum = 0;
        result.maxFreefallSpeed = at(FF->startIndex).velocityDown;
        result.maxHorizontalSpeed = horizontalSpeedOf(at(FF->startIndex));
        for (std::ptrdiff_t i = FF->startIndex; i <= E; ++i) {
            sum = sum + at(i).velocityDown;
            if (at(i).velocityDown > result.maxFreefallSpeed)
                result.maxFreefallSpeed = at(i).velocityDown;
            if (horizontalSpeedOf(at(i)) > result.maxHorizontalSpeed)
                result.maxHorizontalSpeed = horizontalSpeedOf(at(i));
        }
        result.avgFreefallSpeed = sum / static_cast<double>(E - FF->startIndex + 1);
    }
    if (DP) {
        result.deploymentSpeed = totalSpeedOf(at(DP->startIndex));
        result.pitchIndex = DP->startIndex;
    }
    if (CN) {
        result.canopyDuration = at(CN->endIndex).time.seconds - at(CN->startIndex).time.seconds;
        for (std::ptrdiff_t i = CN->startIndex; i <= CN->endIndex; ++i) {
            const double sink = at(i).velocityDown < 0 ? -at(i).velocityDown : at(i).velocityDown;
            const double glide = sink > 0.5 ? horizontalSpeedOf(at(i)) / sink : 0;
            if (glide > result.maxGlideRatio)
                result.maxGlideRatio = glide;
        }
    }
    return result;
}

} // namespace ospra::naive
