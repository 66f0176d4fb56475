#pragma once

#include <string_view>

namespace ospra {

/// The colours that the logic speaks of, by name. What they look like in light and dark is the theme's affair.
enum class Color {
    white,
    yellow,
    cyan,
    pink,
    mint,
    indigo,
    blue,
    green,
    red,
    purple,
    orange,
    teal,
    primaryTrack, ///< the primary jumper's lines, markers and read-outs; white in dark, grey in light
};

/// The name in code and in developer tools, for instance "cyan"; "primary" for `primaryTrack`.
[[nodiscard]] constexpr std::string_view colorName(Color color)
{
    switch (color) {
    case Color::white: return "white";
    case Color::yellow: return "yellow";
    case Color::cyan: return "cyan";
    case Color::pink: return "pink";
    case Color::mint: return "mint";
    case Color::indigo: return "indigo";
    case Color::blue: return "blue";
    case Color::green: return "green";
    case Color::red: return "red";
    case Color::purple: return "purple";
    case Color::orange: return "orange";
    case Color::teal: return "teal";
    case Color::primaryTrack: return "primary";
    }
    return "";
}

} // namespace ospra
