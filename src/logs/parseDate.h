#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace ospra {

/// The two forms of a date (RFC 3339 with capital letters): `2024-06-01T14:02:11.20Z` and `2024-06-01T14:02:11Z`.
enum class DateForm { withFraction, withoutFraction };

/// A point in time as whole numbers.
struct DateParts {
    std::int64_t wholeSeconds = 0; ///< since 1970-01-01T00:00:00Z, the zone applied
    int milliseconds = 0;          ///< 0 to 999; digits behind the third are cut off
    DateForm form = DateForm::withoutFraction;

    [[nodiscard]] constexpr Instant instant() const
    {
        return {static_cast<double>(wholeSeconds) + milliseconds / 1000.0};
    }
};

/// Reads the whole field as a date of either form. The fraction has one to nine digits; the zone is `Z` or an offset
/// with a colon; the years are 0000 to 9999 of the Gregorian calendar.
/// @return absent for anything else, also for days and times that do not exist, leap seconds included
[[nodiscard]] std::optional<DateParts> parseDateParts(std::string_view field);

/// The same as a point in time.
[[nodiscard]] std::optional<Instant> parseDate(std::string_view field);

/// Reads a date as `parseDate` does, and one that is none once more without its fractions: without every run of decimal
/// digits of any script behind a point, and the point. So a fraction of ten digits costs the fraction, not the date.
[[nodiscard]] std::optional<Instant> parseDateLoosely(std::string_view field);

} // namespace ospra
