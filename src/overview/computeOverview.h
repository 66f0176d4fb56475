#pragma once

#include "library/JumpGroup.h"
#include "overview/HeatmapGrid.h"
#include "overview/MonthStat.h"
#include "overview/OverviewTimeRange.h"
#include "overview/jumpDays.h"
#include "platform/Calendar.h"
#include "platform/Instant.h"

#include <optional>
#include <span>
#include <vector>

namespace ospra {

/// Everything that the overview shows, but for its texts.
struct OverviewAggregates {
    // Within the time range.
    std::optional<Instant> cutoffDate{}; ///< absent without a limit
    int visibleJumps = 0;
    std::vector<HeatmapDay> jumpsPerDay{}; ///< ascending
    int busiestDay = 0;                    ///< the largest count of `jumpsPerDay`
    HeatmapGrid heatmap{};
    int busiestWeek = 0;                   ///< the largest of the weekly counts
    std::vector<MonthStat> monthlyStats{}; ///< newest first

    // Of all jumps, whatever the range.
    std::optional<Instant> lastJumpDate{};
    int jumpCountThisWeek = 0;  ///< in the calendar week of now
    int jumpCountThisMonth = 0; ///< in the calendar month of now
    Streaks streaks{};
    std::vector<JumpGroup> selectedDayGroups{}; ///< newest first
    std::vector<JumpGroup> recentGroups{};      ///< newest first, three at most
};

/// @param groups the list of jumps
/// @param selectedDay the day picked in the heatmap
/// @param calendar asked for each day, week and month that has jumps, not for each jump
[[nodiscard]] OverviewAggregates computeOverview(std::span<const JumpGroup> groups, OverviewTimeRange range,
                                                 std::optional<Instant> selectedDay, Instant now,
                                                 const Calendar& calendar);

} // namespace ospra
