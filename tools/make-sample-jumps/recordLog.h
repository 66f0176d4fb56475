#pragma once

#include "tools/make-sample-jumps/JumpFlight.h"

#include <cstdint>
#include <vector>

namespace ospra {

/// One row of a log.
struct Fix {
    std::int64_t time = 0;           ///< ms since 1970 in UTC
    double latitude = 0.0;           ///< degrees
    double longitude = 0.0;          ///< degrees
    double altitudeMSL = 0.0;        ///< m
    Vector3 velocity{};              ///< m/s
    double horizontalAccuracy = 0.0; ///< m
    double verticalAccuracy = 0.0;   ///< m
    double speedAccuracy = 0.0;      ///< m/s
    double heading = 0.0;            ///< degrees, 0 to 360
    double headingAccuracy = 0.0;    ///< degrees
    int gpsFix = 3;
    int satellites = 0;
};

/// When the logger runs and how well it starts.
struct RecordOrder {
    Place place{};
    std::int64_t exitInstant = 0; ///< ms since 1970 of the load's time 0
    double from = 0.0;            ///< s, on the load's clock
    double to = 0.0;              ///< s, exclusive
    int rate = 5;                 ///< Hz, a divisor of 1000
    double startError = 20.0;     ///< m, the accuracy of the very first fix; it settles within half a minute
    bool dropOuts = true;         ///< whether rows go missing for seconds here and there
};

/// What a logger writes down of a flight: the truth with the errors of satellite navigation.
/// @param flight none for somebody who stays in the aircraft
[[nodiscard]] std::vector<Fix> recordLog(const RecordOrder& order, const Load& load, const JumpFlight* flight,
                                         const Random& random);

} // namespace ospra
