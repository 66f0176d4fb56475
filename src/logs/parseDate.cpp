#include "logs/parseDate.h"

#include "logs/byteScan.h"

#include <chrono>
#include <cstddef>

namespace ospra {

namespace {

constexpr std::size_t zoneOffsetLength = 6; // +02:00

/// The value of the `count` characters from `position` on, which the field must have; absent if one is no digit.
std::optional<int> digitsAt(std::string_view field, std::size_t position, std::size_t count)
{
    int value = 0;
    for (const char character : field.substr(position, count)) {
        if (!isDigit(character))
            return std::nullopt;
        value = value * 10 + (character - '0');
    }
    return value;
}

/// Seconds since 1970 of the first 19 characters, `2024-06-01T14:02:11`.
std::optional<std::int64_t> parseDateAndTime(std::string_view field)
{
    constexpr std::string_view pattern = "0000-00-00T00:00:00";
    if (field.size() < pattern.size())
        return std::nullopt;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '0' ? !isDigit(field[i]) : field[i] != pattern[i])
            return std::nullopt;
    }
    const auto numberAt = [field](std::size_t position, std::size_t count) {
        return digitsAt(field, position, count).value_or(0);
    };
    const std::chrono::year_month_day day{std::chrono::year{numberAt(0, 4)},
                                          std::chrono::month{static_cast<unsigned>(numberAt(5, 2))},
                                          std::chrono::day{static_cast<unsigned>(numberAt(8, 2))}};
    const int hour = numberAt(11, 2);
    const int minute = numberAt(14, 2);
    const int second = numberAt(17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    const std::int64_t days = std::chrono::sys_days(day).time_since_epoch().count();
    return ((days * 24 + hour) * 60 + minute) * 60 + second;
}

/// Seconds east of Greenwich from `Z`, `+02:00` or `-02:00`.
std::optional<int> parseZone(std::string_view zone)
{
    if (zone == "Z")
        return 0;
    if (zone.size() != zoneOffsetLength || (zone[0] != '+' && zone[0] != '-') || zone[3] != ':')
        return std::nullopt;
    const std::optional<int> hours = digitsAt(zone, 1, 2);
    const std::optional<int> minutes = digitsAt(zone, 4, 2);
    if (!hours || !minutes || *hours > 23 || *minutes > 59)
        return std::nullopt;
    const int offset = (*hours * 60 + *minutes) * 60;
    return zone[0] == '-' ? -offset : offset;
}

} // namespace

std::optional<DateParts> parseDateParts(std::string_view field)
{
    constexpr std::size_t timeLength = 19;
    constexpr std::size_t mostFractionDigits = 9;
    const std::optional<std::int64_t> localSeconds = parseDateAndTime(field);
    if (!localSeconds)
        return std::nullopt;

    DateParts parts;
    std::size_t zoneStart = timeLength;
    if (field.size() > timeLength && field[timeLength] == '.') {
        parts.form = DateForm::withFraction;
        int unit = 100;
        for (++zoneStart; zoneStart < field.size() && isDigit(field[zoneStart]); ++zoneStart) {
            parts.milliseconds += (field[zoneStart] - '0') * unit;
            unit /= 10;
        }
        const std::size_t digits = zoneStart - timeLength - 1;
        if (digits == 0 || digits > mostFractionDigits)
            return std::nullopt;
    }
    const std::optional<int> offset = parseZone(field.substr(zoneStart));
    if (!offset)
        return std::nullopt;
    parts.wholeSeconds = *localSeconds - *offset;
    return parts;
}

std::optional<Instant> parseDate(std::string_view field)
{
    const std::optional<DateParts> parts = parseDateParts(field);
    return parts ? std::optional(parts->instant()) : std::nullopt;
}

} // namespace ospra
