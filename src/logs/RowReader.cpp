#include "logs/RowReader.h"

#include "logs/byteScan.h"
#include "logs/parseDate.h"
#include "logs/parseDouble.h"
#include "logs/plainNumber.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <span>

namespace ospra {

namespace {

constexpr std::array requiredColumns{Column::time,        Column::latitude,      Column::longitude,
                                     Column::altitudeMSL, Column::velocityNorth, Column::velocityEast,
                                     Column::velocityDown};

constexpr std::ptrdiff_t shortestDate = 20; // 2024-06-01T14:02:11Z

constexpr std::ptrdiff_t noIndex = std::numeric_limits<std::ptrdiff_t>::max(); // behind the end of every row

static_assert(static_cast<std::size_t>(Column::velocityDown) == 5 && static_cast<std::size_t>(Column::time) == 11);

} // namespace

RowReader::RowReader(const ColumnMap& columns, const char* textEnd) : m_textEnd(textEnd)
{
    for (const Column column : allColumns) {
        const std::optional<std::ptrdiff_t> position = columns.position(column);
        m_indices[static_cast<std::size_t>(column)] = position.value_or(noIndex);
        if (position)
            m_positions[m_positionCount++] = *position;
    }
    const std::span<std::ptrdiff_t> positions(m_positions.data(), m_positionCount);
    std::ranges::sort(positions);
    m_isWide = !positions.empty() && positions.back() >= RowFields::most;
    if (!m_isWide)
        return;
    for (std::ptrdiff_t& index : m_indices) {
        if (index != noIndex)
            index = 2 * (std::ranges::lower_bound(positions, index) - positions.begin());
    }
}

std::optional<std::size_t> RowReader::shortestRow() const
{
    std::ptrdiff_t lastIndex = 0;
    for (const Column column : requiredColumns)
        lastIndex = std::max(lastIndex, indexOf(column));
    if (lastIndex == noIndex)
        return std::nullopt;
    const auto commas = static_cast<std::size_t>(m_isWide ? lastIndex / 2 : lastIndex);
    return static_cast<std::size_t>(shortestDate) + (requiredColumns.size() - 1) + commas + 1;
}

const char* RowReader::read(const char* row, std::vector<FlySightDataPoint>& samples)
{
    // A line too short for a date, as there are millions in a text that is no log, is not worth cutting.
    if (m_textEnd - row >= ByteBlock::size && ByteBlock(row).lineEnds != 0) {
        const char* const lineEnd = findLineEnd(row, m_textEnd);
        if (lineEnd - row < shortestDate)
            return lineEnd;
    }
    const RowFields fields = cut(row);
    Instant time;
    Numbers numbers{};
    if (!readTime(fields, time) || !readNumbers(fields, numbers))
        return fields.lineEnd();
    const auto number = [&numbers](Column column) { return numbers[static_cast<std::size_t>(column)]; };
    const FlySightDataPoint defaults;
    samples.push_back({.id = makeUuid(),
                       .time = time,
                       .coordinate = {.latitude = number(Column::latitude), .longitude = number(Column::longitude)},
                       .altitudeMSL = number(Column::altitudeMSL),
                       .velocityNorth = number(Column::velocityNorth),
                       .velocityEast = number(Column::velocityEast),
                       .velocityDown = number(Column::velocityDown),
                       .horizontalAccuracy = number(Column::horizontalAccuracy),
                       .verticalAccuracy = number(Column::verticalAccuracy),
                       .speedAccuracy = number(Column::speedAccuracy),
                       .gpsFix = readInteger(fields, Column::gpsFix).value_or(defaults.gpsFix),
                       .numSatellites = readInteger(fields, Column::numSatellites).value_or(defaults.numSatellites),
                       .heading = number(Column::heading),
                       .headingAccuracy = number(Column::headingAccuracy)});
    return fields.lineEnd();
}

RowFields RowReader::cut(const char* row) const
{
    if (m_isWide)
        return RowFields(row, m_textEnd, {m_positions.data(), m_positionCount});
    return RowFields(row, m_textEnd);
}

/// @return false if a number that is required cannot be read; any other is 0 then
bool RowReader::readNumbers(const RowFields& fields, Numbers& numbers) const
{
    for (std::size_t i = 0; i < numberCount; ++i) {
        std::optional<double> number;
        if (m_indices[i] < fields.count()) {
            const std::string_view field = fields[m_indices[i]];
            number = readPlainNumber(field, m_textEnd);
            if (!number)
                number = parseDouble(field);
        }
        if (!number && i < requiredNumbers)
            return false;
        numbers[i] = number.value_or(0.0);
    }
    return true;
}

std::optional<std::int64_t> RowReader::readInteger(const RowFields& fields, Column column) const
{
    const std::ptrdiff_t index = indexOf(column);
    if (index >= fields.count())
        return std::nullopt;
    const std::optional<std::int64_t> plain = readPlainInteger(fields[index], m_textEnd);
    return plain ? plain : parseInteger(fields[index]);
}

bool RowReader::readTime(const RowFields& fields, Instant& time)
{
    const std::ptrdiff_t index = indexOf(Column::time);
    if (index >= fields.count())
        return false;
    const std::string_view field = fields[index];
    if (const std::optional<Instant> plain = readPlainTime(field)) {
        time = *plain;
        return true;
    }
    const std::optional<DateParts> parts = parseDateParts(field);
    if (!parts)
        return false;
    time = parts->instant();
    if (field.ends_with('Z')) {
        const std::int64_t second = ((parts->wholeSeconds % 60) + 60) % 60;
        m_minute.start = parts->wholeSeconds - second;
        std::ranges::copy(field.substr(0, m_minute.text.size()), m_minute.text.begin());
    }
    return true;
}

/// Reads a date in UTC of the same minute as the one before; absent if the field is something else.
std::optional<Instant> RowReader::readPlainTime(std::string_view field) const
{
    constexpr std::size_t secondsAt = 17;
    constexpr auto shortest = static_cast<std::size_t>(shortestDate);
    constexpr std::size_t longest = 30; // 2024-06-01T14:02:11.123456789Z
    if (field.size() < shortest || field.size() > longest || field.back() != 'Z' ||
        std::memcmp(field.data(), m_minute.text.data(), secondsAt) != 0)
        return std::nullopt;
    const char tens = field[secondsAt];
    const char ones = field[secondsAt + 1];
    if (tens < '0' || tens > '5' || !isDigit(ones))
        return std::nullopt;
    DateParts parts{.wholeSeconds = m_minute.start + std::int64_t{tens - '0'} * 10 + (ones - '0')};
    if (field.size() > shortest) {
        const std::string_view fraction = field.substr(secondsAt + 2, field.size() - shortest);
        if (fraction.size() < 2 || fraction[0] != '.')
            return std::nullopt;
        int unit = 100;
        for (const char digit : fraction.substr(1)) {
            if (!isDigit(digit))
                return std::nullopt;
            parts.milliseconds += (digit - '0') * unit;
            unit /= 10;
        }
    }
    return parts.instant();
}

} // namespace ospra
