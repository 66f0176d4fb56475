#pragma once

#include "logs/FlySightFile.h"

#include <string_view>
#include <vector>

namespace ospra {

/// The plain way to read a log of 14 columns in the fixed order of `makeFlightLog`: one pass with `memchr` for commas
/// and line feeds, `std::from_chars` on every field, and a date of fixed places. It fills the same records as the
/// reader and knows nothing of other line ends, other columns or other forms of numbers and dates.
[[nodiscard]] std::vector<FlySightDataPoint> readPlainly(std::string_view text);

} // namespace ospra
