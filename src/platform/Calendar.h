#pragma once

#include "platform/Instant.h"

#include <memory>
#include <optional>
#include <string>

namespace ospra {

enum class CalendarUnit { day, weekOfYear, month, year };

/// Calendar arithmetic in one time zone with one first weekday. Every answer is asked of the calendar; nobody computes
/// days as 86,400 seconds. Thread-compatible: one thread at a time.
class Calendar {
public:
    virtual ~Calendar() = default;

    /// The first moment of the day that holds `instant`.
    [[nodiscard]] virtual Instant startOfDay(Instant instant) const = 0;
    /// The first moment of the week, from the year that the week belongs to; absent if the calendar cannot tell.
    [[nodiscard]] virtual std::optional<Instant> startOfWeek(Instant instant) const = 0;
    /// The first moment of the month; absent if the calendar cannot tell.
    [[nodiscard]] virtual std::optional<Instant> startOfMonth(Instant instant) const = 0;
    /// `instant` moved by `count` units, the clock time kept; 31 March less one month is the end of February.
    [[nodiscard]] virtual std::optional<Instant> adding(int count, CalendarUnit unit, Instant instant) const = 0;
    /// Whether both lie in the same day, week, month or year.
    [[nodiscard]] virtual bool isSame(CalendarUnit unit, Instant a, Instant b) const = 0;
    /// The number of the month in its year, as the calendar counts.
    [[nodiscard]] virtual int month(Instant instant) const = 0;
    /// The number of days of the month that holds `instant`; absent if the calendar cannot tell.
    [[nodiscard]] virtual std::optional<int> daysInMonth(Instant instant) const = 0;
};

/// The user's calendar, time zone and first weekday, each asked of the system anew at every call, so that a change
/// while the program runs takes effect.
[[nodiscard]] std::unique_ptr<Calendar> makeUserCalendar();

/// A Gregorian calendar for a zone of the tz database ("Europe/Zurich") with weeks that begin on `firstWeekday`
/// (1 is Sunday, 7 is Saturday). @return null for an unknown zone or a weekday out of range
[[nodiscard]] std::unique_ptr<Calendar> makeCalendar(const std::string& timeZone, int firstWeekday);

} // namespace ospra
