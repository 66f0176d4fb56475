#pragma once

#include "platform/Calendar.h"
#include "platform/SpanCache.h"

#include <unicode/calendar.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace ospra {

constexpr double farthestTime = 8.0e15; ///< ms from 1970; 250,000 years, well inside what ICU can reckon

/// The number of a day on the calendar of the zone, 0 on 1 January 1970. A zone can skip a number.
using DayNumber = int;

/// A stretch of time in which the zone's clocks keep one distance from UTC. All in ms.
struct OffsetSpan {
    double begin = 0.0;
    double end = 0.0; ///< exclusive
    double offset = 0.0;

    /// Whether `time` is two days or more from a change of the clocks. No zone ever moved its clocks by more than a
    /// day, so that the clock time of such a moment exists exactly once.
    [[nodiscard]] bool holdsClearly(double time) const;
    [[nodiscard]] bool holds(double time) const { return time >= begin && time < end; }
};

/// The days of one month.
struct MonthSpan {
    DayNumber begin = 0;
    DayNumber end = 0; ///< exclusive
    int month = 0;     ///< 1 is the first
    int year = 0;

    [[nodiscard]] bool holds(DayNumber day) const { return day >= begin && day < end; }
};

/// One zone, one kind of calendar and one first weekday. ICU is asked where clocks change and where months begin, once
/// for each change and month, and near a change of the clocks; what lies between is plain arithmetic on days. Times are
/// ms from 1970, nearer than `farthestTime`. References and pointers hold until the next question.
class ZoneCalendar {
public:
    /// @param zone the calendar that reckons in the zone, `civil` one of the same kind in UTC, for days without a clock
    ZoneCalendar(std::unique_ptr<icu::Calendar> zone, std::unique_ptr<icu::Calendar> civil, int firstWeekday)
        : m_zone(std::move(zone)), m_civil(std::move(civil)), m_firstWeekday(firstWeekday)
    {}

    [[nodiscard]] DayNumber dayOf(double time);
    /// The first moment of a day; of a day that the zone skipped, the moment at which it would have begun.
    [[nodiscard]] double startOf(DayNumber day);
    [[nodiscard]] DayNumber weekStart(DayNumber day) const;
    /// @return null if the calendar cannot tell
    [[nodiscard]] const MonthSpan* monthOf(DayNumber day);
    /// @return absent where the result is farther away than `farthestTime`
    [[nodiscard]] std::optional<double> adding(int count, CalendarUnit unit, double time);

private:
    [[nodiscard]] const OffsetSpan& spanAt(double time);

    std::unique_ptr<icu::Calendar> m_zone;
    std::unique_ptr<icu::Calendar> m_civil;
    int m_firstWeekday = 1;
    SpanCache<OffsetSpan, double> m_offsets;
    SpanCache<MonthSpan, DayNumber> m_months;
};

/// @param firstWeekday that of the locale if absent
/// @return null for an unknown zone
[[nodiscard]] std::unique_ptr<ZoneCalendar> makeZoneCalendar(const std::string& timeZone, const std::string& locale,
                                                             std::optional<int> firstWeekday);

} // namespace ospra
