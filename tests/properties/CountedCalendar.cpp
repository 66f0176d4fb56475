#include "tests/properties/CountedCalendar.h"

#include <cmath>

namespace ospra::naive {

namespace {

constexpr double dayLength = 86'400.0;
constexpr double hour = 3'600.0;

int lengthOf(int year, int month)
{
    if (month == 2)
        return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

std::vector<Day> countDays()
{
    std::vector<Day> days{Day{}};
    while (days.back().year < 2075) {
        Day next = days.back();
        next.weekday = next.weekday % 7 + 1;
        if (++next.day > lengthOf(next.year, next.month)) {
            next.day = 1;
            if (++next.month > 12) {
                next.month = 1;
                ++next.year;
            }
        }
        days.push_back(next);
    }
    return days;
}

const std::vector<Day>& allDays()
{
    static const std::vector<Day> days = countDays();
    return days;
}

} // namespace

const std::vector<Zone>& zones()
{
    // Beirut changes at midnight, so that a day begins at one o'clock; in Sydney the summer holds the turn of the year.
    static const std::vector<Zone> list{
        {"Europe/Zurich", 3'600, {.month = 3, .seconds = 3'600}, {.month = 10, .seconds = 3'600}},
        {"America/New_York", -18'000, {.month = 3, .sunday = 2, .seconds = 25'200}, {11, 1, 21'600}},
        {"Asia/Beirut", 7'200, {.month = 3, .seconds = -7'200}, {.month = 10, .seconds = -10'800}},
        {"Australia/Sydney", 36'000, {.month = 10, .sunday = 1, .seconds = -28'800}, {4, 1, -28'800}}};
    return list;
}

const Day& CountedCalendar::day(long number) const
{
    return allDays().at(static_cast<std::size_t>(number));
}

double CountedCalendar::changeOf(int year, const ClockChange& change) const
{
    std::vector<long> sundays;
    for (long number = (year - 1970) * 365L; day(number).year <= year; ++number)
        if (day(number).year == year && day(number).month == change.month && day(number).weekday == 1)
            sundays.push_back(number);
    const long sunday = change.sunday == 0 ? sundays.back() : sundays.at(static_cast<std::size_t>(change.sunday - 1));
    return static_cast<double>(sunday) * dayLength + static_cast<double>(change.seconds);
}

double CountedCalendar::offsetAt(double seconds) const
{
    const int year = day(static_cast<long>(std::floor(seconds / dayLength))).year;
    if (!m_changes.contains(year))
        m_changes[year] = {changeOf(year, m_zone.forward), changeOf(year, m_zone.back)};
    const auto [forward, back] = m_changes[year];
    const bool isSummer = forward < back ? seconds >= forward && seconds < back : seconds >= forward || seconds < back;
    return static_cast<double>(m_zone.standard) + (isSummer ? hour : 0.0);
}

long CountedCalendar::dayOf(Instant instant) const
{
    return static_cast<long>(std::floor((instant.seconds + offsetAt(instant.seconds)) / dayLength));
}

Instant CountedCalendar::startOf(long day) const
{
    double seconds = static_cast<double>(day) * dayLength - 15.0 * hour;
    while (dayOf({seconds}) != day)
        seconds += hour / 2.0;
    return {seconds};
}

long CountedCalendar::weekStart(long number) const
{
    while (day(number).weekday != m_firstWeekday)
        --number;
    return number;
}

long CountedCalendar::monthStart(long number) const
{
    while (day(number).day != 1)
        --number;
    return number;
}

int CountedCalendar::daysInMonth(long number) const
{
    return lengthOf(day(number).year, day(number).month);
}

long CountedCalendar::addingMonths(long number, int months) const
{
    long start = monthStart(number);
    for (; months > 0; --months)
        start += daysInMonth(start);
    for (; months < 0; ++months)
        start = monthStart(start - 1);
    const int wanted = day(number).day;
    return start + (wanted < daysInMonth(start) ? wanted : daysInMonth(start)) - 1;
}

std::vector<Instant> CountedCalendar::atSameClock(Instant instant, long day) const
{
    const double clock = instant.seconds + offsetAt(instant.seconds) - static_cast<double>(dayOf(instant)) * dayLength;
    std::vector<Instant> moments;
    for (const double offset : {hour, 0.0}) {
        const double seconds =
            static_cast<double>(day) * dayLength + clock - static_cast<double>(m_zone.standard) - offset;
        if (offsetAt(seconds) == static_cast<double>(m_zone.standard) + offset)
            moments.push_back({seconds});
    }
    return moments;
}

} // namespace ospra::naive
