#pragma once

#include "logs/byteScan.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace ospra {

/// The fields of one row, cut before any of them is read, so that the processor can read several at a time: the start
/// of a field does not wait for the digits of the one before.
class RowFields {
public:
    static constexpr std::ptrdiff_t most = 47; ///< fields that can be held

    /// Cuts the first fields of the line that begins here; the index of a field is its position.
    RowFields(const char* row, const char* textEnd) noexcept : m_row(row)
    {
        m_starts[0] = 0;
        const char* position = row;
        for (; textEnd - position >= WideBlock::size; position += WideBlock::size) {
            WideBlock block(position);
            const char* const end = block.firstLineEnd(position, textEnd);
            if (end != nullptr)
                block.dropCommasFrom(end - position);
            addCommas(block.commas, position - row);
            if (end != nullptr) {
                finish(end);
                return;
            }
        }
        while (position != textEnd && lineEndLength(position, textEnd) == 0) {
            addCommas(*position == ',' ? 1 : 0, position - row);
            ++position;
        }
        finish(position);
    }

    /// Cuts some fields of a line that may have any number of them. The index of a field is twice its place in
    /// `positions`; at the odd indices stands nothing of use.
    /// @param positions ascending
    RowFields(const char* row, const char* textEnd, std::span<const std::ptrdiff_t> positions) noexcept
        : m_row(row), m_count(0)
    {
        const char* field = row;
        std::ptrdiff_t fieldPosition = 0;
        for (const std::ptrdiff_t position : positions) {
            const std::optional<const char*> next = skipFields(field, textEnd, position - fieldPosition);
            if (!next)
                break;
            field = *next;
            fieldPosition = position;
            m_starts[static_cast<std::size_t>(m_count++)] = field - row;
            m_starts[static_cast<std::size_t>(m_count++)] = findFieldEnd(field, textEnd) - row + 1;
        }
        m_lineEnd = findLineEnd(field, textEnd);
    }

    [[nodiscard]] const char* lineEnd() const noexcept { return m_lineEnd; }

    /// Above the index of every field that was cut.
    [[nodiscard]] std::ptrdiff_t count() const noexcept { return m_count; }

    /// @param index below `count()`
    [[nodiscard]] std::string_view operator[](std::ptrdiff_t index) const noexcept
    {
        const auto i = static_cast<std::size_t>(index);
        return {m_row + m_starts[i], m_row + m_starts[i + 1] - 1};
    }

private:
    static constexpr std::ptrdiff_t group = 8;

    /// Notes the starts behind these commas. Whole groups are written, whatever they hold, since a loop of as many
    /// rounds as there are commas is mispredicted once a block.
    void addCommas(std::uint64_t commas, std::ptrdiff_t offset) noexcept
    {
        std::ptrdiff_t start = m_count;
        m_count += countBits(commas);
        for (; commas != 0 && start <= most; start += group) {
            for (std::ptrdiff_t i = 0; i < group; ++i) {
                m_starts[static_cast<std::size_t>(start + i)] = offset + std::countr_zero(commas) + 1;
                commas &= commas - 1;
            }
        }
    }

    void finish(const char* lineEnd) noexcept
    {
        m_lineEnd = lineEnd;
        if (m_count <= most)
            m_starts[static_cast<std::size_t>(m_count)] = lineEnd - m_row + 1;
        else
            m_count = most;
    }

    const char* m_row;
    const char* m_lineEnd = nullptr;
    std::ptrdiff_t m_count = 1;
    std::array<std::ptrdiff_t, most + 1 + group>
        m_starts; // from the row's start; not set: only what is written is read
};

} // namespace ospra
