// How coverage becomes colour.

#include "raster/CoverageMask.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstring>

namespace ospra {
namespace {

constexpr int leastRun = 16; // rows; fewer are painted one by one

/// x * y / 255, rounded, for factors up to 255.
std::uint32_t scaled(std::uint32_t x, std::uint32_t y)
{
    const std::uint32_t product = x * y + 128;
    return (product + (product >> 8)) >> 8;
}

/// The four bytes of a pixel scaled alike.
std::uint32_t scaledPixel(std::uint32_t pixel, std::uint32_t factor)
{
    std::uint32_t odd = ((pixel >> 8) & 0xff00ff) * factor + 0x800080;
    std::uint32_t even = (pixel & 0xff00ff) * factor + 0x800080;
    odd = (odd + ((odd >> 8) & 0xff00ff)) & 0xff00ff00;
    even = ((even + ((even >> 8) & 0xff00ff)) >> 8) & 0xff00ff;
    return odd | even;
}

/// What a colour adds at each coverage, premultiplied.
std::array<std::uint32_t, 256> premultipliedTable(std::uint32_t argb)
{
    std::array<std::uint32_t, 256> table{};
    const std::uint32_t opaque = argb | 0xff000000;
    for (std::uint32_t coverage = 0; coverage < table.size(); ++coverage)
        table[coverage] = scaledPixel(opaque, scaled(argb >> 24, coverage));
    return table;
}

/// Draws over pixels that are all covered alike. Works on bytes, which the compiler turns into vector instructions.
void paintRun(std::uint32_t* out, int count, std::uint32_t source)
{
    const std::uint32_t kept = 255 - (source >> 24);
    if (kept == 0) {
        std::fill_n(out, count, source);
        return;
    }
    auto* const bytes = reinterpret_cast<std::uint8_t*>(out);
    const auto factor = static_cast<std::uint16_t>(kept);
    for (int k = 0; k < 4 * count; ++k) {
        const auto product = static_cast<std::uint16_t>(bytes[k] * factor + 128);
        bytes[k] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(product + (product >> 8)) >> 8);
    }
    for (int k = 0; k < count; ++k)
        out[k] += source; // no carry: each byte stays within 255
}

/// How many of the bytes from `start` on are equal to the first.
int equalBytes(const std::uint8_t* start, int count)
{
    const std::uint64_t pattern = std::uint64_t{0x0101010101010101} * *start;
    int equal = 0;
    for (std::uint64_t bytes = 0; equal + 8 <= count; equal += 8) {
        std::memcpy(&bytes, start + equal, sizeof bytes);
        if (bytes != pattern)
            break;
    }
    return std::max(equal, 1);
}

} // namespace

void CoverageMask::paintOver(std::span<std::uint32_t> pixels, std::uint32_t argb)
{
    assert(std::ssize(pixels) >= std::ptrdiff_t{m_columns} * m_rows);
    const auto table = premultipliedTable(argb);
    for (int index = 0; index < m_columns; ++index) {
        RowRange& touched = m_touched[static_cast<std::size_t>(index)];
        if (touched.last < touched.first)
            continue;
        std::uint32_t* const out = pixels.data() + std::ptrdiff_t{index} * m_rows;
        std::uint8_t* const rows = column(index);
        for (int row = touched.first; row <= touched.last;) {
            const std::uint32_t source = table[rows[row]];
            const int rest = touched.last - row + 1;
            const int count =
                rest >= leastRun && rows[row] == rows[row + leastRun - 1] ? equalBytes(rows + row, rest) : 1;
            if (count > 1)
                paintRun(out + row, count, source);
            else
                out[row] = out[row] == 0 ? source : source + scaledPixel(out[row], 255 - (source >> 24));
            row += count;
        }
        std::memset(rows + touched.first, 0,
                    static_cast<std::size_t>(touched.last) + 1 - static_cast<std::size_t>(touched.first));
        touched = {};
    }
}

} // namespace ospra
