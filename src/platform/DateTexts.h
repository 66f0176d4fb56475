#pragma once

#include "platform/Instant.h"

#include <memory>
#include <string>

namespace ospra {

/// The forms in which dates stand on screen, in the user's locale and time zone. All texts are UTF-8.
/// Thread-compatible: one thread at a time.
class DateTexts {
public:
    virtual ~DateTexts() = default;

    [[nodiscard]] virtual std::string date(Instant instant) const = 0;        ///< medium style: "Mar 9, 2024"
    [[nodiscard]] virtual std::string dateAndTime(Instant instant) const = 0; ///< medium, short: "Mar 9, 2024, 4:42 PM"
    [[nodiscard]] virtual std::string monthShort(Instant instant) const = 0;  ///< pattern "MMM": "Mar"
    [[nodiscard]] virtual std::string monthAndYear(Instant instant) const = 0; ///< pattern "LLLL yyyy": "March 2024"
    /// How long before (or after) `now`, abbreviated, in the largest unit that is at least one: "2 mo. ago".
    [[nodiscard]] virtual std::string age(Instant instant, Instant now) const = 0;
};

/// @param locale an ICU locale name such as "en_US", empty for the user's
/// @param timeZone a zone of the tz database, empty for the user's
[[nodiscard]] std::unique_ptr<DateTexts> makeDateTexts(const std::string& locale = {},
                                                       const std::string& timeZone = {});

/// Whether the user's locale measures in metric units (not the US or the UK system).
[[nodiscard]] bool localeIsMetric();

} // namespace ospra
