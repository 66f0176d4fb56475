#include "tests/logs/NaiveLogs.h"

#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <map>

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

Columns columnsOf(const Fields& names)
{
    Columns columns;
    for (std::size_t i = 0; i < names.size(); ++i)
        columns[columnName(names[i])] = i;
    return columns;
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
    const auto textOf = [&](const std::string& name) { return fieldOf(row, columns, name).value_or(""); };
    const auto numberOf = [&](const std::string& name) { return number(textOf(name)); };
    const auto time = date(textOf("time"));
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
                             .gpsFix = integer(textOf("gpsfix")).value_or(3),
                             .numSatellites = integer(textOf("numsv")).value_or(0),
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
    return left.gpsFix == right.gpsFix && left.numSatellites == right.numSatellites &&
           std::ranges::equal(numbers(left), numbers(right), sameNumber);
}

} // namespace

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
    if (isVersion1) {
        body->columns.try_emplace("veld", 6);
        dates.jumpDate = looseDate(fieldOf(body->rows.at(0), body->columns, "time").value_or(""));
    }
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
    const auto& one = std::get<std::vector<FlySightDataPoint>>(left);
    const auto& other = std::get<std::vector<FlySightDataPoint>>(right);
    if (one.size() != other.size())
        return std::to_string(one.size()) + " and " + std::to_string(other.size()) + " samples";
    for (std::size_t i = 0; i < one.size(); ++i)
        if (!sameSample(one[i], other[i]))
            return "sample " + std::to_string(i);
    return "";
}

} // namespace ospra::naive
