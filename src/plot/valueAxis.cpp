#include "plot/valueAxis.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace ospra {
namespace {

constexpr double largestValue = 1e300; // beyond it a range or a step would overflow
constexpr double keptOvershoot = 0.38; // of a step; less than this beyond a whole step adds no further one
constexpr double endAir = 0.03;        // of the range, beyond an end that is not a whole step
constexpr double roundingSlack = 1e-9; // of a step
constexpr double mostSteps = 50.0;
constexpr std::size_t mostTicks = 200;
constexpr double leastRelativeWidth = 1e-12; // of a given domain; in a narrower one neighbouring ticks would be equal

/// A step of 1, 2 or 5 times a power of ten.
class NiceStep {
public:
    /// The least nice step that is not below `length`, which is positive.
    explicit NiceStep(double length) : m_exponent(static_cast<int>(std::floor(std::log10(length))) - 1)
    {
        while (value() < length * (1.0 - roundingSlack))
            raise();
    }

    void raise()
    {
        m_digit = m_digit == 1 ? 2 : m_digit == 2 ? 5 : 1;
        if (m_digit == 1)
            ++m_exponent;
    }

    /// Divides by a whole power of ten below 1, so that 3 * 0.1 is the double nearest to 0.3.
    [[nodiscard]] double times(double count) const
    {
        const double power = std::pow(10.0, std::abs(m_exponent));
        return m_exponent < 0 ? count * m_digit / power : count * m_digit * power;
    }
    [[nodiscard]] double value() const { return times(1.0); }

private:
    int m_exponent;
    int m_digit = 1;
};

/// The least step with which labels up to `largest` do not round.
double leastToldStep(double largest)
{
    if (largest >= 10000.0)
        return 1000.0;
    if (largest >= 1000.0)
        return 100.0;
    return largest > 1.0 ? 1.0 : 0.1;
}

/// One end of the domain, as a distance from zero.
double domainEnd(double end, const NiceStep& step, double air)
{
    const double steps = end / step.value();
    const double whole = std::floor(steps + roundingSlack);
    const double overshoot = steps - whole;
    if (overshoot < roundingSlack)
        return std::max(step.times(whole), end);
    if (overshoot < keptOvershoot - roundingSlack)
        return std::min(end + air, step.times(whole + 1.0));
    return step.times(whole + 1.0);
}

ValueRange domainFor(ValueRange values, const NiceStep& step)
{
    const double air = endAir * (values.hi - values.lo);
    return {values.lo < 0.0 ? -domainEnd(-values.lo, step, air) : 0.0,
            values.hi > 0.0 ? domainEnd(values.hi, step, air) : 0.0};
}

std::vector<PlotTick> ticksIn(ValueRange domain, const NiceStep& step)
{
    std::vector<PlotTick> ticks;
    const double first = std::ceil(domain.lo / step.value() - roundingSlack);
    const double last = std::floor(domain.hi / step.value() + roundingSlack);
    for (double count = first; count <= last && ticks.size() < mostTicks; ++count) {
        const double value = step.times(count);
        ticks.push_back({value, axisLabel(value)});
    }
    return ticks;
}

/// Whether the ticks are too many for the height, or their labels would round.
bool needsLargerStep(const ValueAxis& axis, const NiceStep& step, double height, double spacing)
{
    double largest = 0.0;
    for (const PlotTick& tick : axis.ticks)
        largest = std::max(largest, std::abs(tick.value));
    if (largest > 0.0 && step.value() < leastToldStep(largest) * (1.0 - roundingSlack))
        return true;
    const double pixelsPerStep = step.value() / (axis.domain.hi - axis.domain.lo) * height;
    return axis.ticks.size() > 1 && pixelsPerStep < spacing / 2.0;
}

double wantedSteps(double height, double spacing)
{
    const double steps = std::round(height / spacing);
    return steps >= 1.0 ? std::min(steps, mostSteps) : 1.0; // a NaN comes out as 1, too
}

} // namespace

std::optional<ValueRange> visibleValues(std::span<const PlotLine> lines, ValueRange seconds)
{
    ValueRange values{largestValue, -largestValue};
    bool any = false;
    for (const PlotLine& line : lines) {
        const double* x = line.x;
        const double* y = line.y;
        for (std::size_t i = 0; i < line.count; ++i, x += line.stride, y += line.stride) {
            if (!(*x >= seconds.lo && *x <= seconds.hi) || !std::isfinite(*y))
                continue;
            any = true;
            values.lo = std::min(values.lo, *y);
            values.hi = std::max(values.hi, *y);
        }
    }
    return any ? std::optional(values) : std::nullopt;
}

ValueAxis makeValueAxis(std::optional<ValueRange> values, double height, double spacing)
{
    if (!values || std::isnan(values->lo) || std::isnan(values->hi))
        return {{0.0, 1.0}, {{0.0, axisLabel(0.0)}}};
    ValueRange range{std::max(std::min(values->lo, 0.0), -largestValue),
                     std::min(std::max(values->hi, 0.0), largestValue)};
    if (!(range.hi - range.lo > 0.0))
        range.hi = 1.0;
    else if (range.hi - range.lo < leastToldStep(0.0))
        (range.hi >= -range.lo ? range.hi : range.lo) = std::copysign(leastToldStep(0.0), range.hi + range.lo);
    NiceStep step((range.hi - range.lo) / wantedSteps(height, spacing));
    ValueAxis axis;
    for (;;) {
        axis.domain = domainFor(range, step);
        axis.ticks = ticksIn(axis.domain, step);
        if (!needsLargerStep(axis, step, height, spacing))
            return axis;
        step.raise();
    }
}

ValueAxis makeFixedAxis(ValueRange domain, double height, double spacing)
{
    const double width = domain.hi - domain.lo;
    const double largest = std::max(std::abs(domain.lo), std::abs(domain.hi));
    if (!(width > largest * leastRelativeWidth) || !(width <= largestValue) || width < 1.0 / largestValue)
        return makeValueAxis(std::nullopt, height, spacing);
    NiceStep step(width / wantedSteps(height, spacing));
    ValueAxis axis{domain, ticksIn(domain, step)};
    while (needsLargerStep(axis, step, height, spacing)) {
        step.raise();
        axis.ticks = ticksIn(domain, step);
    }
    return axis;
}

std::string axisLabel(double value)
{
    if (!std::isfinite(value))
        return {};
    if (value == 0.0)
        return "0"; // also for the negative zero
    const double magnitude = std::abs(value);
    const bool inThousands = magnitude >= 1000.0;
    const int decimals = (inThousands && magnitude < 10000.0) || magnitude < 1.0 ? 1 : 0;
    std::array<char, 400> text{}; // the largest double has 309 digits
    const auto result = std::to_chars(text.data(), text.data() + text.size(), inThousands ? value / 1000.0 : value,
                                      std::chars_format::fixed, decimals);
    std::string label(text.data(), result.ptr);
    if (inThousands)
        label += 'k';
    return label;
}

} // namespace ospra
