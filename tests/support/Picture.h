#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ospra {

/// Pixels for something to draw into, of which a test can ask single ones.
struct Picture {
    static constexpr std::uint32_t untouched = 0xdeadbeef; ///< what they all are at first

    int columns = 0;
    int rows = 0;
    std::vector<std::uint32_t> pixels = std::vector(static_cast<std::size_t>(columns * rows), untouched);

    [[nodiscard]] std::uint32_t pixel(int column, int row) const
    {
        return pixels.at(static_cast<std::size_t>(row * columns + column));
    }
    [[nodiscard]] int alpha(int column, int row) const { return static_cast<int>(pixel(column, row) >> 24); }
    [[nodiscard]] int greatestAlpha() const { return static_cast<int>(std::ranges::max(pixels) >> 24); }
};

} // namespace ospra
