#pragma once

namespace ospra {

/// A place on the ground (WGS 84). Not checked: a log may hold any number, also NaN and infinities.
struct Coordinate {
    double latitude = 0.0;  ///< degrees, north positive
    double longitude = 0.0; ///< degrees, east positive

    friend bool operator==(const Coordinate&, const Coordinate&) = default;
};

} // namespace ospra
