#pragma once

#include "platform/Color.h"
#include "platform/Uuid.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>

namespace ospra {

/// The colours of jumpers: the first is the primary's, companions take the next in turn.
inline constexpr std::array jumperPalette{Color::white, Color::yellow, Color::cyan,
                                          Color::pink,  Color::mint,   Color::indigo};

/// One person, represented by a folder of logs.
struct Jumper {
    Uuid id{};                            ///< fresh for each opening
    std::string name{};                   ///< the folder's name, UTF-8
    std::filesystem::path directoryURL{}; ///< the opened folder
    Color color = Color::white;           ///< never changed once given
};

/// A new jumper for a folder.
/// @param index how many jumpers there are before it, which decides the colour
[[nodiscard]] Jumper makeJumper(const std::filesystem::path& folder, std::size_t index);

/// The last component of a path as UTF-8 text, also if the path ends in a slash.
[[nodiscard]] std::string lastPathComponent(const std::filesystem::path& path);

} // namespace ospra
