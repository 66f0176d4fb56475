#pragma once

#include "overview/jumpDays.h"
#include "platform/Calendar.h"
#include "platform/DateTexts.h"
#include "platform/Instant.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ospra {

inline constexpr int daysPerHeatmapWeek = 7;

/// One column of the heatmap.
struct HeatmapWeek {
    Instant weekStart{};
    std::vector<HeatmapDay> days{}; ///< seven, from the day of `weekStart`, less those that the calendar cannot tell
};

/// A square of the heatmap.
struct HeatmapCell {
    std::ptrdiff_t week = 0; ///< the column
    int day = 0;             ///< 0 to 6 from the top

    friend bool operator==(const HeatmapCell&, const HeatmapCell&) = default;
};

/// A column that opens a month.
struct HeatmapMonthLabel {
    std::ptrdiff_t offset = 0; ///< the column
    std::string label{};
};

/// The whole calendar weeks from the first jump day to the last, one after the other. A wrong clock in a logger dates a
/// jump in 1970 or 2106, and then there are thousands of weeks between: so only the weeks with jumps are kept, and
/// the dates are asked of the calendar where they are needed.
class HeatmapGrid {
public:
    HeatmapGrid() = default;
    /// @param jumpsPerDay ascending
    HeatmapGrid(std::span<const HeatmapDay> jumpsPerDay, const Calendar& calendar);

    /// The number of columns, 0 without jumps.
    [[nodiscard]] std::ptrdiff_t weekCount() const { return std::ssize(m_weeklyCounts); }
    /// The jumps of one square. Asks no calendar.
    [[nodiscard]] int count(HeatmapCell cell) const;
    /// The jumps of each week, one value per column.
    [[nodiscard]] std::span<const int> weeklyCounts() const { return m_weeklyCounts; }

    /// The first moment of a column.
    [[nodiscard]] Instant weekStart(std::ptrdiff_t week, const Calendar& calendar) const;
    /// The day of one square; absent if the calendar cannot tell.
    [[nodiscard]] std::optional<HeatmapDay> day(HeatmapCell cell, const Calendar& calendar) const;
    [[nodiscard]] HeatmapWeek week(std::ptrdiff_t week, const Calendar& calendar) const;
    /// Whether the month of the column's first day differs from that of the column before; the first column always
    /// opens a month.
    [[nodiscard]] bool opensMonth(std::ptrdiff_t week, const Calendar& calendar) const;
    /// The square of the day that holds `instant`; absent outside the grid.
    [[nodiscard]] std::optional<HeatmapCell> cellOf(Instant instant, const Calendar& calendar) const;

private:
    struct Row {
        std::ptrdiff_t week = 0;
        std::array<int, daysPerHeatmapWeek> counts{};
    };

    Instant m_firstWeek{};
    std::vector<Row> m_rows; ///< the weeks that have jumps, ascending
    std::vector<int> m_weeklyCounts;
};

/// The columns that open a month, ascending, 0 among them. Walks all weeks.
[[nodiscard]] std::vector<std::ptrdiff_t> monthBoundaryWeeks(const HeatmapGrid& grid, const Calendar& calendar);

/// The columns that open a month with its short name. Walks all weeks.
[[nodiscard]] std::vector<HeatmapMonthLabel> monthLabels(const HeatmapGrid& grid, const Calendar& calendar,
                                                         const DateTexts& texts);

} // namespace ospra
