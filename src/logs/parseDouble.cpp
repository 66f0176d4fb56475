#include "logs/parseDouble.h"

#include "logs/byteScan.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

namespace ospra {

namespace {

constexpr std::int64_t exponentLimit = std::int64_t{1} << 40; // beyond every exponent that a text can make up for

char lowered(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lowerCaseWord)
{
    return std::ranges::equal(text, lowerCaseWord, {}, lowered);
}

/// The digits behind an `e` or `p`, clamped; absent if there are none or if anything else follows.
std::optional<std::int64_t> parseExponent(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    if (text.empty() || !std::ranges::all_of(text, isDigit))
        return std::nullopt;
    std::int64_t exponent = 0;
    for (const char digit : text)
        exponent = std::min(exponent * 10 + (digit - '0'), exponentLimit);
    return isNegative ? -exponent : exponent;
}

/// `inf`, `infinity`, `nan` and `nan(letters)`.
std::optional<double> parseWord(std::string_view text)
{
    if (equalsIgnoringCase(text, "inf") || equalsIgnoringCase(text, "infinity"))
        return std::numeric_limits<double>::infinity();
    if (!equalsIgnoringCase(text.substr(0, 3), "nan"))
        return std::nullopt;
    const std::string_view payload = text.substr(3);
    const bool isBracketed = payload.size() >= 2 && payload.front() == '(' && payload.back() == ')';
    const auto isWordCharacter = [](char c) {
        return isDigit(c) || (lowered(c) >= 'a' && lowered(c) <= 'z') || c == '_';
    };
    if (!payload.empty() &&
        !(isBracketed && std::ranges::all_of(payload.substr(1, payload.size() - 2), isWordCharacter)))
        return std::nullopt;
    return std::numeric_limits<double>::quiet_NaN();
}

/// Whether a decimal number that no double can hold is too large. Otherwise it is too small.
bool isTooLarge(std::string_view text)
{
    const std::size_t exponentMark = text.find_first_of("eE");
    const std::string_view digits = text.substr(0, exponentMark);
    const std::int64_t exponent =
        exponentMark == std::string_view::npos ? 0 : parseExponent(text.substr(exponentMark + 1)).value_or(0);
    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const auto firstNonZero = static_cast<std::int64_t>(digits.find_first_not_of("0."));
    return point - firstNonZero + exponent > 0;
}

std::optional<double> parseDecimal(std::string_view text)
{
    const char* const start = text.data();
    const char* const end = start + text.size();
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(start, end, value);
    if (result.ptr != end || result.ec == std::errc::invalid_argument)
        return std::nullopt;
    if (result.ec == std::errc::result_out_of_range)
        return isTooLarge(text) ? std::numeric_limits<double>::infinity() : 0.0;
    return value;
}

/// The double nearest to `mantissa` times 2 to the power of `exponent`, ties to even; denormals are rounded once.
double scaled(std::uint64_t mantissa, std::int64_t exponent)
{
    using Limits = std::numeric_limits<double>;
    const auto width = static_cast<int>(std::bit_width(mantissa));
    const std::int64_t magnitude = exponent + width; // the value lies below 2 to this power, and not below half of it
    if (mantissa == 0 || magnitude < Limits::min_exponent - Limits::digits)
        return 0.0;
    if (magnitude > Limits::max_exponent)
        return Limits::infinity();
    const auto lost = static_cast<int>(std::max<std::int64_t>(
        {0, width - Limits::digits, Limits::min_exponent - Limits::digits - exponent})); // low bits, at most all 64
    const std::uint64_t kept = lost == 64 ? 0 : mantissa >> lost;
    const std::uint64_t rest = mantissa - (lost == 64 ? 0 : kept << lost);
    const std::uint64_t half = lost == 0 ? 0 : std::uint64_t{1} << (lost - 1);
    const bool roundsUp = lost > 0 && (rest > half || (rest == half && kept % 2 == 1));
    return std::ldexp(static_cast<double>(kept + (roundsUp ? 1 : 0)), static_cast<int>(exponent) + lost);
}

int hexadecimalDigit(char character)
{
    if (isDigit(character))
        return character - '0';
    const char letter = lowered(character);
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

/// A hexadecimal float behind its `0x`.
std::optional<double> parseHexadecimal(std::string_view text)
{
    std::uint64_t mantissa = 0;
    std::int64_t exponent = 0;
    bool hasDigits = false;
    bool isBehindPoint = false;
    std::size_t i = 0;
    for (; i < text.size(); ++i) {
        if (text[i] == '.' && !isBehindPoint) {
            isBehindPoint = true;
            continue;
        }
        const int digit = hexadecimalDigit(text[i]);
        if (digit < 0)
            break;
        hasDigits = true;
        const bool hasRoom = mantissa >> 60 == 0;
        if (hasRoom)
            mantissa = mantissa << 4 | static_cast<std::uint64_t>(digit);
        else if (digit != 0)
            mantissa |= 1; // far below the last bit that a double keeps: it only breaks a tie
        exponent += (hasRoom ? 0 : 4) - (isBehindPoint ? 4 : 0);
    }
    if (!hasDigits)
        return std::nullopt;
    if (i < text.size()) {
        const std::optional<std::int64_t> written =
            lowered(text[i]) == 'p' ? parseExponent(text.substr(i + 1)) : std::nullopt;
        if (!written)
            return std::nullopt;
        exponent += *written;
    }
    return scaled(mantissa, exponent);
}

} // namespace

std::optional<double> parseDouble(std::string_view field)
{
    const bool isNegative = field.starts_with('-');
    if (isNegative || field.starts_with('+'))
        field.remove_prefix(1);
    if (field.empty())
        return std::nullopt;
    std::optional<double> magnitude;
    if (field.size() > 2 && field[0] == '0' && lowered(field[1]) == 'x')
        magnitude = parseHexadecimal(field.substr(2));
    else if (isDigit(field[0]) || field[0] == '.')
        magnitude = parseDecimal(field);
    else
        magnitude = parseWord(field);
    if (magnitude && isNegative)
        return -*magnitude;
    return magnitude;
}

std::optional<std::int64_t> parseInteger(std::string_view field)
{
    if (field.starts_with('+')) {
        field.remove_prefix(1);
        if (field.starts_with('-'))
            return std::nullopt;
    }
    const char* const start = field.data();
    const char* const end = start + field.size();
    std::int64_t value = 0;
    const std::from_chars_result result = std::from_chars(start, end, value);
    if (result.ec != std::errc{} || result.ptr != end)
        return std::nullopt;
    return value;
}

} // namespace ospra
