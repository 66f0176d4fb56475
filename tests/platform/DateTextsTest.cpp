#include "platform/DateTexts.h"

#include "surroundings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace ospra {
namespace {

constexpr double minute = 60.0;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;
constexpr Instant afternoon{1'709'998'920.0}; // 9 March 2024, 15:42 UTC

TEST(DateTexts, speakTheLocale)
{
    struct Row {
        const char* locale;
        const char* date;
        const char* dateAndTime;
        const char* monthShort;
        const char* monthAndYear;
    };
    constexpr Row rows[] = {
        {"en_US", "Mar 9, 2024", "Mar 9, 2024, 4:42\u202FPM", "Mar", "March 2024"},
        {"en_GB", "9 Mar 2024", "9 Mar 2024, 16:42", "Mar", "March 2024"},
        {"de_CH", "09.03.2024", "09.03.2024, 16:42", "M\u00E4rz", "M\u00E4rz 2024"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.locale);
        const auto texts = makeDateTexts(row.locale, "Europe/Zurich");
        EXPECT_EQ(texts->date(afternoon), row.date);
        EXPECT_EQ(texts->dateAndTime(afternoon), row.dateAndTime);
        EXPECT_EQ(texts->monthShort(afternoon), row.monthShort);
        EXPECT_EQ(texts->monthAndYear(afternoon), row.monthAndYear);
    }
}

TEST(DateTexts, ageIsInTheLargestUnitThatIsAtLeastOne)
{
    constexpr std::pair<double, const char*> rows[] = {
        {0.0, "0 sec. ago"},      {0.9, "0 sec. ago"},
        {1.0, "1 sec. ago"},      {59.9, "59 sec. ago"},
        {minute, "1 min. ago"},   {hour - 1, "59 min. ago"},
        {2 * hour, "2 hr. ago"},  {day - 1, "23 hr. ago"},
        {day, "1 day ago"},       {7 * day - 1, "6 days ago"},
        {7 * day, "1 wk. ago"},   {29 * day - 1, "4 wk. ago"}, // 9 February, one second short of a calendar month
        {29 * day, "1 mo. ago"},  {60 * day - 1, "1 mo. ago"},
        {60 * day, "2 mo. ago"},  {366 * day - 1, "11 mo. ago"},
        {366 * day, "1 yr. ago"}, // over a leap day
        {-2 * hour, "in 2 hr."},  {-0.9, "0 sec. ago"},
        {-31 * day, "in 1 mo."},
    };
    const auto texts = makeDateTexts("en_US", "UTC");
    for (const auto& [seconds, text] : rows)
        EXPECT_EQ(texts->age({afternoon.seconds - seconds}, afternoon), text) << seconds;
}

TEST(DateTexts, takeAnyInstant)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const auto texts = makeDateTexts("en_US", "UTC");
    for (const double seconds : {-1e18, -1e12, 1e12, 1e18, 1e300, infinity, -infinity}) {
        EXPECT_NE(texts->dateAndTime({seconds}), "") << seconds;
        EXPECT_NE(texts->age({seconds}, afternoon), "") << seconds;
        EXPECT_NE(texts->age(afternoon, {seconds}), "") << seconds;
    }
    EXPECT_EQ(texts->date({std::nan("")}), "");
    EXPECT_EQ(texts->age({std::nan("")}, afternoon), "");
}

TEST(DateTexts, followTheUser)
{
    const ScopedVariable zone("TZ", "Europe/Zurich");
    const ScopedVariable all("LC_ALL", "C.UTF-8");
    const auto texts = makeDateTexts();
    EXPECT_EQ(texts->dateAndTime(afternoon), "Mar 9, 2024, 4:42\u202FPM");
    zone.apply("UTC");
    EXPECT_EQ(texts->dateAndTime(afternoon), "Mar 9, 2024, 3:42\u202FPM");

    const ScopedVariable language("LANG", "de_CH.UTF-8");
    const ScopedVariable time("LC_TIME", std::nullopt);
    for (const auto& [value, date] : {std::pair{std::optional<std::string>("en_GB.utf8"), "9 Mar 2024"},
                                      {std::optional<std::string>("xx_YY"), "Mar 9, 2024"},
                                      {std::optional<std::string>(""), "09.03.2024"},
                                      {std::optional<std::string>(), "09.03.2024"}}) {
        all.apply(value);
        EXPECT_EQ(makeDateTexts()->date(afternoon), date) << value.value_or("unset");
    }
    time.apply("en_GB");
    EXPECT_EQ(makeDateTexts()->date(afternoon), "9 Mar 2024");
}

TEST(LocaleIsMetric, isSoForAllButTheUSAndTheUK)
{
    const ScopedVariable own("LC_MEASUREMENT", std::nullopt);
    const ScopedVariable all("LC_ALL", std::nullopt);
    const ScopedVariable language("LANG", std::nullopt);
    for (const char* const name : {"de_CH.UTF-8", "fr_FR", "en_CA.UTF-8"}) {
        language.apply(name);
        EXPECT_TRUE(localeIsMetric()) << name;
    }
    for (const char* const name : {"C", "", "en_GB.UTF-8", "en_US.UTF-8"}) {
        language.apply(name);
        EXPECT_FALSE(localeIsMetric()) << name;
    }
    own.apply("de_DE.UTF-8");
    EXPECT_TRUE(localeIsMetric());
    own.apply("");
    all.apply("sv_SE.UTF-8");
    EXPECT_TRUE(localeIsMetric());
}

} // namespace
} // namespace ospra
