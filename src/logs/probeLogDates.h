#pragma once

#include "platform/Instant.h"

#include <optional>
#include <string_view>

namespace ospra {

/// The two moments that place a log in time.
struct LogDates {
    std::optional<Instant> jumpDate{};     ///< the first sample
    std::optional<Instant> freefallDate{}; ///< the first sample that sinks faster than 20 m/s

    friend bool operator==(const LogDates&, const LogDates&) = default;
};

/// Dates a log without parsing it: the walk ends at the first fast sample. Its rules are looser than those of
/// `FlySightFile::parse`, so that a log that cannot be opened may still be dated. Any thread.
/// @param bytes the whole file; bytes that are not UTF-8 give no dates
/// @return absent dates for whatever cannot be found. Never fails.
[[nodiscard]] LogDates probeLogDates(std::string_view bytes);

} // namespace ospra
