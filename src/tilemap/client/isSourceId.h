#pragma once

#include <algorithm>
#include <string_view>

namespace ospra {

/// Whether a word can name a source and its folder: 1 to 40 small letters, digits and hyphens.
[[nodiscard]] constexpr bool isSourceId(std::string_view word)
{
    return !word.empty() && word.size() <= 40 && std::ranges::all_of(word, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
    });
}

} // namespace ospra
