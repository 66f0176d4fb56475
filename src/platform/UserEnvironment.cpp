#include "platform/UserEnvironment.h"

#include <unicode/locid.h>
#include <unicode/timezone.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace ospra {

namespace {

/// The variable's text, empty if it is not set.
const char* environmentVariable(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::time_t coarseSecond()
{
    std::timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return now.tv_sec;
}

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

} // namespace

std::string canonicalLocale(const char* name)
{
    // "C" and "POSIX", with or without a character set, name no known language either.
    const icu::Locale locale = icu::Locale::createCanonical(name);
    const bool isKnown = *name != '\0' && *locale.getISO3Language() != '\0';
    return isKnown ? locale.getName() : "en_US";
}

std::string userLocale(const char* category)
{
    for (const char* const variable : {"LC_ALL", category, "LANG"}) {
        const char* const name = environmentVariable(variable);
        if (*name != '\0')
            return canonicalLocale(name);
    }
    return canonicalLocale("");
}

UserEnvironment::UserEnvironment()
    : m_checkedSecond(coarseSecond()), m_zoneVariable(environmentVariable("TZ")), m_zoneFileStamp(zoneFileStamp()),
      m_locale(userLocale("LC_TIME"))
{
    detectTimeZone();
}

bool UserEnvironment::refresh()
{
    const std::string_view zoneVariable = environmentVariable("TZ");
    const std::time_t second = coarseSecond();
    if (second == m_checkedSecond && zoneVariable == m_zoneVariable)
        return false;
    m_checkedSecond = second;
    std::string locale = userLocale("LC_TIME");
    bool isChanged = locale != m_locale;
    m_locale = std::move(locale);
    const ZoneFileStamp stamp = zoneFileStamp();
    if (zoneVariable != m_zoneVariable || stamp != m_zoneFileStamp) {
        m_zoneVariable = zoneVariable;
        m_zoneFileStamp = stamp;
        isChanged = detectTimeZone() || isChanged;
    }
    return isChanged;
}

UserEnvironment::ZoneFileStamp UserEnvironment::zoneFileStamp()
{
    struct stat status{};
    if (::lstat("/etc/localtime", &status) != 0) // the link itself: it is replaced when the user chooses another zone
        return {};
    return {
        .inode = status.st_ino, .changeSeconds = status.st_ctim.tv_sec, .changeNanoseconds = status.st_ctim.tv_nsec};
}

/// @return whether the zone is another than before
bool UserEnvironment::detectTimeZone()
{
    const std::unique_ptr<icu::TimeZone> host(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString id;
    host->getID(id);
    const std::unique_ptr<icu::TimeZone> known(icu::TimeZone::createTimeZone(id));
    std::string name = utf8(id);
    if (*known == icu::TimeZone::getUnknown()) { // it has a rule of its own; its distance from UTC is kept at least
        const int minutes = host->getRawOffset() / 60'000;
        const int size = std::abs(minutes);
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "GMT%c%02d:%02d", minutes < 0 ? '-' : '+', size / 60, size % 60);
        name = text.data();
    }
    const bool isChanged = name != m_timeZone;
    m_timeZone = std::move(name);
    return isChanged;
}

} // namespace ospra
