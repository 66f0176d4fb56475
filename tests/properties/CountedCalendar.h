#pragma once

#include "platform/Instant.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// A calendar that counts: a list of all days from 1970 on, made one after the other, and zones whose rules are written
/// out. It knows nothing of ICU or a database of zones.
namespace ospra::naive {

/// One day of the list. Its number is its place, 0 on Thursday, 1 January 1970.
struct Day {
    int year = 1970;
    int month = 1;
    int day = 1;
    int weekday = 5; ///< 1 is Sunday
};

/// When the clocks of a zone change: on a Sunday of a month at a time of that day in UTC, which may lie before it.
struct ClockChange {
    int month = 0;
    int sunday = 0; ///< the first is 1; 0 is the last of the month
    long seconds = 0;
};

/// A zone that puts its clocks forward by an hour, by rules that hold from the end of 2007 on.
struct Zone {
    std::string name{};
    long standard = 0; ///< s east of Greenwich
    ClockChange forward{};
    ClockChange back{};
};

[[nodiscard]] const std::vector<Zone>& zones();

class CountedCalendar {
public:
    static constexpr long firstDay = 14'610; ///< 1 January 2010
    static constexpr long lastDay = 36'524;  ///< 31 December 2069

    CountedCalendar(Zone zone, int firstWeekday) : m_zone(std::move(zone)), m_firstWeekday(firstWeekday) {}

    [[nodiscard]] const Day& day(long number) const;
    [[nodiscard]] long dayOf(Instant instant) const;
    /// The first moment of a day, by trying one half hour after the other.
    [[nodiscard]] Instant startOf(long day) const;
    [[nodiscard]] long weekStart(long day) const;
    [[nodiscard]] long monthStart(long day) const;
    [[nodiscard]] int daysInMonth(long day) const;
    /// The same day of another month, or the last one of it.
    [[nodiscard]] long addingMonths(long day, int months) const;
    /// All moments of another day at the clock time of `instant`: one, none or two.
    [[nodiscard]] std::vector<Instant> atSameClock(Instant instant, long day) const;

private:
    [[nodiscard]] double offsetAt(double seconds) const;
    [[nodiscard]] double changeOf(int year, const ClockChange& change) const;

    Zone m_zone;
    int m_firstWeekday = 1;
    mutable std::map<int, std::pair<double, double>> m_changes{}; ///< by year: forward, back
};

} // namespace ospra::naive
