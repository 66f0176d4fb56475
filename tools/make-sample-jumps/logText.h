#pragma once

#include "tools/make-sample-jumps/recordLog.h"

#include <cstdint>
#include <span>
#include <string>

namespace ospra {

enum class LineEnd { lf, crLf };

/// A plain CSV file: a header, a line of units, rows of 14 columns, times to the hundredth of a second.
[[nodiscard]] std::string logTextOne(std::span<const Fix> fixes, LineEnd lineEnd);

/// A stream of tagged records, times to the thousandth of a second.
/// @param device number of the logger
[[nodiscard]] std::string logTextTwo(std::span<const Fix> fixes, std::uint32_t device);

/// The log of the other sensors that a version 2 logger writes beside the first: air pressure, magnetic field and
/// movement, at a few rows a second.
[[nodiscard]] std::string sensorText(std::span<const Fix> fixes, std::uint32_t device, Random random);

/// "2026-09-20" in UTC.
[[nodiscard]] std::string dayText(std::int64_t milliseconds);

/// "16-42-07" in UTC.
[[nodiscard]] std::string clockText(std::int64_t milliseconds);

} // namespace ospra
