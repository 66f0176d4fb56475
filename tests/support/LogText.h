#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

enum class LogVersion { version1, version2 };

/// A log as its parts, for tests that care for one of them.
struct LogText {
    LogVersion version = LogVersion::version1;
    std::string columns = "time,lat,lon,hMSL,velN,velE,velD"; ///< the names, between commas
    std::vector<std::string> rows{};                          ///< the fields, between commas, without a tag
    std::string lineEnd = "\n";

    [[nodiscard]] std::string text() const;
};

/// What a log of a whole jump is made of.
struct FlightLogOptions {
    LogVersion version = LogVersion::version1;
    std::ptrdiff_t rows = 1000;
    std::string_view lineEnd = "\n";
    double exitAt = 0.6;  ///< the part of the rows that lies before the exit; above 1 the aircraft lands again
    int otherRecords = 0; ///< in a log of version 2, records of other sensors behind each row
    unsigned seed = 1;
};

/// The text of a log with 14 columns and five rows a second: climb, fall and canopy, with noise.
/// The same options give the same text everywhere.
[[nodiscard]] std::string makeFlightLog(const FlightLogOptions& options);

} // namespace ospra
