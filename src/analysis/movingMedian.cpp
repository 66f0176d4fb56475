#include "analysis/movingMedian.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace ospra {

namespace {

/// An integer that sorts as `std::strong_order` sorts doubles, so that NaN has a place in the order and the
/// comparisons need no branches. Applied twice it gives the bits of the number back.
constexpr std::int64_t flipNegative(std::int64_t bits)
{
    return bits ^ ((bits >> 63) & INT64_MAX);
}

std::int64_t orderKey(double value)
{
    return flipNegative(std::bit_cast<std::int64_t>(value));
}

double fromOrderKey(std::int64_t key)
{
    return std::bit_cast<double>(flipNegative(key));
}

/// Of two pairs, the lesser of the two least values has three above it and the greater of the two greatest has three
/// below it: neither is the median, which is then the median of the other three.
std::int64_t medianOfFive(std::int64_t a, std::int64_t b, std::int64_t c, std::int64_t d, std::int64_t e)
{
    const std::int64_t f = std::max(std::min(a, b), std::min(c, d));
    const std::int64_t g = std::min(std::max(a, b), std::max(c, d));
    return std::clamp(e, std::min(f, g), std::max(f, g));
}

} // namespace

std::vector<double> movingMedian(std::span<const double> values, std::ptrdiff_t width)
{
    std::vector<double> medians(values.begin(), values.end());
    if (width < 2)
        return medians;

    std::vector<std::int64_t> keys(values.size());
    std::ranges::transform(values, keys.begin(), orderKey);

    const std::ptrdiff_t count = std::ssize(keys);
    const std::ptrdiff_t half = width / 2;
    std::vector<std::int64_t> window;
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const auto at = keys.begin() + i;
        if (half == 2 && i >= 2 && i < count - 2) {
            medians[static_cast<std::size_t>(i)] = fromOrderKey(medianOfFive(at[-2], at[-1], at[0], at[1], at[2]));
            continue;
        }
        window.assign(at - std::min(half, i), at + std::min(half, count - 1 - i) + 1);
        const auto middle = window.begin() + std::ssize(window) / 2;
        std::ranges::nth_element(window, middle);
        medians[static_cast<std::size_t>(i)] = fromOrderKey(*middle);
    }
    return medians;
}

} // namespace ospra
