#include "platform/ZoneCalendar.h"

#include <unicode/basictz.h>
#include <unicode/tztrans.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace ospra {

namespace {

constexpr double dayLength = 86'400'000.0; // ms, on the clock of the zone
constexpr int julianDayOf1970 = 2'440'588;

int floorModulo(int number, int divisor)
{
    const int remainder = number % divisor;
    return remainder < 0 ? remainder + divisor : remainder;
}

} // namespace

bool OffsetSpan::holdsClearly(double time) const
{
    return time >= begin + 2.0 * dayLength && time < end - 2.0 * dayLength;
}

DayNumber ZoneCalendar::dayOf(double time)
{
    return static_cast<DayNumber>(std::floor((time + spanAt(time).offset) / dayLength));
}

DayNumber ZoneCalendar::weekStart(DayNumber day) const
{
    constexpr int weekdayOf1970 = 4; // a Thursday, counted from Sunday as 0
    return day - floorModulo(floorModulo(day, 7) + weekdayOf1970 - (m_firstWeekday - 1), 7);
}

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

} // namespace ospra
