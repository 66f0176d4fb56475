#pragma once

#include "library/JumpGroup.h"
#include "platform/Calendar.h"
#include "platform/DateTexts.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ospra {

/// One section of the list of jumps.
struct DateSection {
    std::string date{};                ///< identifies the section
    std::string label{};               ///< its heading, the same text
    std::vector<std::size_t> groups{}; ///< positions in the list of jumps, ascending
};

/// Puts the jumps under the days on which they were made, newest day first; jumps without a date come last, under
/// "Unknown Date". Two days are two sections only if their texts differ.
/// @param selectedDay when present, only the jumps of that day are taken, and none without a date
[[nodiscard]] std::vector<DateSection> dateSections(std::span<const JumpGroup> groups,
                                                    std::optional<Instant> selectedDay, const Calendar& calendar,
                                                    const DateTexts& texts);

} // namespace ospra
