#pragma once

#include "library/JumpGroup.h"
#include "platform/Calendar.h"
#include "platform/Instant.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace ospra {

inline constexpr int sunday = 1;
inline constexpr int monday = 2;

/// A moment by its UTC clock.
inline Instant utc(int year, unsigned month, unsigned day, int hour = 0, int minute = 0, int second = 0)
{
    using namespace std::chrono;
    const sys_days date = std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
    const sys_seconds time = date + hours(hour) + minutes(minute) + seconds(second);
    return Instant{static_cast<double>(time.time_since_epoch().count())};
}

/// A list of jumps of these dates. Each has the name of its place in the list: "0", "1" and so on.
inline std::vector<JumpGroup> makeGroups(const std::vector<std::optional<Instant>>& dates)
{
    std::vector<JumpGroup> groups(dates.size());
    for (std::size_t i = 0; i < dates.size(); ++i) {
        groups[i].primaryEntry.name = std::to_string(i);
        groups[i].jumpDate = dates[i];
    }
    return groups;
}

/// The names of the jumps, one after the other.
inline std::string namesOf(const std::vector<JumpGroup>& groups)
{
    std::string names;
    for (const JumpGroup& group : groups)
        names += group.primaryEntry.name;
    return names;
}

} // namespace ospra
