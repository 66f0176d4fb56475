#pragma once

#include "logs/byteScan.h"

#include <optional>
#include <string_view>

namespace ospra {

/// Goes through the lines of a text that are not empty, and looks no further than the line that it gives.
class LineReader {
public:
    /// @param text a byte order mark at its start is passed over
    explicit LineReader(std::string_view text) noexcept : m_position(text.data()), m_end(m_position + text.size())
    {
        if (text.starts_with("\xEF\xBB\xBF"))
            m_position += 3;
    }

    /// The next line that is not empty, without its end.
    [[nodiscard]] std::optional<std::string_view> next() noexcept
    {
        const char* const line = skipLineEnds(m_position, m_end);
        if (line == m_end)
            return std::nullopt;
        m_position = findLineEnd(line, m_end);
        return std::string_view(line, m_position);
    }

    /// What follows the line that was given last.
    [[nodiscard]] std::string_view rest() const noexcept { return {m_position, m_end}; }

private:
    const char* m_position;
    const char* m_end;
};

inline constexpr std::string_view versionTag = "$FLYS"; ///< begins the first line of a log of version 2
inline constexpr std::string_view columnsTag = "$COL,GNSS,";
inline constexpr std::string_view dataTag = "$DATA"; ///< the whole line before the first sample
inline constexpr std::string_view sampleTag = "$GNSS,";

} // namespace ospra
