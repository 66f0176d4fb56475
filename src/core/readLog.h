#pragma once

#include "logs/FlySightFile.h"
#include "platform/Files.h"

#include <filesystem>
#include <optional>
#include <string>

namespace ospra {

/// A parsed log, or the user's text of why there is none.
struct ReadLog {
    std::optional<FlySightFile> file{};
    std::string errorText{}; ///< empty exactly if there is a file
};

/// Reads and parses one log. Any thread, each with a reader of its own.
/// @param name stored as the file's name
[[nodiscard]] ReadLog readLog(const std::filesystem::path& path, const std::string& name, FileReader& reader);

} // namespace ospra
