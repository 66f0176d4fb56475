#include "overview/computeOverview.h"

#include "overview/DatedGroup.h"
#include "overview/jumpLists.h"

#include <algorithm>

namespace ospra {

namespace {

int jumpCountThisPeriod(std::span<const DatedGroup> dated, CalendarUnit unit, Instant now, const Calendar& calendar)
{
    return static_cast<int>(groupsOfPeriod(dated, unit, now, calendar).size());
}

int busiest(std::span<const HeatmapDay> days)
{
    int largest = 0;
    for (const HeatmapDay& day : days)
        largest = std::max(largest, day.count);
    return largest;
}

int busiest(std::span<const int> weeklyCounts)
{
    return weeklyCounts.empty() ? 0 : *std::max_element(weeklyCounts.begin(), weeklyCounts.end());
}

} // namespace

OverviewAggregates computeOverview(std::span<const JumpGroup> groups, OverviewTimeRange range,
                                   std::optional<Instant> selectedDay, Instant now, const Calendar& calendar)
{
    const std::vector<DatedGroup> dated = datedGroups(groups);
    const std::vector<Instant> dayStarts = startsOfDays(dated, calendar);

    OverviewAggregates overview;
    overview.cutoffDate = cutoffDate(range, now, calendar);
    const std::span<const DatedGroup> filtered = filteredGroups(dated, overview.cutoffDate);
    overview.visibleJumps = static_cast<int>(filtered.size());
    overview.jumpsPerDay = jumpsPerDay(std::span(dayStarts).first(filtered.size()));
    overview.busiestDay = busiest(overview.jumpsPerDay);
    overview.heatmap = HeatmapGrid(overview.jumpsPerDay, calendar);
    overview.busiestWeek = busiest(overview.heatmap.weeklyCounts());
    overview.monthlyStats = monthlyStats(filtered, calendar);

    if (!dated.empty())
        overview.lastJumpDate = dated.front().date;
    overview.jumpCountThisWeek = jumpCountThisPeriod(dated, CalendarUnit::weekOfYear, now, calendar);
    overview.jumpCountThisMonth = jumpCountThisPeriod(dated, CalendarUnit::month, now, calendar);
    overview.streaks = streaks(dayStarts, calendar);
    overview.selectedDayGroups = selectedDayGroups(groups, dated, selectedDay, calendar);
    overview.recentGroups = recentGroups(groups);
    return overview;
}

} // namespace ospra
