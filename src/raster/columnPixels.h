#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ospra {

/// A colour with an opacity from 0 to 1, not premultiplied: 0xAARRGGBB. Nothing shows where the opacity is NaN.
[[nodiscard]] std::uint32_t withOpacity(std::uint32_t rgb, double opacity);

/// Turns a picture that lies column after column upright.
/// @param columns `columnCount` times `rowCount` pixels
/// @param rows overwritten: `rowCount` times `rowStride`, of which the first `columnCount` count
void turnUpright(std::span<const std::uint32_t> columns, int columnCount, int rowCount, std::span<std::uint32_t> rows,
                 std::ptrdiff_t rowStride);

} // namespace ospra
