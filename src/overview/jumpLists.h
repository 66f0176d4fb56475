#pragma once

#include "library/JumpGroup.h"
#include "overview/DatedGroup.h"
#include "platform/Calendar.h"
#include "platform/Instant.h"

#include <optional>
#include <span>
#include <vector>

namespace ospra {

/// The jumps of the selected day, newest first, whatever the time range; empty without a selected day.
/// @param dated the dated jumps of `groups`, newest first
[[nodiscard]] std::vector<JumpGroup> selectedDayGroups(std::span<const JumpGroup> groups,
                                                       std::span<const DatedGroup> dated,
                                                       std::optional<Instant> selectedDay, const Calendar& calendar);

/// The three newest jumps, fewer if there are fewer. Jumps without a date stand at the end.
[[nodiscard]] std::vector<JumpGroup> recentGroups(std::span<const JumpGroup> groups);

/// The selected day after a click on a day: its start, or none if that day was selected already or nothing was clicked.
[[nodiscard]] std::optional<Instant> selectedDayAfterClick(std::optional<Instant> selectedDay,
                                                           std::optional<Instant> clicked, const Calendar& calendar);

} // namespace ospra
