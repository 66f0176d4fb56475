#pragma once

#include "logs/FlySightFile.h"
#include "logs/FlySightParseError.h"
#include "logs/probeLogDates.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The reader and the probe once more, written for clarity alone: lists of lines and of fields, a dictionary of
/// columns, `strtod`, the C library's calendar and ICU's regular expressions. The fast ones must agree with them on
/// every text.
namespace ospra::naive {

using ParseResult = std::variant<FlySightParseError::Case, std::vector<FlySightDataPoint>>;

[[nodiscard]] ParseResult parse(std::string_view text);
[[nodiscard]] LogDates probe(std::string_view bytes);

/// Numbers by `strtod`; the program must not have set a locale.
[[nodiscard]] std::optional<double> number(const std::string& field);
[[nodiscard]] std::optional<Instant> date(const std::string& field);
[[nodiscard]] std::optional<Instant> looseDate(const std::string& field);

/// What the reader makes of the text, in the same form.
[[nodiscard]] ParseResult parseFast(std::string_view text);

/// An empty text if the results are the same but for the ids, otherwise what is not. All NaNs are one.
[[nodiscard]] std::string difference(const ParseResult& left, const ParseResult& right);

} // namespace ospra::naive
