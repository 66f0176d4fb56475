#include "platform/Calendar.h"

#include "surroundings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <limits>
#include <vector>

namespace ospra {
namespace {

/// A moment in UTC, reckoned by the C library.
Instant utc(int year, int month, int day, int hour = 0, int minute = 0)
{
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    return {.seconds = static_cast<double>(::timegm(&parts))};
}

TEST(Calendar, aDayBeginsAfterAMissingMidnight)
{
    struct Row {
        const char* zone;
        Instant noon;
        Instant start;
        Instant nextStart;
    };
    const std::vector<Row> rows{
        // Clocks go from 24:00 to 01:00: the day has 23 hours.
        {"America/Santiago", utc(2023, 9, 3, 15), utc(2023, 9, 3, 4), utc(2023, 9, 4, 3)},
        // From 24:00 back to 23:00: the day before has 25 hours.
        {"America/Santiago", utc(2023, 4, 1, 15), utc(2023, 4, 1, 3), utc(2023, 4, 2, 4)},
        // From 01:00 back to 00:00: the day begins at the first midnight.
        {"America/Havana", utc(2023, 11, 5, 17), utc(2023, 11, 5, 4), utc(2023, 11, 6, 5)},
        // 29 December was followed by 31 December.
        {"Pacific/Apia", utc(2011, 12, 29, 22), utc(2011, 12, 29, 10), utc(2011, 12, 30, 10)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.zone);
        const auto calendar = makeCalendar(row.zone, 1);
        EXPECT_EQ(calendar->startOfDay(row.noon), row.start);
        EXPECT_EQ(calendar->startOfDay(row.start), row.start);
        EXPECT_EQ(calendar->startOfDay({row.nextStart.seconds - 1.0}), row.start);
        EXPECT_EQ(calendar->startOfDay(row.nextStart), row.nextStart);
    }
    // The week from Friday, 30 December, that never was, begins with the Saturday.
    const auto apia = makeCalendar("Pacific/Apia", 6);
    EXPECT_EQ(apia->startOfWeek(utc(2012, 1, 3)), utc(2011, 12, 30, 10));
    EXPECT_EQ(makeCalendar("Pacific/Apia", 1)->daysInMonth(utc(2011, 12, 15)), 31);
}

TEST(Calendar, stepsOfDaysKeepTheClockTime)
{
    const auto calendar = makeCalendar("Europe/Zurich", 2);
    EXPECT_EQ(calendar->adding(40, CalendarUnit::day, utc(2024, 1, 1, 11)), utc(2024, 2, 10, 11));
    EXPECT_EQ(calendar->adding(200, CalendarUnit::day, utc(2024, 1, 1, 11)), utc(2024, 7, 19, 10));
    EXPECT_EQ(calendar->adding(1, CalendarUnit::day, utc(2024, 3, 30, 1, 30)), utc(2024, 3, 31, 1, 30))
        << "half past two is missing: half past three";
}

TEST(Calendar, takesDatesFarAwayAndNoDates)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const auto calendar = makeCalendar("America/New_York", 1);
    for (const Instant instant :
         {utc(1970, 1, 1, 12), utc(2106, 2, 7, 12), utc(9999, 12, 31, 12), utc(1890, 7, 4, 12)}) {
        SCOPED_TRACE(instant.seconds);
        const double sinceStart = instant.seconds - calendar->startOfDay(instant).seconds;
        EXPECT_TRUE(sinceStart > 6 * 3'600.0 && sinceStart < 9 * 3'600.0) << sinceStart;
        EXPECT_EQ(calendar->startOfMonth(instant)->seconds,
                  calendar->startOfDay(*calendar->startOfMonth(instant)).seconds);
    }
    for (const double seconds : {1e12, -1e12, 1e13, 1e18, -1e18, 1e300, infinity, -infinity, std::nan("")}) {
        SCOPED_TRACE(seconds);
        const Instant far{seconds};
        const Instant start = calendar->startOfDay(far);
        EXPECT_TRUE(std::isnan(seconds) || (start <= far && start >= Instant{seconds - 90'000.0}));
        for (const CalendarUnit unit :
             {CalendarUnit::day, CalendarUnit::weekOfYear, CalendarUnit::month, CalendarUnit::year}) {
            for (const int count : {1, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
                const auto moved = calendar->adding(count, unit, far);
                EXPECT_TRUE(!moved || std::isfinite(moved->seconds));
            }
            EXPECT_EQ(calendar->isSame(unit, far, far), std::abs(seconds) < 8e12);
            EXPECT_FALSE(calendar->isSame(unit, far, utc(2024, 1, 1)));
        }
        const int month = calendar->month(far);
        EXPECT_TRUE(month >= 1 && month <= 12);
        const auto days = calendar->daysInMonth(far);
        EXPECT_TRUE(!days || (*days >= 28 && *days <= 31));
        EXPECT_EQ(days.has_value(), calendar->startOfWeek(far).has_value());
    }
}

TEST(Calendar, isMadeForKnownZonesAndWeekdaysOnly)
{
    EXPECT_FALSE(makeCalendar("Europe/Nowhere", 2));
    EXPECT_FALSE(makeCalendar("", 2));
    EXPECT_FALSE(makeCalendar("UTC", 0));
    EXPECT_FALSE(makeCalendar("UTC", 8));
}

TEST(UserCalendar, followsTimeZoneAndLocale)
{
    const ScopedVariable zone("TZ", "Europe/Zurich");
    const ScopedVariable all("LC_ALL", std::nullopt);
    const ScopedVariable time("LC_TIME", "de_CH.UTF-8");
    const Instant wednesday = utc(2025, 1, 1, 12);
    const auto calendar = makeUserCalendar();
    EXPECT_EQ(calendar->startOfDay(wednesday), utc(2024, 12, 31, 23));
    EXPECT_EQ(calendar->startOfWeek(wednesday), utc(2024, 12, 29, 23)); // a Monday

    zone.apply("America/New_York"); // while the calendar is in use
    EXPECT_EQ(calendar->startOfDay(wednesday), utc(2025, 1, 1, 5));
    zone.apply("XYZ-2"); // a rule without a name in the database
    EXPECT_EQ(calendar->startOfDay(wednesday), utc(2024, 12, 31, 22));
    zone.apply("No/Where");
    EXPECT_EQ(calendar->startOfDay(wednesday), utc(2025, 1, 1));

    time.apply("en_US.UTF-8");
    EXPECT_EQ(makeUserCalendar()->startOfWeek(wednesday), utc(2024, 12, 29)); // a Sunday
    time.apply("ar_EG.UTF-8");
    EXPECT_EQ(makeUserCalendar()->startOfWeek(wednesday), utc(2024, 12, 28)); // a Saturday
}

TEST(UserCalendar, mayBeAnotherThanTheGregorian)
{
    const ScopedVariable zone("TZ", "UTC");
    const ScopedVariable all("LC_ALL", "en_US@calendar=islamic-civil");
    const auto calendar = makeUserCalendar();
    // Ramadan 1445, the ninth month, had 30 days from 11 March 2024 in the tabular calendar.
    EXPECT_EQ(calendar->month(utc(2024, 3, 20)), 9);
    EXPECT_EQ(calendar->startOfMonth(utc(2024, 3, 20)), utc(2024, 3, 11));
    EXPECT_EQ(calendar->daysInMonth(utc(2024, 3, 20)), 30);
    EXPECT_EQ(calendar->adding(-1, CalendarUnit::month, utc(2024, 3, 11)), utc(2024, 2, 11));
    EXPECT_EQ(calendar->startOfWeek(utc(2024, 3, 20)), utc(2024, 3, 17));
}

} // namespace
} // namespace ospra
