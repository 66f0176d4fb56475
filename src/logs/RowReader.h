#pragma once

#include "logs/ColumnMap.h"
#include "logs/FlySightFile.h"
#include "logs/RowFields.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace ospra {

/// Makes samples of the rows of one log, in one pass over their bytes. The columns are resolved once, and of a time in
/// the same minute as the one before only the seconds are read.
class RowReader {
public:
    /// @param textEnd the end of the text that all rows lie in
    RowReader(const ColumnMap& columns, const char* textEnd);

    /// Appends the sample of a row, unless the row lacks what a sample needs.
    /// @param row the first field, behind the tag if the row has one
    /// @return the end of the line
    const char* read(const char* row, std::vector<FlySightDataPoint>& samples);

    /// The bytes that a row with a sample has at least, its line end included; absent if no row can give a sample.
    [[nodiscard]] std::optional<std::size_t> shortestRow() const;

private:
    /// What comes before the seconds of a date in UTC.
    struct Minute {
        std::array<char, 17> text{'1', '9', '7', '0', '-', '0', '1', '-', '0', '1', 'T', '0', '0', ':', '0', '0', ':'};
        std::int64_t start = 0; ///< seconds since 1970
    };

    static constexpr std::size_t requiredNumbers = 6; ///< of the columns that are read as doubles, the first
    static constexpr std::size_t numberCount = 11;
    using Numbers = std::array<double, numberCount>; ///< by `Column`

    [[nodiscard]] RowFields cut(const char* row) const;
    bool readTime(const RowFields& fields, Instant& time);
    [[nodiscard]] std::optional<Instant> readPlainTime(std::string_view field) const;
    bool readNumbers(const RowFields& fields, Numbers& numbers) const;
    [[nodiscard]] std::optional<std::int64_t> readInteger(const RowFields& fields, Column column) const;

    [[nodiscard]] std::ptrdiff_t indexOf(Column column) const { return m_indices[static_cast<std::size_t>(column)]; }

    std::array<std::ptrdiff_t, allColumns.size()> m_indices{};   // of each column in the fields that are cut
    std::array<std::ptrdiff_t, allColumns.size()> m_positions{}; // of the columns that the log has, ascending
    std::size_t m_positionCount = 0;
    bool m_isWide = false; // the columns do not all lie among the fields that can be held
    Minute m_minute{};
    const char* m_textEnd;
};

} // namespace ospra
