#pragma once

#include <QString>

#include <string_view>

namespace ospra {

/// UTF-8 to the views' text; invalid bytes become U+FFFD.
[[nodiscard]] inline QString toQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace ospra
