#pragma once

#include <chrono>
#include <span>

namespace ospra {

enum class SummerTime { none, european };

/// A drop zone. The positions lie in open country near airfields where people do jump, but belong to none of them.
struct Place {
    double latitude = 0.0;      ///< degrees, of the landing target
    double longitude = 0.0;     ///< degrees
    double elevation = 0.0;     ///< m above mean sea level
    double runwayBearing = 0.0; ///< degrees; the runway lies 350 m east of the target
    double exitHeight = 0.0;    ///< m above the landing area
    int hoursFromUtc = 0;       ///< in winter
    SummerTime summerTime = SummerTime::none;
};

/// Home first, then the one nearby, then those of holidays.
[[nodiscard]] std::span<const Place> allPlaces();

/// The time of the place's clocks less UTC on a day, changes of clocks taken to happen at midnight.
[[nodiscard]] std::chrono::hours clockOffset(const Place& place, std::chrono::sys_days day);

} // namespace ospra
