#pragma once

#include "logs/byteScan.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

namespace ospra {

/// Eight characters of a number in one word, the first in the lowest byte. A digit is held as its value.
class DigitBlock {
public:
    /// Takes the first `count` (1 to 8) of the eight characters at the position, with zeros before them.
    DigitBlock(const char* position, std::ptrdiff_t count) noexcept
    {
        m_digits = loadBytes(position);
        m_digits = (m_digits ^ (ones * '0')) << (64 - 8 * count);
    }

    /// A bit for each character that is no digit, the highest of its byte.
    [[nodiscard]] std::uint64_t others() const noexcept
    {
        return (((m_digits & (ones * 0x7F)) + ones * (0x7F - 9)) | m_digits) & (ones * 0x80);
    }

    /// Removes the point if the one character that is no digit is a point.
    [[nodiscard]] bool removePoint(std::uint64_t other) noexcept
    {
        const std::uint64_t atPoint = other >> 7; // a 1 in the lowest bit of its byte
        const std::uint64_t before = atPoint - 1;
        if ((other & (other - 1)) != 0 || (m_digits & (atPoint * 0xFF)) != atPoint * ('.' ^ '0'))
            return false;
        m_digits = (m_digits & ~before & ~(atPoint * 0xFF)) | (m_digits & before) << 8;
        return true;
    }

    /// The number that eight digits make: pairs first, then fours, then all, side by side in the word.
    [[nodiscard]] std::uint64_t value() const noexcept
    {
        const std::uint64_t pairs = m_digits * 10 + (m_digits >> 8);
        const std::uint64_t high = (pairs & 0x000000FF000000FF) * 0x000F424000000064;
        const std::uint64_t low = ((pairs >> 16) & 0x000000FF000000FF) * 0x0000271000000001;
        return (high + low) >> 32;
    }

private:
    static constexpr std::uint64_t ones = 0x0101010101010101;

    std::uint64_t m_digits = 0;
};

/// Reads a field of at most 15 digits and a point, at most seven of the digits behind it, with or without a minus: the
/// form that loggers write. The digits fit 53 bits and the power of ten is exact, so that the one division rounds
/// correctly (W. D. Clinger, "How to Read Floating Point Numbers Accurately"). Every other field is left to
/// `parseDouble`.
/// @param textEnd how far may be read behind the field
[[nodiscard]] inline std::optional<double> readPlainNumber(std::string_view field, const char* textEnd) noexcept
{
    static constexpr std::array<double, 8> powersOfTen{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
    constexpr std::ptrdiff_t blockSize = 8;
    constexpr std::uint64_t sevenDigits = 10'000'000;

    const char* position = field.data();
    const char* const end = position + field.size();
    const bool isNegative = !field.empty() && *position == '-';
    position += isNegative ? 1 : 0;
    const std::ptrdiff_t length = end - position;
    if (length < 1 || length > 2 * blockSize || textEnd - position < blockSize)
        return std::nullopt;

    // The last eight characters with the point, and what stands before them.
    const std::ptrdiff_t firstLength = length - blockSize;
    DigitBlock last(firstLength > 0 ? position + firstLength : position, firstLength > 0 ? blockSize : length);
    const std::uint64_t other = last.others();
    int decimals = 0;
    if (other != 0) {
        if (length == 1 || !last.removePoint(other))
            return std::nullopt;
        decimals = 7 - (std::countr_zero(other) >> 3);
    }
    std::uint64_t mantissa = last.value();
    if (firstLength > 0) {
        const DigitBlock first(position, firstLength);
        if (other == 0 || first.others() != 0)
            return std::nullopt;
        mantissa += first.value() * sevenDigits;
    }
    const double magnitude = static_cast<double>(mantissa) / powersOfTen[static_cast<std::size_t>(decimals)];
    return isNegative ? -magnitude : magnitude;
}

/// Reads a field of one to eight digits. Every other field is left to `parseInteger`.
/// @param textEnd how far may be read behind the field
[[nodiscard]] inline std::optional<std::int64_t> readPlainInteger(std::string_view field, const char* textEnd) noexcept
{
    const char* const position = field.data();
    if (field.empty() || field.size() > 8 || textEnd - position < 8)
        return std::nullopt;
    const DigitBlock digits(position, std::ssize(field));
    if (digits.others() != 0)
        return std::nullopt;
    return static_cast<std::int64_t>(digits.value());
}

} // namespace ospra
