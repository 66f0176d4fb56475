#pragma once

#include <array>
#include <cstdio>
#include <string>

namespace ospra::properties {

/// As `printf` does.
template <typename... Values>
std::string print(const char* format, Values... values)
{
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

} // namespace ospra::properties
