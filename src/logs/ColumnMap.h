#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ospra {

/// The columns that a sample is made of. Those that are read as doubles come first, and of these the required ones.
enum class Column : std::uint8_t {
    latitude,
    longitude,
    altitudeMSL,
    velocityNorth,
    velocityEast,
    velocityDown,
    horizontalAccuracy,
    verticalAccuracy,
    speedAccuracy,
    heading,
    headingAccuracy,
    time,
    gpsFix,
    numSatellites,
};

inline constexpr std::array allColumns{
    Column::latitude,      Column::longitude,    Column::altitudeMSL,        Column::velocityNorth,
    Column::velocityEast,  Column::velocityDown, Column::horizontalAccuracy, Column::verticalAccuracy,
    Column::speedAccuracy, Column::heading,      Column::headingAccuracy,    Column::time,
    Column::gpsFix,        Column::numSatellites};

/// Where the columns stand in a row.
class ColumnMap {
public:
    ColumnMap() = default;

    /// @param names the header, names between commas. Blanks around a name and its case do not matter; of two columns
    /// of one name the later counts; unknown names are passed over.
    explicit ColumnMap(std::string_view names);

    /// Counted from 0; absent if the log has no such column.
    [[nodiscard]] std::optional<std::ptrdiff_t> position(Column column) const
    {
        return m_positions[static_cast<std::size_t>(column)];
    }
    [[nodiscard]] bool holds(Column column) const { return position(column).has_value(); }

    /// Whether the header has what is asked of a log. The two horizontal velocities are asked of the rows only.
    [[nodiscard]] bool isComplete() const;

private:
    std::array<std::optional<std::ptrdiff_t>, allColumns.size()> m_positions{};
};

} // namespace ospra
