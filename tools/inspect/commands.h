#pragma once

#include <optional>
#include <span>
#include <string>

namespace ospra {

// Each command turns its arguments into the JSON text to print; absent where the arguments are wrong. A log or folder
// that cannot be read is told in the JSON.

[[nodiscard]] std::optional<std::string> inspectProbe(std::span<const std::string> files);
[[nodiscard]] std::optional<std::string> inspectLog(std::span<const std::string> arguments);
[[nodiscard]] std::optional<std::string> inspectJump(std::span<const std::string> arguments);
[[nodiscard]] std::optional<std::string> inspectFolder(std::span<const std::string> arguments);
[[nodiscard]] std::optional<std::string> inspectOverview(std::span<const std::string> arguments);

} // namespace ospra
