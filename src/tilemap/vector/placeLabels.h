#pragma once

#include "raster/CoverageMask.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace ospra {

/// The room that a text takes: a rectangle, turned about its middle. In device pixels.
struct LabelBox {
    PixelPoint center{};
    double halfWidth = 0.0;
    double halfHeight = 0.0;
    double angle = 0.0; ///< radians, clockwise on screen
    std::string_view text{};
    double leastRepeat = 0.0; ///< how far from the middle of a box with the same text
};

/// Whether two boxes come nearer to each other than `margin`, seen along their sides.
[[nodiscard]] bool boxesTouch(const LabelBox& a, const LabelBox& b, double margin);

/// Takes the boxes in their order, and each that leaves `margin` to those taken before and is no repetition.
/// @return indices of those taken, ascending. Takes time in proportion to the boxes where they are spread out.
[[nodiscard]] std::vector<std::size_t> placeLabels(std::span<const LabelBox> boxes, double margin);

/// A place on a line where a text can stand along it.
struct LineSpot {
    PixelPoint center{};
    double angle = 0.0; ///< radians, -pi/2 to pi/2, so that the text stands upright
};

/// Places where a line is nearly straight over `length`, those nearest to its middle first, at most some hundred.
/// @param line of at least two points
/// @param step from one place to the next along the line
/// @param bend by which the line may leave the straight
[[nodiscard]] std::vector<LineSpot> straightSpots(std::span<const PixelPoint> line, double length, double step,
                                                  double bend);

} // namespace ospra
