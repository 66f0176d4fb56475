#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace ospra {

/// The ICU name of a locale as environment variables spell it ("de_CH.UTF-8"); "en_US" for an empty name, "C", "POSIX"
/// and languages that nobody knows.
[[nodiscard]] std::string canonicalLocale(const char* name);

/// The ICU name of the locale that the environment sets for a category ("LC_TIME"): from LC_ALL, the category's own
/// variable or LANG, the first that is not empty.
[[nodiscard]] std::string userLocale(const char* category);

/// The user's time zone and locale for dates. Asking again is cheap enough to be done at every question to a calendar.
class UserEnvironment {
public:
    UserEnvironment();

    /// Looks at the system again: at the variable TZ each time, at the locale and the system's time zone at most once
    /// a second.
    /// @return whether the time zone or the locale is another than before
    bool refresh();
    /// An id that ICU knows.
    [[nodiscard]] const std::string& timeZone() const { return m_timeZone; }
    /// The ICU name of the locale for dates.
    [[nodiscard]] const std::string& locale() const { return m_locale; }

private:
    /// Tells one state of the file that names the system's time zone from another.
    struct ZoneFileStamp {
        std::uint64_t inode = 0;
        std::int64_t changeSeconds = 0;
        std::int64_t changeNanoseconds = 0;

        friend bool operator==(const ZoneFileStamp&, const ZoneFileStamp&) = default;
    };

    [[nodiscard]] static ZoneFileStamp zoneFileStamp();
    bool detectTimeZone();

    std::time_t m_checkedSecond = 0; ///< of a clock that only runs forward
    std::string m_zoneVariable;
    ZoneFileStamp m_zoneFileStamp{};
    std::string m_timeZone;
    std::string m_locale;
};

} // namespace ospra
