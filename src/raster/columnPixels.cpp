#include "raster/columnPixels.h"

#include <algorithm>

namespace ospra {

std::uint32_t withOpacity(std::uint32_t rgb, double opacity)
{
    const double alpha = opacity > 0.0 ? std::min(opacity, 1.0) * 255.0 + 0.5 : 0.0;
    return (rgb & 0xffffff) | static_cast<std::uint32_t>(alpha) << 24;
}

void turnUpright(std::span<const std::uint32_t> columns, int columnCount, int rowCount, std::span<std::uint32_t> rows,
                 std::ptrdiff_t rowStride)
{
    constexpr int tile = 16; // pixels; what is read and written meanwhile fits the cache
    for (int firstColumn = 0; firstColumn < columnCount; firstColumn += tile) {
        const int endColumn = std::min(firstColumn + tile, columnCount);
        for (int row = 0; row < rowCount; ++row) {
            const std::uint32_t* in = columns.data() + std::ptrdiff_t{firstColumn} * rowCount + row;
            std::uint32_t* out = rows.data() + row * rowStride + firstColumn;
            for (int column = firstColumn; column < endColumn; ++column, in += rowCount)
                *out++ = *in;
        }
    }
}

} // namespace ospra
