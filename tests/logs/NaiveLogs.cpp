#include "tests/logs/NaiveLogs.h"

#include "platform/Files.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <map>
#include <set>
#include <utility>

namespace ospra::naive {

namespace {

using Fields = std::vector<std::string>;
using Columns = std::map<std::string, std::size_t>;

Fields nonEmptyLines(std::string_view text)
{
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    Fields lines{""};
    while (!text.empty()) {
        std::size_t lineEnd = 0;
        for (const std::string_view newline : {"\n", "\v", "\f", "\r", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"}) {
            if (text.starts_with(newline))
                lineEnd = newline.size();
        }
        if (lineEnd == 0)
            lines.back() += text[0];
        else if (!lines.back().empty())
            lines.emplace_back();
        text.remove_prefix(lineEnd == 0 ? 1 : lineEnd);
    }
    if (lines.back().empty())
        lines.pop_back();
    return lines;
}

Fields split(const std::string& line)
{
    Fields fields{""};
    for (const char character : line) {
        if (character == ',')
            fields.emplace_back();
        else
            fields.back() += character;
    }
    return fields;
}

std::string normalised(const std::string& name)
{
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(name);
    const auto isBlank = [](UChar32 c) { return c == '\t' || u_charType(c) == U_SPACE_SEPARATOR; };
    while (!text.isEmpty() && isBlank(text.char32At(0)))
        text.remove(0, 1);
    while (!text.isEmpty() && isBlank(text.char32At(text.length() - 1)))
        text.truncate(text.length() - 1);
    std::string result;
    text.toUTF8String(result);
    for (char& character : result)
        character = character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
    return result;
}

Columns columnsOf(const Fields& names)
{
    Columns columns;
    for (std::size_t i = 0; i < names.size(); ++i)
        columns[normalised(names[i])] = i;
    return columns;
}

std::optional<std::int64_t> integer(const std::string& field)
{
    const std::string digits = !field.empty() && (field[0] == '+' || field[0] == '-') ? field.substr(1) : field;
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    errno = 0;
    const long long value = std::strtoll(field.c_str(), nullptr, 10);
    return errno == 0 ? std::optional<std::int64_t>(value) : std::nullopt;
}

/// Whether the text has digits where the pattern has zeros, and is the pattern elsewhere.
bool matches(const std::string& text, std::string_view pattern)
{
    bool isMatch = text.size() == pattern.size();
    for (std::size_t i = 0; isMatch && i < text.size(); ++i)
        isMatch = pattern[i] == '0' ? text[i] >= '0' && text[i] <= '9' : text[i] == pattern[i];
    return isMatch;
}

std::optional<double> wholeSeconds(const std::string& text)
{
    if (!matches(text, "0000-00-00T00:00:00"))
        return std::nullopt;
    std::tm given{};
    given.tm_year = std::stoi(text.substr(0, 4)) - 1900;
    given.tm_mon = std::stoi(text.substr(5, 2)) - 1;
    given.tm_mday = std::stoi(text.substr(8, 2));
    given.tm_hour = std::stoi(text.substr(11, 2));
    given.tm_min = std::stoi(text.substr(14, 2));
    given.tm_sec = std::stoi(text.substr(17, 2));
    std::tm normal = given; // a day or time that does not exist comes back as another
    const std::time_t seconds = timegm(&normal);
    const auto key = [](const std::tm& tm) {
        return std::array{tm.tm_year, tm.tm_mon, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
    };
    return key(given) == key(normal) ? std::optional(static_cast<double>(seconds)) : std::nullopt;
}

std::optional<double> zoneSeconds(const std::string& zone)
{
    if (zone == "Z")
        return 0.0;
    if (!matches(zone, "+00:00") && !matches(zone, "-00:00"))
        return std::nullopt;
    const int hours = std::stoi(zone.substr(1, 2));
    const int minutes = std::stoi(zone.substr(4, 2));
    if (hours > 23 || minutes > 59)
        return std::nullopt;
    return (zone[0] == '-' ? -60.0 : 60.0) * (hours * 60 + minutes);
}

std::optional<Instant> dateWithoutFraction(const std::string& field)
{
    if (field.size() < 20)
        return std::nullopt;
    const auto seconds = wholeSeconds(field.substr(0, 19));
    const auto zone = zoneSeconds(field.substr(19));
    return seconds && zone ? std::optional(Instant{*seconds - *zone}) : std::nullopt;
}

std::optional<Instant> dateWithFraction(const std::string& field)
{
    if (field.size() < 20 || field[19] != '.')
        return std::nullopt;
    const std::size_t zoneAt = std::min(field.find_first_not_of("0123456789", 20), field.size());
    std::string fraction = field.substr(20, zoneAt - 20);
    if (fraction.empty() || fraction.size() > 9)
        return std::nullopt;
    fraction.resize(3, '0');
    const auto date = dateWithoutFraction(field.substr(0, 19) + field.substr(zoneAt));
    return date ? std::optional(Instant{date->seconds + std::stoi(fraction) / 1000.0}) : std::nullopt;
}

std::optional<std::string> fieldOf(const Fields& row, const Columns& columns, const std::string& name)
{
    const auto column = columns.find(name);
    if (column == columns.end() || column->second >= row.size())
        return std::nullopt;
    return row[column->second];
}

std::optional<FlySightDataPoint> sampleOf(const Fields& row, const Columns& columns)
{
    const auto numberOf = [&](const std::string& name) {
        const auto field = fieldOf(row, columns, name);
        return field ? number(*field) : std::nullopt;
    };
    const auto integerOf = [&](const std::string& name) {
        const auto field = fieldOf(row, columns, name);
        return field ? integer(*field) : std::nullopt;
    };
    const auto time = date(fieldOf(row, columns, "time").value_or(""));
    for (const char* const name : {"lat", "lon", "hmsl", "veln", "vele", "veld"}) {
        if (!time || !numberOf(name))
            return std::nullopt;
    }
    return FlySightDataPoint{.time = *time,
                             .coordinate = {*numberOf("lat"), *numberOf("lon")},
                             .altitudeMSL = *numberOf("hmsl"),
                             .velocityNorth = *numberOf("veln"),
                             .velocityEast = *numberOf("vele"),
                             .velocityDown = *numberOf("veld"),
                             .horizontalAccuracy = numberOf("hacc").value_or(0.0),
                             .verticalAccuracy = numberOf("vacc").value_or(0.0),
                             .speedAccuracy = numberOf("sacc").value_or(0.0),
                             .gpsFix = integerOf("gpsfix").value_or(3),
                             .numSatellites = integerOf("numsv").value_or(0),
                             .heading = numberOf("heading").value_or(0.0),
                             .headingAccuracy = numberOf("headacc").value_or(0.0)};
}

/// The columns and the rows of a log; absent where a log of version 2 has no data.
struct Body {
    Columns columns;
    std::vector<Fields> rows;
};

std::optional<Body> bodyOf(const Fields& lines)
{
    Body body;
    if (!lines[0].starts_with("$FLYS")) {
        body.columns = columnsOf(split(lines[0]));
        for (std::size_t i = 2; i < lines.size(); ++i)
            body.rows.push_back(split(lines[i]));
        return body;
    }
    bool isData = false;
    for (const std::string& line : lines) {
        if (isData && line.starts_with("$GNSS,"))
            body.rows.push_back(split(line.substr(6)));
        else if (!isData && line.starts_with("$COL,GNSS,"))
            body.columns = columnsOf(split(line.substr(10)));
        isData = isData || line == "$DATA";
    }
    return isData ? std::optional(body) : std::nullopt;
}

bool sameNumber(double left, double right)
{
    return (std::isnan(left) && std::isnan(right)) ||
           std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

bool sameSample(const FlySightDataPoint& left, const FlySightDataPoint& right)
{
    const auto numbers = [](const FlySightDataPoint& s) {
        return std::array{
            s.time.seconds, s.coordinate.latitude, s.coordinate.longitude, s.altitudeMSL,      s.velocityNorth,
            s.velocityEast, s.velocityDown,        s.horizontalAccuracy,   s.verticalAccuracy, s.speedAccuracy,
            s.heading,      s.headingAccuracy};
    };
    bool isSame = left.gpsFix == right.gpsFix && left.numSatellites == right.numSatellites;
    for (std::size_t i = 0; i < numbers(left).size(); ++i)
        isSame = isSame && sameNumber(numbers(left)[i], numbers(right)[i]);
    return isSame;
}

} // namespace

std::optional<double> number(const std::string& field)
{
    if (field.empty() || std::string_view("\0\t\n\v\f\r ", 7).find(field[0]) != std::string_view::npos)
        return std::nullopt;
    char* end = nullptr;
    const double value = std::strtod(field.c_str(), &end);
    return end == field.c_str() + field.size() ? std::optional(value) : std::nullopt;
}

std::optional<Instant> date(const std::string& field)
{
    const auto withFraction = dateWithFraction(field);
    return withFraction ? withFraction : dateWithoutFraction(field);
}

std::optional<Instant> looseDate(const std::string& field)
{
    if (const auto found = date(field))
        return found;
    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher fractions(icu::UnicodeString("\\.\\d+"), 0, status);
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(field);
    fractions.reset(text);
    std::string rest;
    fractions.replaceAll(icu::UnicodeString(), status).toUTF8String(rest);
    return dateWithoutFraction(rest);
}

ParseResult parse(std::string_view text)
{
    using Case = FlySightParseError::Case;
    const Fields lines = nonEmptyLines(text);
    const auto body = lines.size() < 3 ? std::nullopt : bodyOf(lines);
    if (!body)
        return Case::invalidFormat;
    for (const char* const name : {"time", "lat", "lon", "hmsl", "veld"}) {
        if (!body->columns.contains(name))
            return Case::invalidFormat;
    }
    std::vector<FlySightDataPoint> samples;
    for (const Fields& row : body->rows) {
        if (const auto sample = sampleOf(row, body->columns))
            samples.push_back(*sample);
    }
    if (samples.empty())
        return Case::noData;
    return samples;
}

LogDates probe(std::string_view bytes)
{
    const Fields lines = isValidUtf8(bytes) ? nonEmptyLines(bytes) : Fields{};
    auto body = lines.size() < 3 ? std::nullopt : bodyOf(lines);
    LogDates dates;
    if (!body)
        return dates;
    const bool isVersion1 = !lines[0].starts_with("$FLYS");
    body->columns.try_emplace("time", 0);
    if (isVersion1)
        body->columns.try_emplace("veld", 6);
    if (isVersion1)
        dates.jumpDate = looseDate(fieldOf(body->rows.at(0), body->columns, "time").value_or(""));
    for (const Fields& row : body->rows) {
        const auto sinkRate = fieldOf(row, body->columns, "veld");
        const auto time = fieldOf(row, body->columns, "time");
        if (!sinkRate || !time)
            continue;
        if (!isVersion1 && !dates.jumpDate)
            dates.jumpDate = looseDate(*time);
        if (number(*sinkRate).value_or(0.0) > 20.0) {
            dates.freefallDate = looseDate(*time);
            break;
        }
    }
    return dates;
}

ParseResult parseFast(std::string_view text)
{
    try {
        return FlySightFile::parse(text, "log.csv").dataPoints;
    } catch (const FlySightParseError& error) {
        return error.errorCase();
    }
}

std::string difference(const ParseResult& left, const ParseResult& right)
{
    if (left.index() != right.index())
        return "one is an error, one is not";
    if (const auto* const error = std::get_if<FlySightParseError::Case>(&left))
        return *error == std::get<FlySightParseError::Case>(right) ? "" : "different errors";
    const auto& leftSamples = std::get<std::vector<FlySightDataPoint>>(left);
    const auto& rightSamples = std::get<std::vector<FlySightDataPoint>>(right);
    if (leftSamples.size() != rightSamples.size())
        return std::to_string(leftSamples.size()) + " and " + std::to_string(rightSamples.size()) + " samples";
    for (std::size_t i = 0; i < leftSamples.size(); ++i) {
        if (!sameSample(leftSamples[i], rightSamples[i]))
            return "sample " + std::to_string(i);
    }
    return "";
}

} // namespace ospra::naive
