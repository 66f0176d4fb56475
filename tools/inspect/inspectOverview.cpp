#include "library/groupJumps.h"
#include "library/scanFolder.h"
#include "logs/parseDate.h"
#include "overview/computeOverview.h"
#include "overview/overviewTexts.h"
#include "platform/Calendar.h"
#include "platform/DateTexts.h"
#include "platform/FolderAccess.h"
#include "platform/NaturalOrder.h"
#include "tools/inspect/JsonWriter.h"
#include "tools/inspect/commands.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace ospra {

namespace {

struct OverviewOptions {
    std::filesystem::path folder{};
    Instant now{};
    std::string timeZone{};
    std::unique_ptr<Calendar> calendar{};
    OverviewTimeRange range = OverviewTimeRange::oneYear;
    std::optional<Instant> day{};
};

std::optional<OverviewTimeRange> rangeNamed(std::string_view name)
{
    const auto range =
        std::ranges::find(allOverviewTimeRanges, name, [](OverviewTimeRange r) { return displayName(r); });
    return range == allOverviewTimeRanges.end() ? std::nullopt : std::optional(*range);
}

/// The start of a day written as YYYY-MM-DD, in the zone of the calendar; absent for a day that the zone has not.
std::optional<Instant> dayNamed(const std::string& text, const std::string& timeZone, const Calendar& calendar)
{
    const std::optional<Instant> noon = parseDate(text + "T12:00:00Z");
    if (!noon)
        return std::nullopt;
    const std::string wanted = makeDateTexts("en_US", "UTC")->date(*noon);
    const std::unique_ptr<DateTexts> texts = makeDateTexts("en_US", timeZone);
    // A zone's noon lies within half a day of noon in UTC, give or take two hours.
    for (const double hours : {0.0, -14.0, 14.0}) {
        const Instant start = calendar.startOfDay({noon->seconds + hours * 3600.0});
        if (texts->date(start) == wanted)
            return start;
    }
    return std::nullopt;
}

std::optional<OverviewOptions> parseOptions(std::span<const std::string> arguments)
{
    if (arguments.empty() || arguments.size() % 2 == 0)
        return std::nullopt;
    OverviewOptions options{.folder = standardizedPath(std::filesystem::absolute(arguments.front()))};
    int firstWeekday = 0;
    std::string day;
    std::optional<Instant> now;
    std::optional<OverviewTimeRange> range;
    for (std::size_t index = 1; index + 1 < arguments.size(); index += 2) {
        const std::string& value = arguments[index + 1];
        if (arguments[index] == "--now")
            now = parseDate(value);
        else if (arguments[index] == "--tz")
            options.timeZone = value;
        else if (arguments[index] == "--first-weekday" && value.size() == 1)
            firstWeekday = value.front() - '0';
        else if (arguments[index] == "--range")
            range = rangeNamed(value);
        else if (arguments[index] == "--day")
            day = value;
        else
            return std::nullopt;
    }
    options.calendar = makeCalendar(options.timeZone, firstWeekday);
    if (!now || !range || !options.calendar)
        return std::nullopt;
    options.now = *now;
    options.range = *range;
    if (!day.empty()) {
        options.day = dayNamed(day, options.timeZone, *options.calendar);
        if (!options.day)
            return std::nullopt;
    }
    return options;
}

void writePaths(JsonWriter& json, std::string_view key, std::span<const JumpGroup> groups,
                const std::filesystem::path& folder)
{
    json.key(key).beginList();
    for (const JumpGroup& group : groups)
        json.value(std::string_view(group.primaryEntry.url.lexically_relative(folder).native()));
    json.endList();
}

void writeDays(JsonWriter& json, std::span<const HeatmapDay> days)
{
    json.beginList();
    for (const HeatmapDay& day : days) {
        json.beginObject();
        json.member("date", day.date);
        json.member("count", std::int64_t{day.count});
        json.endObject();
    }
    json.endList();
}

void writeRange(JsonWriter& json, const OverviewAggregates& overview, const Calendar& calendar)
{
    json.member("cutoffDate", overview.cutoffDate);
    json.member("visibleJumps", std::int64_t{overview.visibleJumps});
    json.key("jumpsPerDay");
    writeDays(json, overview.jumpsPerDay);
    json.key("monthlyStats").beginList();
    for (const MonthStat& month : overview.monthlyStats) {
        json.beginObject();
        json.member("monthStart", month.monthStart);
        json.member("jumps", std::int64_t{month.jumps});
        json.member("avgPerWeek", month.avgPerWeek);
        json.endObject();
    }
    json.endList();
    json.key("weeks").beginList();
    for (std::ptrdiff_t index = 0; index < overview.heatmap.weekCount(); ++index) {
        const HeatmapWeek week = overview.heatmap.week(index, calendar);
        json.beginObject();
        json.member("weekStart", week.weekStart);
        json.key("days");
        writeDays(json, week.days);
        json.endObject();
    }
    json.endList();
    json.key("weeklyCounts").beginList();
    for (const int count : overview.heatmap.weeklyCounts())
        json.value(std::int64_t{count});
    json.endList();
    json.key("monthBoundaryWeeks").beginList();
    for (const std::ptrdiff_t week : monthBoundaryWeeks(overview.heatmap, calendar))
        json.value(std::int64_t{week});
    json.endList();
}

} // namespace

std::optional<std::string> inspectOverview(std::span<const std::string> arguments)
{
    const std::optional<OverviewOptions> options = parseOptions(arguments);
    if (!options)
        return std::nullopt;
    const std::vector<std::vector<JumpFileEntry>> entries{scanFolder(makeJumper(options->folder, 0))};
    const std::vector<JumpGroup> groups = groupJumps(entries, *makeNaturalOrder());
    const OverviewAggregates overview =
        computeOverview(groups, options->range, options->day, options->now, *options->calendar);
    JsonWriter json;
    json.beginObject();
    writePaths(json, "groups", groups, options->folder);
    writeRange(json, overview, *options->calendar);
    json.member("lastJumpDate", overview.lastJumpDate);
    json.member("jumpCountThisWeek", std::int64_t{overview.jumpCountThisWeek});
    json.member("jumpCountThisMonth", std::int64_t{overview.jumpCountThisMonth});
    json.key("streaks").beginObject();
    json.member("current", std::int64_t{overview.streaks.current});
    json.member("best", std::int64_t{overview.streaks.best});
    json.endObject();
    writePaths(json, "selectedDayGroups", overview.selectedDayGroups, options->folder);
    writePaths(json, "recentGroups", overview.recentGroups, options->folder);
    json.key("headline").beginObject();
    for (const HeadlineValue& headline : headlineValues(overview, *makeDateTexts({}, options->timeZone)))
        json.member(headline.title, std::string_view(headline.value));
    json.endObject();
    json.endObject();
    return json.text();
}

} // namespace ospra
