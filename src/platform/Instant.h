#pragma once

#include <compare>

namespace ospra {

/// A point in time, without a time zone.
struct Instant {
    double seconds = 0.0; ///< since 1970-01-01T00:00:00Z; whole seconds plus milliseconds / 1000

    friend auto operator<=>(const Instant&, const Instant&) = default;
};

/// @return seconds, negative where `to` lies before `from`
[[nodiscard]] constexpr double secondsBetween(Instant from, Instant to)
{
    return to.seconds - from.seconds;
}

/// The system's clock.
[[nodiscard]] Instant currentInstant();

} // namespace ospra
