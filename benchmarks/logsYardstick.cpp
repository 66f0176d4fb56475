#include "benchmarks/logsYardstick.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstring>

namespace ospra {

namespace {

constexpr std::size_t columnCount = 14;
using Fields = std::array<std::string_view, columnCount>;

template <class Number>
bool readNumber(std::string_view field, Number& number)
{
    const char* const start = field.data();
    const char* const end = start + field.size();
    const std::from_chars_result result = std::from_chars(start, end, number);
    return result.ec == std::errc{} && result.ptr == end;
}

/// `2024-06-01T14:02:11.20Z`, any number of digits behind the point.
bool readTime(std::string_view field, Instant& time)
{
    if (field.size() < 22 || field[4] != '-' || field[7] != '-' || field[10] != 'T' || field[13] != ':' ||
        field[16] != ':' || field[19] != '.' || field.back() != 'Z')
        return false;
    const auto two = [field](std::size_t at) { return (field[at] - '0') * 10 + (field[at + 1] - '0'); };
    const std::chrono::year_month_day day{std::chrono::year{two(0) * 100 + two(2)},
                                          std::chrono::month{static_cast<unsigned>(two(5))},
                                          std::chrono::day{static_cast<unsigned>(two(8))}};
    const auto days = std::chrono::sys_days(day).time_since_epoch().count();
    int milliseconds = 0;
    int unit = 100;
    for (std::size_t i = 20; i + 1 < field.size(); ++i, unit /= 10)
        milliseconds += (field[i] - '0') * unit;
    const int secondOfDay = two(11) * 3600 + two(14) * 60 + two(17);
    const std::int64_t seconds = days * std::int64_t{86'400} + secondOfDay;
    time.seconds = static_cast<double>(seconds) + milliseconds / 1000.0;
    return day.ok();
}

bool readRow(const Fields& fields, FlySightDataPoint& sample)
{
    sample.id = makeUuid();
    if (!readTime(fields[0], sample.time) || !readNumber(fields[1], sample.coordinate.latitude) ||
        !readNumber(fields[2], sample.coordinate.longitude) || !readNumber(fields[3], sample.altitudeMSL) ||
        !readNumber(fields[4], sample.velocityNorth) || !readNumber(fields[5], sample.velocityEast) ||
        !readNumber(fields[6], sample.velocityDown))
        return false;
    readNumber(fields[7], sample.horizontalAccuracy);
    readNumber(fields[8], sample.verticalAccuracy);
    readNumber(fields[9], sample.speedAccuracy);
    readNumber(fields[10], sample.heading);
    double unused = 0.0; // there is no room for this column in a sample, and every field counts
    readNumber(fields[11], unused);
    readNumber(fields[12], sample.gpsFix);
    readNumber(fields[13], sample.numSatellites);
    return true;
}

} // namespace

std::vector<FlySightDataPoint> readPlainly(std::string_view text)
{
    constexpr std::size_t shortRow = 64;
    std::vector<FlySightDataPoint> samples;
    samples.reserve(text.size() / shortRow);
    const char* line = text.data();
    const char* const end = line + text.size();
    const auto find = [](const char* from, const char* to, char wanted) {
        const void* const found = std::memchr(from, wanted, static_cast<std::size_t>(to - from));
        return found != nullptr ? static_cast<const char*>(found) : to;
    };
    for (int number = 0; line < end; ++number) {
        const char* const lineEnd = find(line, end, '\n');
        if (number >= 2) {
            Fields fields{};
            const char* field = line;
            for (std::size_t i = 0; i < columnCount && field <= lineEnd; ++i) {
                const char* const fieldEnd = find(field, lineEnd, ',');
                fields[i] = {field, fieldEnd};
                field = fieldEnd + 1;
            }
            FlySightDataPoint sample;
            if (readRow(fields, sample))
                samples.push_back(sample);
        }
        line = lineEnd + 1;
    }
    return samples;
}

} // namespace ospra
