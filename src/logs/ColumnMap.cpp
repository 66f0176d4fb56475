#include "logs/ColumnMap.h"

#include "logs/byteScan.h"

#include <algorithm>

namespace ospra {

namespace {

/// A name of at most seven letters as one number, with its length above the letters.
constexpr std::uint64_t packedName(std::string_view name)
{
    std::uint64_t packed = name.size();
    for (const char letter : name) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        packed = packed << 8 | static_cast<unsigned char>(isCapital ? letter - 'A' + 'a' : letter);
    }
    return packed;
}

std::optional<Column> columnNamed(std::string_view name)
{
    constexpr std::size_t shortestName = 3;
    constexpr std::size_t longestName = 7;
    if (name.size() < shortestName || name.size() > longestName)
        return std::nullopt;
    switch (packedName(name)) {
    case packedName("time"): return Column::time;
    case packedName("lat"): return Column::latitude;
    case packedName("lon"): return Column::longitude;
    case packedName("hmsl"): return Column::altitudeMSL;
    case packedName("veln"): return Column::velocityNorth;
    case packedName("vele"): return Column::velocityEast;
    case packedName("veld"): return Column::velocityDown;
    case packedName("hacc"): return Column::horizontalAccuracy;
    case packedName("vacc"): return Column::verticalAccuracy;
    case packedName("sacc"): return Column::speedAccuracy;
    case packedName("gpsfix"): return Column::gpsFix;
    case packedName("numsv"): return Column::numSatellites;
    case packedName("heading"): return Column::heading;
    case packedName("headacc"): return Column::headingAccuracy;
    default: return std::nullopt;
    }
}

/// Whether the bytes are one space separator (Unicode category Zs) or a tab.
bool isBlank(std::string_view bytes)
{
    switch (bytes.size()) {
    case 1: return bytes == " " || bytes == "\t";
    case 2: return bytes == "\xC2\xA0";
    case 3:
        if (bytes.starts_with("\xE2\x80")) {
            const auto last = static_cast<unsigned char>(bytes[2]);
            return (last >= 0x80 && last <= 0x8A) || last == 0xAF;
        }
        return bytes == "\xE1\x9A\x80" || bytes == "\xE2\x81\x9F" || bytes == "\xE3\x80\x80";
    default: return false;
    }
}

enum class Side { front, back };

/// The bytes of the blank that stands at this side of the text; 0 if something else stands there.
std::size_t blankLength(std::string_view text, Side side)
{
    constexpr std::size_t longest = 3;
    for (std::size_t length = 1; length <= std::min(longest, text.size()); ++length) {
        if (isBlank(text.substr(side == Side::front ? 0 : text.size() - length, length)))
            return length;
    }
    return 0;
}

std::string_view withoutBlanksAround(std::string_view text)
{
    while (const std::size_t length = blankLength(text, Side::front))
        text.remove_prefix(length);
    while (const std::size_t length = blankLength(text, Side::back))
        text.remove_suffix(length);
    return text;
}

} // namespace

ColumnMap::ColumnMap(std::string_view names)
{
    const char* name = names.data();
    const char* const end = name + names.size();
    for (std::ptrdiff_t position = 0;; ++position) {
        const char* const nameEnd = findFieldEnd(name, end);
        if (const std::optional<Column> column = columnNamed(withoutBlanksAround({name, nameEnd})))
            m_positions[static_cast<std::size_t>(*column)] = position;
        if (nameEnd == end)
            break;
        name = nameEnd + 1;
    }
}

bool ColumnMap::isComplete() const
{
    constexpr std::array required{Column::time, Column::latitude, Column::longitude, Column::altitudeMSL,
                                  Column::velocityDown};
    return std::ranges::all_of(required, [this](Column column) { return holds(column); });
}

} // namespace ospra
