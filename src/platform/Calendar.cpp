#include "platform/Calendar.h"

#include "platform/UserEnvironment.h"

#include <unicode/basictz.h>
#include <unicode/calendar.h>
#include <unicode/tztrans.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <utility>

namespace ospra {

namespace {

constexpr double dayLength = 86'400'000.0; // ms, on the clock of the zone
constexpr double farthestTime = 8.0e15;    // ms from 1970; 250,000 years, well inside what ICU can reckon
constexpr int julianDayOf1970 = 2'440'588;
constexpr std::size_t mostSpans = 512; // kept answers; dates over centuries would otherwise pile up

/// The number of a day on the calendar of the zone, 0 on 1 January 1970. A zone can skip a number.
using DayNumber = int;

/// A stretch of time in which the zone's clocks keep one distance from UTC. All in ms.
struct OffsetSpan {
    double begin = 0.0;
    double end = 0.0; ///< exclusive
    double offset = 0.0;

    /// Whether `time` is two days or more from a change of the clocks. No zone ever moved its clocks by more than a
    /// day, so that the clock time of such a moment exists exactly once.
    [[nodiscard]] bool holdsClearly(double time) const
    {
        return time >= begin + 2.0 * dayLength && time < end - 2.0 * dayLength;
    }
    [[nodiscard]] bool holds(double time) const { return time >= begin && time < end; }
};

struct MonthSpan {
    DayNumber begin = 0;
    DayNumber end = 0; ///< exclusive
    int month = 0;     ///< 1 is the first
    int year = 0;

    [[nodiscard]] bool holds(DayNumber day) const { return day >= begin && day < end; }
};

/// Spans that were asked for, by their beginning, with the last one at hand.
template <typename Span, typename Place>
class SpanCache {
public:
    /// @return null if no span that holds the place is known
    const Span* find(Place place)
    {
        if (m_last != nullptr && m_last->holds(place))
            return m_last;
        const auto after = m_spans.upper_bound(place);
        if (after == m_spans.begin() || !std::prev(after)->second.holds(place))
            return nullptr;
        m_last = &std::prev(after)->second;
        return m_last;
    }
    const Span& insert(const Span& span)
    {
        if (m_spans.size() >= mostSpans)
            m_spans.clear();
        m_last = &m_spans.insert_or_assign(span.begin, span).first->second;
        return *m_last;
    }

private:
    std::map<Place, Span> m_spans;
    const Span* m_last = nullptr;
};

/// The time in ms; absent if it is no number or lies too far away to be reckoned with.
std::optional<double> millisecondsOf(Instant instant)
{
    const double time = std::round(instant.seconds * 1000.0);
    return std::abs(time) < farthestTime ? std::optional(time) : std::nullopt;
}

Instant instantAt(double milliseconds)
{
    return Instant{.seconds = milliseconds / 1000.0};
}

int floorModulo(int number, int divisor)
{
    const int remainder = number % divisor;
    return remainder < 0 ? remainder + divisor : remainder;
}

/// One zone, one kind of calendar and one first weekday. ICU is asked where clocks change and where months begin, once
/// for each change and month, and near a change of the clocks; what lies between is plain arithmetic on days.
class ZoneCalendar {
public:
    /// @param zone the calendar that reckons in the zone, `civil` one of the same kind in UTC, for days without a clock
    ZoneCalendar(std::unique_ptr<icu::Calendar> zone, std::unique_ptr<icu::Calendar> civil, int firstWeekday)
        : m_zone(std::move(zone)), m_civil(std::move(civil)), m_firstWeekday(firstWeekday)
    {}

    [[nodiscard]] const OffsetSpan& spanAt(double time);
    [[nodiscard]] DayNumber dayOf(double time)
    {
        return static_cast<DayNumber>(std::floor((time + spanAt(time).offset) / dayLength));
    }
    /// The first moment of a day; of a day that the zone skipped, the moment at which it would have begun.
    [[nodiscard]] double startOf(DayNumber day);
    [[nodiscard]] DayNumber weekStart(DayNumber day) const
    {
        constexpr int weekdayOf1970 = 4; // a Thursday, counted from Sunday as 0
        return day - floorModulo(floorModulo(day, 7) + weekdayOf1970 - (m_firstWeekday - 1), 7);
    }
    /// @return null if the calendar cannot tell
    [[nodiscard]] const MonthSpan* monthOf(DayNumber day);
    [[nodiscard]] std::optional<double> adding(int count, CalendarUnit unit, double time);

private:
    std::unique_ptr<icu::Calendar> m_zone;
    std::unique_ptr<icu::Calendar> m_civil;
    int m_firstWeekday = 1;
    SpanCache<OffsetSpan, double> m_offsets;
    SpanCache<MonthSpan, DayNumber> m_months;
};

const OffsetSpan& ZoneCalendar::spanAt(double time)
{
    if (const OffsetSpan* const known = m_offsets.find(time))
        return *known;
    // Zones of the database are of this kind, and `makeZoneCalendar` lets no other in.
    const auto& zone = static_cast<const icu::BasicTimeZone&>(m_zone->getTimeZone());
    OffsetSpan span{.begin = -std::numeric_limits<double>::infinity(), .end = std::numeric_limits<double>::infinity()};
    icu::TimeZoneTransition transition;
    if (zone.getPreviousTransition(time, true, transition) != 0)
        span.begin = transition.getTime();
    if (zone.getNextTransition(time, false, transition) != 0)
        span.end = transition.getTime();
    std::int32_t standard = 0;
    std::int32_t daylight = 0;
    UErrorCode status = U_ZERO_ERROR;
    zone.getOffset(time, 0, standard, daylight, status);
    span.offset = static_cast<double>(standard) + daylight;
    return m_offsets.insert(span);
}

double ZoneCalendar::startOf(DayNumber day)
{
    const double clockTime = day * dayLength;
    const OffsetSpan& span = spanAt(clockTime - spanAt(clockTime).offset);
    if (span.holdsClearly(clockTime - span.offset))
        return clockTime - span.offset;
    // Where clocks go forward at midnight, the day begins at the change; where they go back over midnight, it begins
    // at the first of the two.
    UErrorCode status = U_ZERO_ERROR;
    m_zone->setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
    m_zone->setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    m_zone->clear();
    m_zone->set(UCAL_JULIAN_DAY, day + julianDayOf1970);
    const double start = m_zone->getTime(status);
    return U_FAILURE(status) != 0 ? clockTime - span.offset : start;
}

const MonthSpan* ZoneCalendar::monthOf(DayNumber day)
{
    if (const MonthSpan* const known = m_months.find(day))
        return known;
    UErrorCode status = U_ZERO_ERROR;
    m_civil->setTime(day * dayLength, status);
    MonthSpan span{.month = m_civil->get(UCAL_MONTH, status) + 1, .year = m_civil->get(UCAL_EXTENDED_YEAR, status)};
    m_civil->set(UCAL_DATE, 1);
    span.begin = static_cast<DayNumber>(m_civil->getTime(status) / dayLength);
    m_civil->add(UCAL_MONTH, 1, status);
    span.end = static_cast<DayNumber>(m_civil->getTime(status) / dayLength);
    return U_FAILURE(status) != 0 || !span.holds(day) ? nullptr : &m_months.insert(span);
}

std::optional<double> ZoneCalendar::adding(int count, CalendarUnit unit, double time)
{
    struct Step {
        UCalendarDateFields field;
        double leastDays;
    };
    const Step step = [unit] {
        switch (unit) {
        case CalendarUnit::day: return Step{UCAL_DATE, 1.0};
        case CalendarUnit::weekOfYear: return Step{UCAL_WEEK_OF_YEAR, 7.0};
        case CalendarUnit::month: return Step{UCAL_MONTH, 28.0};
        case CalendarUnit::year: return Step{UCAL_YEAR, 353.0};
        }
        return Step{UCAL_DATE, 1.0};
    }();
    const double guess = time + count * step.leastDays * dayLength;
    if (std::abs(guess) >= farthestTime)
        return std::nullopt;
    const bool isWholeDays = unit == CalendarUnit::day || unit == CalendarUnit::weekOfYear;
    const OffsetSpan& span = spanAt(time);
    if (isWholeDays && span.holdsClearly(time) && span.holdsClearly(guess))
        return guess;
    UErrorCode status = U_ZERO_ERROR;
    m_zone->setSkippedWallTimeOption(UCAL_WALLTIME_LAST);
    m_zone->setRepeatedWallTimeOption(UCAL_WALLTIME_LAST);
    m_zone->setTime(time, status);
    m_zone->add(step.field, count, status);
    const double result = m_zone->getTime(status);
    return U_FAILURE(status) != 0 || std::abs(result) >= farthestTime ? std::nullopt : std::optional(result);
}

/// @param firstWeekday that of the locale if absent
/// @return null for an unknown zone
std::unique_ptr<ZoneCalendar> makeZoneCalendar(const std::string& timeZone, const std::string& locale,
                                               std::optional<int> firstWeekday)
{
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone)));
    if (*zone == icu::TimeZone::getUnknown() || dynamic_cast<const icu::BasicTimeZone*>(zone.get()) == nullptr)
        return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale icuLocale(locale.c_str());
    std::unique_ptr<icu::Calendar> zoned(icu::Calendar::createInstance(zone.release(), icuLocale, status));
    std::unique_ptr<icu::Calendar> civil(icu::Calendar::createInstance(*icu::TimeZone::getGMT(), icuLocale, status));
    if (U_FAILURE(status) != 0)
        return nullptr;
    const int weekday = firstWeekday ? *firstWeekday : static_cast<int>(zoned->getFirstDayOfWeek(status));
    return std::make_unique<ZoneCalendar>(std::move(zoned), std::move(civil), weekday);
}

/// The answers of a `ZoneCalendar`, which is made anew when the user's settings change, if there is a user to follow.
class IcuCalendar final : public Calendar {
public:
    IcuCalendar(std::unique_ptr<ZoneCalendar> calendar, std::unique_ptr<UserEnvironment> environment)
        : m_calendar(std::move(calendar)), m_environment(std::move(environment))
    {}

    Instant startOfDay(Instant instant) const override
    {
        const auto time = millisecondsOf(instant);
        if (!time)
            return instant;
        ZoneCalendar& calendar = current();
        return instantAt(calendar.startOf(calendar.dayOf(*time)));
    }

    std::optional<Instant> startOfWeek(Instant instant) const override
    {
        const auto time = millisecondsOf(instant);
        if (!time)
            return std::nullopt;
        ZoneCalendar& calendar = current();
        return instantAt(calendar.startOf(calendar.weekStart(calendar.dayOf(*time))));
    }

    std::optional<Instant> startOfMonth(Instant instant) const override
    {
        const MonthSpan* const span = monthAt(instant);
        return span != nullptr ? std::optional(instantAt(m_calendar->startOf(span->begin))) : std::nullopt;
    }

    std::optional<Instant> adding(int count, CalendarUnit unit, Instant instant) const override
    {
        const auto time = millisecondsOf(instant);
        const auto result = time ? current().adding(count, unit, *time) : std::nullopt;
        return result ? std::optional(instantAt(*result)) : std::nullopt;
    }

    bool isSame(CalendarUnit unit, Instant a, Instant b) const override
    {
        const auto timeA = millisecondsOf(a);
        const auto timeB = millisecondsOf(b);
        if (!timeA || !timeB)
            return false;
        ZoneCalendar& calendar = current();
        const DayNumber dayA = calendar.dayOf(*timeA);
        const DayNumber dayB = calendar.dayOf(*timeB);
        switch (unit) {
        case CalendarUnit::day: return dayA == dayB;
        case CalendarUnit::weekOfYear: return calendar.weekStart(dayA) == calendar.weekStart(dayB);
        case CalendarUnit::month: {
            const MonthSpan* const span = calendar.monthOf(dayA);
            return span != nullptr && span->holds(dayB);
        }
        case CalendarUnit::year: return isSameYear(calendar, dayA, dayB);
        }
        return false;
    }

    int month(Instant instant) const override
    {
        const MonthSpan* const span = monthAt(instant);
        return span != nullptr ? span->month : 1;
    }

    std::optional<int> daysInMonth(Instant instant) const override
    {
        const MonthSpan* const span = monthAt(instant);
        return span != nullptr ? std::optional(span->end - span->begin) : std::nullopt;
    }

private:
    [[nodiscard]] ZoneCalendar& current() const
    {
        if (m_environment && m_environment->refresh()) {
            auto renewed = makeZoneCalendar(m_environment->timeZone(), m_environment->locale(), std::nullopt);
            if (renewed)
                m_calendar = std::move(renewed);
        }
        return *m_calendar;
    }

    [[nodiscard]] const MonthSpan* monthAt(Instant instant) const
    {
        const auto time = millisecondsOf(instant);
        if (!time)
            return nullptr;
        ZoneCalendar& calendar = current();
        return calendar.monthOf(calendar.dayOf(*time));
    }

    [[nodiscard]] static bool isSameYear(ZoneCalendar& calendar, DayNumber a, DayNumber b)
    {
        const MonthSpan* const spanA = calendar.monthOf(a);
        if (spanA == nullptr)
            return false;
        const int year = spanA->year; // copied: the next question may move the span
        const MonthSpan* const spanB = calendar.monthOf(b);
        return spanB != nullptr && spanB->year == year;
    }

    mutable std::unique_ptr<ZoneCalendar> m_calendar;
    mutable std::unique_ptr<UserEnvironment> m_environment; ///< null for a calendar that follows no user
};

} // namespace

std::unique_ptr<Calendar> makeUserCalendar()
{
    auto environment = std::make_unique<UserEnvironment>();
    auto calendar = makeZoneCalendar(environment->timeZone(), environment->locale(), std::nullopt);
    if (!calendar) // a system without usable zone data still has days
        calendar = makeZoneCalendar("GMT", "en_US", std::nullopt);
    return std::make_unique<IcuCalendar>(std::move(calendar), std::move(environment));
}

std::unique_ptr<Calendar> makeCalendar(const std::string& timeZone, int firstWeekday)
{
    if (firstWeekday < UCAL_SUNDAY || firstWeekday > UCAL_SATURDAY)
        return nullptr;
    auto calendar = makeZoneCalendar(timeZone, "en_US@calendar=gregorian", firstWeekday);
    return calendar ? std::make_unique<IcuCalendar>(std::move(calendar), nullptr) : nullptr;
}

} // namespace ospra
