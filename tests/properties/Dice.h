#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace ospra::properties {

/// Chance with a fixed seed. The library's distributions differ from one standard library to the next, these do not.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : m_bits(seed) {}

    /// @return 0 to `count` - 1
    [[nodiscard]] std::ptrdiff_t below(std::ptrdiff_t count)
    {
        return static_cast<std::ptrdiff_t>(m_bits() % static_cast<std::uint64_t>(count));
    }
    /// @return `least` to `most`, both included
    [[nodiscard]] std::ptrdiff_t between(std::ptrdiff_t least, std::ptrdiff_t most)
    {
        return least + below(most - least + 1);
    }
    [[nodiscard]] bool oneIn(std::ptrdiff_t count) { return below(count) == 0; }
    [[nodiscard]] double real(double least, double most)
    {
        return least + (most - least) * static_cast<double>(m_bits() >> 11) * 0x1p-53;
    }
    template <typename List>
    [[nodiscard]] const auto& oneOf(const List& list)
    {
        return list[static_cast<std::size_t>(below(std::ssize(list)))];
    }
    template <typename Item>
    void shuffle(std::vector<Item>& items)
    {
        for (std::size_t i = items.size(); i > 1; --i)
            std::swap(items[i - 1], items[static_cast<std::size_t>(below(static_cast<std::ptrdiff_t>(i)))]);
    }
    [[nodiscard]] std::uint64_t bits() { return m_bits(); }

private:
    std::mt19937_64 m_bits;
};

/// Tries a property with the dice of one seed after the other, until one fails. The message tells which.
template <typename Property>
void forSeeds(std::uint64_t count, const Property& property)
{
    for (std::uint64_t seed = 0; seed < count && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        property(dice);
    }
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double greatest = std::numeric_limits<double>::max();

} // namespace ospra::properties
