#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ospra {

/// What the command line asks for.
struct Options {
    std::string folder;
    std::uint64_t seed = 1;
    int jumps = 160;
    int companions = 3;
    std::chrono::sys_days end = std::chrono::year{2026} / std::chrono::September / 20;
    int files = 0; ///< plain logs for benchmarks in place of a season; 0 for the season
    int rows = 0;  ///< of each of them
    bool help = false;
};

/// A command line that cannot be understood; `what()` says why, for the user.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

[[nodiscard]] std::string_view usageText();

/// @param arguments without the name of the program
/// @throws UsageError
[[nodiscard]] Options parseOptions(std::span<const std::string_view> arguments);

} // namespace ospra
