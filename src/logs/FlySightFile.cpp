#include "logs/FlySightFile.h"

#include "logs/ColumnMap.h"
#include "logs/FlySightParseError.h"
#include "logs/LineReader.h"
#include "logs/RowReader.h"
#include "platform/preferLargePages.h"

#include <cmath>
#include <optional>
#include <utility>

namespace ospra {

namespace {

using Samples = std::vector<FlySightDataPoint>;

/// Whether the rows that samples are made of bear a tag.
enum class Rows { plain, tagged };

/// Reads the samples of all rows in the text. The capacity is what the text has room for, so that the samples never
/// move while they are read; memory that no sample is written to is never touched.
Samples readRows(std::string_view text, const ColumnMap& columns, Rows rows)
{
    const char* const start = text.data();
    const char* const end = start + text.size();
    const std::size_t tagLength = rows == Rows::tagged ? sampleTag.size() : 0;
    RowReader reader(columns, end);
    Samples samples;
    const std::optional<std::size_t> shortestRow = reader.shortestRow();
    if (!shortestRow)
        return samples;
    samples.reserve((text.size() + 1) / (*shortestRow + tagLength));
    preferLargePages(samples.data(), samples.capacity() * sizeof(FlySightDataPoint));
    for (const char* line = skipLineEnds(start, end); line != end; line = skipLineEnds(line, end)) {
        if (rows == Rows::tagged && !std::string_view(line, end).starts_with(sampleTag))
            line = findLineEnd(line, end);
        else
            line = reader.read(line + tagLength, samples);
    }
    return samples;
}

/// The plain table: names, units, rows.
Samples readVersion1(std::string_view header, LineReader& lines)
{
    const bool hasUnits = lines.next().has_value();
    const std::string_view rows = lines.rest();
    const bool hasRow = LineReader(lines).next().has_value();
    const ColumnMap columns(hasUnits && hasRow ? header : "");
    if (!columns.isComplete())
        throw FlySightParseError(FlySightParseError::Case::invalidFormat);
    return readRows(rows, columns, Rows::plain);
}

/// The tagged records: a head that names the columns, then rows among records of other sensors.
Samples readVersion2(LineReader& lines)
{
    ColumnMap columns;
    for (std::optional<std::string_view> line = lines.next(); line; line = lines.next()) {
        if (line->starts_with(columnsTag))
            columns = ColumnMap(line->substr(columnsTag.size()));
        if (*line == dataTag && columns.isComplete())
            return readRows(lines.rest(), columns, Rows::tagged);
        if (*line == dataTag)
            break;
    }
    throw FlySightParseError(FlySightParseError::Case::invalidFormat);
}

} // namespace

double horizontalSpeed(const FlySightDataPoint& sample)
{
    return std::sqrt(sample.velocityNorth * sample.velocityNorth + sample.velocityEast * sample.velocityEast);
}

double totalSpeed(const FlySightDataPoint& sample)
{
    return std::sqrt(sample.velocityNorth * sample.velocityNorth + sample.velocityEast * sample.velocityEast +
                     sample.velocityDown * sample.velocityDown);
}

FlySightFile FlySightFile::parse(std::string_view text, std::string fileName)
{
    LineReader lines(text);
    const std::optional<std::string_view> firstLine = lines.next();
    if (!firstLine)
        throw FlySightParseError(FlySightParseError::Case::invalidFormat);
    Samples samples = firstLine->starts_with(versionTag) ? readVersion2(lines) : readVersion1(*firstLine, lines);
    if (samples.empty())
        throw FlySightParseError(FlySightParseError::Case::noData);
    return {.id = makeUuid(), .fileName = std::move(fileName), .dataPoints = std::move(samples)};
}

} // namespace ospra
