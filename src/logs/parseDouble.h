#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace ospra {

/// Reads the whole field by the grammar of `strtod` in the POSIX locale, whatever the user's locale is: decimal numbers
/// with or without exponent, hexadecimal floats, and the words for infinity and not-a-number in any case. Rounds to
/// nearest, ties to even; what is too large is infinite, what is too small is 0.
/// @return absent if the field is empty, begins with a blank or has a character left over
[[nodiscard]] std::optional<double> parseDouble(std::string_view field);

/// Reads the whole field as an optional sign and one or more decimal digits.
/// @return absent for anything else, also for a number beyond 64 bits
[[nodiscard]] std::optional<std::int64_t> parseInteger(std::string_view field);

} // namespace ospra
