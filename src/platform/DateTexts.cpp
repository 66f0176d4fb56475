#include "platform/DateTexts.h"

#include "platform/UserEnvironment.h"

#include <unicode/calendar.h>
#include <unicode/gregocal.h>
#include <unicode/reldatefmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/ulocdata.h>

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

namespace ospra {

namespace {

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

/// The formatters of one locale and zone. They are costly to make and are kept.
struct Formatters {
    std::unique_ptr<icu::DateFormat> date;
    std::unique_ptr<icu::DateFormat> dateAndTime;
    std::unique_ptr<icu::DateFormat> monthShort;
    std::unique_ptr<icu::DateFormat> monthAndYear;
    std::unique_ptr<icu::RelativeDateTimeFormatter> age;
    std::unique_ptr<icu::Calendar> calendar; ///< counts whole units between two moments
};

std::unique_ptr<icu::DateFormat> patternFormat(const char16_t* pattern, const icu::Locale& locale, UErrorCode& status)
{
    return std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString(pattern), locale, status);
}

/// @return absent if ICU lacks what it needs
std::optional<Formatters> makeFormatters(const std::string& localeName, const std::string& timeZone)
{
    using icu::DateFormat;
    const icu::Locale locale(localeName.c_str());
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone)));
    UErrorCode status = U_ZERO_ERROR;
    Formatters formatters;
    formatters.date.reset(DateFormat::createDateInstance(DateFormat::kMedium, locale));
    formatters.dateAndTime.reset(DateFormat::createDateTimeInstance(DateFormat::kMedium, DateFormat::kShort, locale));
    formatters.monthShort = patternFormat(u"MMM", locale, status);
    formatters.monthAndYear = patternFormat(u"LLLL yyyy", locale, status);
    formatters.age = std::make_unique<icu::RelativeDateTimeFormatter>(locale, nullptr, UDAT_STYLE_SHORT,
                                                                      UDISPCTX_CAPITALIZATION_NONE, status);
    formatters.calendar = std::make_unique<icu::GregorianCalendar>(*zone, status);
    if (U_FAILURE(status) != 0 || !formatters.date || !formatters.dateAndTime)
        return std::nullopt;
    for (const auto* const format :
         {&formatters.date, &formatters.dateAndTime, &formatters.monthShort, &formatters.monthAndYear})
        (*format)->setTimeZone(*zone);
    return formatters;
}

/// The time in ms, kept inside what ICU can reckon with; absent for what is no number.
std::optional<double> formattableTime(Instant instant)
{
    constexpr double limit = 8.0e15; // ms from 1970
    const double time = std::round(instant.seconds * 1000.0);
    return std::isnan(time) ? std::nullopt : std::optional(std::clamp(time, -limit, limit));
}

class IcuDateTexts final : public DateTexts {
public:
    IcuDateTexts(Formatters formatters, std::string locale, std::unique_ptr<UserEnvironment> environment)
        : m_formatters(std::move(formatters)), m_locale(std::move(locale)), m_environment(std::move(environment))
    {}

    std::string date(Instant instant) const override { return text(&Formatters::date, instant); }
    std::string dateAndTime(Instant instant) const override { return text(&Formatters::dateAndTime, instant); }
    std::string monthShort(Instant instant) const override { return text(&Formatters::monthShort, instant); }
    std::string monthAndYear(Instant instant) const override { return text(&Formatters::monthAndYear, instant); }

    std::string age(Instant instant, Instant now) const override
    {
        struct Unit {
            UCalendarDateFields field;
            URelativeDateTimeUnit unit;
        };
        // The calendar counts: from 31 January to 28 February is no month yet, whatever its length.
        constexpr Unit units[] = {{UCAL_YEAR, UDAT_REL_UNIT_YEAR},         {UCAL_MONTH, UDAT_REL_UNIT_MONTH},
                                  {UCAL_WEEK_OF_YEAR, UDAT_REL_UNIT_WEEK}, {UCAL_DATE, UDAT_REL_UNIT_DAY},
                                  {UCAL_HOUR_OF_DAY, UDAT_REL_UNIT_HOUR},  {UCAL_MINUTE, UDAT_REL_UNIT_MINUTE},
                                  {UCAL_SECOND, UDAT_REL_UNIT_SECOND}};
        const auto from = formattableTime(now);
        const auto to = formattableTime(instant);
        if (!from || !to)
            return {};
        const Formatters& formatters = current();
        UErrorCode status = U_ZERO_ERROR;
        formatters.calendar->setTime(*from, status);
        double amount = 0.0;
        URelativeDateTimeUnit amountUnit = UDAT_REL_UNIT_SECOND;
        for (const auto& [field, unit] : units) {
            amount = formatters.calendar->fieldDifference(*to, field, status);
            amountUnit = unit;
            if (amount != 0.0)
                break;
        }
        if (amount == 0.0)
            amount = -0.0; // the sign chooses "0 sec. ago" rather than "in 0 sec."
        icu::UnicodeString text;
        formatters.age->formatNumeric(amount, amountUnit, text, status);
        return U_FAILURE(status) != 0 ? std::string() : utf8(text);
    }

private:
    [[nodiscard]] const Formatters& current() const
    {
        if (m_environment && m_environment->refresh()) {
            auto renewed = makeFormatters(m_locale, m_environment->timeZone());
            if (renewed)
                m_formatters = *std::move(renewed);
        }
        return m_formatters;
    }

    [[nodiscard]] std::string text(std::unique_ptr<icu::DateFormat> Formatters::* format, Instant instant) const
    {
        const auto time = formattableTime(instant);
        icu::UnicodeString text;
        return time ? utf8((current().*format)->format(*time, text)) : std::string();
    }

    mutable Formatters m_formatters;
    std::string m_locale;
    mutable std::unique_ptr<UserEnvironment> m_environment; ///< null for a fixed zone
};

} // namespace

std::unique_ptr<DateTexts> makeDateTexts(const std::string& locale, const std::string& timeZone)
{
    auto environment = timeZone.empty() ? std::make_unique<UserEnvironment>() : nullptr;
    std::string localeName = locale.empty() ? userLocale("LC_TIME") : locale;
    const std::string& zone = environment ? environment->timeZone() : timeZone;
    auto formatters = makeFormatters(localeName, zone);
    if (!formatters)
        formatters = makeFormatters("en_US", zone);
    assert(formatters);
    return std::make_unique<IcuDateTexts>(*std::move(formatters), std::move(localeName), std::move(environment));
}

bool localeIsMetric()
{
    // The own variable of the category goes before LC_ALL here: who sets it, wishes for units apart from the language.
    const char* const measurement = std::getenv("LC_MEASUREMENT");
    const bool isOwn = measurement != nullptr && *measurement != '\0';
    const std::string locale = isOwn ? canonicalLocale(measurement) : userLocale("LC_MEASUREMENT");
    UErrorCode status = U_ZERO_ERROR;
    const UMeasurementSystem system = ulocdata_getMeasurementSystem(locale.c_str(), &status);
    return U_SUCCESS(status) != 0 && system == UMS_SI;
}

} // namespace ospra
