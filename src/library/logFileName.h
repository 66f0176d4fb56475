#pragma once

#include <string_view>

namespace ospra {

/// The name of a file, cut at its last dot. Names are taken as bytes: whatever they hold, it is shown and compared as
/// it stands on the disk.
struct LogFileName {
    std::string_view stem{};      ///< what stands before the dot
    std::string_view extension{}; ///< what follows it; empty without a dot, or if nothing stands before the dot
};

/// @param fileName the last component of a path; the result refers to it
[[nodiscard]] LogFileName splitFileName(std::string_view fileName);

/// Whether the texts are equal but for the case of ASCII letters.
[[nodiscard]] bool equalsIgnoringCase(std::string_view a, std::string_view b);

/// Whether a file of this name counts as a log: "csv" behind the dot, and not the second file that newer loggers write
/// beside each track, "SENSOR.CSV".
[[nodiscard]] bool isLogFileName(std::string_view fileName);

} // namespace ospra
