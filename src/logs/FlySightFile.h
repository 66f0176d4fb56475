#pragma once

#include "platform/Coordinate.h"
#include "platform/Instant.h"
#include "platform/Uuid.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

/// One GNSS sample, as the logger wrote it. Nothing is checked for range: numbers may be NaN or infinite.
/// No equality: `id` is fresh for every row, so whoever compares says which fields.
struct FlySightDataPoint {
    Uuid id{};                       ///< `{}`: without it a designated initialiser that leaves `id` out warns
    Instant time{};                  ///< keeps the fraction of a second
    Coordinate coordinate{};         ///< degrees
    double altitudeMSL = 0.0;        ///< m above mean sea level
    double velocityNorth = 0.0;      ///< m/s
    double velocityEast = 0.0;       ///< m/s
    double velocityDown = 0.0;       ///< m/s, positive while sinking
    double horizontalAccuracy = 0.0; ///< m; 0 where the log has none
    double verticalAccuracy = 0.0;   ///< m; 0 where the log has none
    double speedAccuracy = 0.0;      ///< m/s; 0 where the log has none
    std::int64_t gpsFix = 3;         ///< 3 where the log has none
    std::int64_t numSatellites = 0;  ///< 0 where the log has none
    double heading = 0.0;            ///< as logged; 0 where the log has none
    double headingAccuracy = 0.0;    ///< as logged; 0 where the log has none
};

/// Speed over the ground, m/s, from the two horizontal velocities.
[[nodiscard]] double horizontalSpeed(const FlySightDataPoint& sample);

/// Speed through space, m/s, from all three velocities.
[[nodiscard]] double totalSpeed(const FlySightDataPoint& sample);

/// One parsed log.
struct FlySightFile {
    Uuid id{};                                   ///< fresh at every parse
    std::string fileName{};                      ///< the name that the caller gave
    std::vector<FlySightDataPoint> dataPoints{}; ///< in the order of the log, never sorted, never thinned

    /// Reads a log of either format, the tagged records of version 2 or the plain table of version 1. Rows that do
    /// not hold what a sample needs are dropped without a word. A pure function; any thread.
    /// @param text the whole log, UTF-8; one byte order mark at its start is dropped
    /// @param fileName stored as it is
    /// @return a file with at least one sample
    /// @throws FlySightParseError if the format is not known or no row gives a sample
    [[nodiscard]] static FlySightFile parse(std::string_view text, std::string fileName);
};

} // namespace ospra
