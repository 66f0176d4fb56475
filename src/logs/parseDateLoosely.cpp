#include "logs/parseDate.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace ospra {

namespace {

/// The zeros of all decimal digits of Unicode 15 (general category Nd); the nine other digits of a script follow its
/// zero.
constexpr std::array<char32_t, 68> decimalZeros{
    0x0030,  0x0660,  0x06F0,  0x07C0,  0x0966,  0x09E6,  0x0A66,  0x0AE6,  0x0B66,  0x0BE6,  0x0C66,  0x0CE6,
    0x0D66,  0x0DE6,  0x0E50,  0x0ED0,  0x0F20,  0x1040,  0x1090,  0x17E0,  0x1810,  0x1946,  0x19D0,  0x1A80,
    0x1A90,  0x1B50,  0x1BB0,  0x1C40,  0x1C50,  0xA620,  0xA8D0,  0xA900,  0xA9D0,  0xA9F0,  0xAA50,  0xABF0,
    0xFF10,  0x104A0, 0x10D30, 0x11066, 0x110F0, 0x11136, 0x111D0, 0x112F0, 0x11450, 0x114D0, 0x11650, 0x116C0,
    0x11730, 0x118E0, 0x11950, 0x11C50, 0x11D50, 0x11DA0, 0x11F50, 0x16A60, 0x16AC0, 0x16B50, 0x1D7CE, 0x1D7D8,
    0x1D7E2, 0x1D7EC, 0x1D7F6, 0x1E140, 0x1E2F0, 0x1E4F0, 0x1E950, 0x1FBF0};

/// The bytes of the decimal digit that the UTF-8 text begins with; 0 if it begins with something else.
std::size_t decimalDigitLength(std::string_view text)
{
    if (text.empty())
        return 0;
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() < length)
        return 0;
    char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
    for (const char continuation : text.substr(1, length - 1))
        character = character << 6 | (static_cast<unsigned char>(continuation) & 0x3Fu);
    const auto* const above = std::ranges::upper_bound(decimalZeros, character);
    return above != decimalZeros.begin() && character - *(above - 1) < 10 ? length : 0;
}

} // namespace

std::optional<Instant> parseDateLoosely(std::string_view field)
{
    if (const std::optional<Instant> date = parseDate(field))
        return date;

    constexpr std::size_t longestDate = 25; // 2024-06-01T14:02:11+02:00
    std::array<char, longestDate> kept{};
    std::size_t keptCount = 0;
    while (!field.empty()) {
        if (field[0] == '.' && decimalDigitLength(field.substr(1)) != 0) {
            field.remove_prefix(1);
            while (const std::size_t length = decimalDigitLength(field))
                field.remove_prefix(length);
            continue;
        }
        if (keptCount == longestDate)
            return std::nullopt;
        kept[keptCount++] = field[0];
        field.remove_prefix(1);
    }
    const std::optional<DateParts> parts = parseDateParts({kept.data(), keptCount});
    // What still has a fraction had two points in a row or digits of two scripts, and is no date of the second form.
    if (!parts || parts->form == DateForm::withFraction)
        return std::nullopt;
    return parts->instant();
}

} // namespace ospra
