#include "logs/probeLogDates.h"

#include "logs/ColumnMap.h"
#include "logs/LineReader.h"
#include "logs/parseDate.h"
#include "logs/parseDouble.h"
#include "logs/plainNumber.h"
#include "platform/Files.h"

namespace ospra {

namespace {

constexpr double fallSinkRate = 20.0; // m/s; a sample that sinks faster dates the freefall

/// Where the two columns stand that the probe reads.
struct ProbeColumns {
    std::ptrdiff_t time = 0;
    std::ptrdiff_t sinkRate = 0;
};

bool sinksFast(const char* field, const char* textEnd)
{
    if (field == textEnd || *field == '-') // whatever follows a minus, it is no number above 0
        return false;
    const std::string_view text(field, findFieldEnd(field, textEnd));
    std::optional<double> sinkRate = readPlainNumber(text, textEnd);
    if (!sinkRate)
        sinkRate = parseDouble(text);
    return sinkRate && *sinkRate > fallSinkRate;
}

/// The time field of a row that has one.
std::optional<std::string_view> timeField(const char* row, const char* textEnd, ProbeColumns columns)
{
    const std::optional<const char*> field = skipFields(row, textEnd, columns.time);
    if (!field)
        return std::nullopt;
    return std::string_view(*field, findFieldEnd(*field, textEnd));
}

/// The dates of a plain table. Only the first row can give the date of the jump.
LogDates probeVersion1(std::string_view header, LineReader& lines)
{
    if (!lines.next()) // the units
        return {};
    const std::string_view rows = lines.rest();
    const char* row = rows.data();
    const char* const end = row + rows.size();
    row = skipLineEnds(row, end);
    if (row == end)
        return {};
    const ColumnMap map(header);
    const ProbeColumns columns{.time = map.position(Column::time).value_or(0),
                               .sinkRate = map.position(Column::velocityDown).value_or(6)};
    LogDates dates;
    if (const std::optional<std::string_view> time = timeField(row, end, columns))
        dates.jumpDate = parseDateLoosely(*time);
    for (FieldOfLine found; row != end; row = skipLineEnds(found.lineEnd, end)) {
        found = findFieldOfLine(row, end, columns.sinkRate);
        if (found.field == nullptr || !sinksFast(found.field, end))
            continue;
        if (const std::optional<std::string_view> time = timeField(row, end, columns)) {
            dates.freefallDate = parseDateLoosely(*time);
            break;
        }
    }
    return dates;
}

/// The columns of a log of tagged records; absent if it does not tell where the sink rate stands, or has no data.
std::optional<ProbeColumns> probeHead(LineReader& lines)
{
    ColumnMap map;
    for (std::optional<std::string_view> line = lines.next(); line; line = lines.next()) {
        if (line->starts_with(columnsTag))
            map = ColumnMap(line->substr(columnsTag.size()));
        if (*line != dataTag)
            continue;
        if (!map.holds(Column::velocityDown))
            return std::nullopt;
        return ProbeColumns{.time = map.position(Column::time).value_or(0),
                            .sinkRate = *map.position(Column::velocityDown)};
    }
    return std::nullopt;
}

/// The dates of a log of tagged records. The first row with a good time dates the jump.
LogDates probeVersion2(LineReader& lines)
{
    LogDates dates;
    const std::optional<ProbeColumns> columns = probeHead(lines);
    if (!columns)
        return dates;
    const std::string_view rows = lines.rest();
    const char* const start = rows.data();
    const char* const end = start + rows.size();
    FieldOfLine found;
    for (const char* line = skipLineEnds(start, end); line != end; line = skipLineEnds(found.lineEnd, end)) {
        if (!std::string_view(line, end).starts_with(sampleTag)) {
            found.lineEnd = findLineEnd(line, end);
            continue;
        }
        const char* const row = line + sampleTag.size();
        found = findFieldOfLine(row, end, columns->sinkRate);
        if (found.field == nullptr)
            continue;
        const bool isFast = sinksFast(found.field, end);
        if (dates.jumpDate && !isFast)
            continue;
        const std::optional<std::string_view> time = timeField(row, end, *columns);
        if (!time)
            continue;
        const std::optional<Instant> date = parseDateLoosely(*time);
        if (!dates.jumpDate)
            dates.jumpDate = date;
        if (isFast) {
            dates.freefallDate = date;
            break;
        }
    }
    return dates;
}

} // namespace

LogDates probeLogDates(std::string_view bytes)
{
    if (!isValidUtf8(bytes))
        return {};
    LineReader lines(bytes);
    const std::optional<std::string_view> firstLine = lines.next();
    if (!firstLine)
        return {};
    return firstLine->starts_with(versionTag) ? probeVersion2(lines) : probeVersion1(*firstLine, lines);
}

} // namespace ospra
