#include "platform/Calendar.h"

#include "platform/UserEnvironment.h"
#include "platform/ZoneCalendar.h"

#include <cmath>
#include <utility>

namespace ospra {

namespace {

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
