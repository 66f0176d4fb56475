#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace ospra {

/// Lists of texts by their keys; a key is names with slashes between them, all in UTF-8.
using SettingsValues = std::map<std::string, std::vector<std::string>>;

/// Reads a settings file, an INI file of lists: `key=one, "two, \"2\"", three` below `[General]`, or below `[name]` for
/// keys that begin with `name/`. Whatever else a value may look like, it stays text: a file that others can write is no
/// place for anything that has to be unpacked. Lines that say nothing are passed over; of two lines of one key the
/// last holds. Never fails.
[[nodiscard]] SettingsValues parseSettings(std::string_view text);

/// The file that `parseSettings` reads as these values, as far as they are UTF-8 and no list is empty.
[[nodiscard]] std::string settingsText(const SettingsValues& values);

} // namespace ospra
