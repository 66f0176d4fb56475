#pragma once

#include "display/chartSeries.h"

#include <optional>
#include <span>

namespace ospra {

/// What a key does with the cursor of the charts. A leap is a twentieth of what is shown.
enum class CursorStep { back, forward, leapBack, leapForward, toStart, toEnd };

/// The sample to which a step leads, of those that are shown. Without a cursor, or with one that is out of sight, the
/// steps forward begin at the first sample and those back at the last.
/// @param elapsed of the samples, in any order
/// @param cursor where the cursor stands
/// @return the sample's time; absent where no sample is shown
[[nodiscard]] std::optional<double> stepCursor(std::span<const double> elapsed, TimeRange shown,
                                               std::optional<double> cursor, CursorStep step);

} // namespace ospra
