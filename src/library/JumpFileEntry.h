#pragma once

#include "platform/Instant.h"
#include "platform/Uuid.h"

#include <filesystem>
#include <optional>
#include <string>

namespace ospra {

/// One log that the scan found. The path is its identity.
struct JumpFileEntry {
    std::filesystem::path url{};
    std::string name{}; ///< what the log is called on screen, UTF-8
    std::optional<Instant> jumpDate{};
    std::optional<Instant> freefallDate{};
    Uuid jumperID{}; ///< the `Jumper` that owns the folder

    friend bool operator==(const JumpFileEntry& a, const JumpFileEntry& b) { return a.url == b.url; }
};

/// What a log is called: its name without the extension, or the name of its folder where loggers call every log
/// "TRACK" (in any case).
[[nodiscard]] std::string logName(const std::filesystem::path& path);

} // namespace ospra
