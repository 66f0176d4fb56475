#pragma once

#include <string>

namespace ospra {

/// A round length and how long it is on screen.
struct ScaleBar {
    double width = 0.0; ///< logical pixels, at most what was asked for
    std::string text{}; ///< such as "250 m", "2 km", "500 ft", "1 mi"
};

enum class LengthUnits { metric, imperial };

/// The longest bar of 1, 2.5 or 5 times a power of ten that fits, in whole metres or feet; kilometres or miles from one
/// on.
/// @param metersPerPixel of ground, above 0
/// @return without width and text where not even a metre or a foot fits
[[nodiscard]] ScaleBar scaleBar(double metersPerPixel, double greatestWidth, LengthUnits units);

} // namespace ospra
