#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace ospra {

/// One sample of one series, ready to draw.
struct ChartPoint {
    std::int64_t id = 0;  ///< the sample's index in its log, also after a cut
    double seconds = 0.0; ///< on the common time axis
    double value = 0.0;   ///< in display units

    friend bool operator==(const ChartPoint&, const ChartPoint&) = default;
};

/// An immutable list of chart points. Copies and cuts of a series share its points, so that they cost next to nothing
/// whatever its length, and may be handed to other threads.
class ChartPoints {
public:
    ChartPoints() = default;
    explicit ChartPoints(std::vector<ChartPoint> points);

    [[nodiscard]] std::span<const ChartPoint> span() const { return m_span; }
    [[nodiscard]] bool empty() const { return m_span.empty(); }
    [[nodiscard]] std::size_t size() const { return m_span.size(); }
    [[nodiscard]] const ChartPoint& operator[](std::size_t index) const { return m_span[index]; }
    [[nodiscard]] auto begin() const { return m_span.begin(); }
    [[nodiscard]] auto end() const { return m_span.end(); }
    /// What keeps the points alive.
    [[nodiscard]] std::shared_ptr<const void> owner() const { return m_points; }

    /// The points with `lo` <= seconds <= `hi`, in order. Two binary searches where the seconds ascend; a new list
    /// made by a linear scan where a clock ran backwards or a time is NaN.
    [[nodiscard]] ChartPoints cut(double lo, double hi) const;

    /// Equal points in equal order; NaN equals nothing.
    friend bool operator==(const ChartPoints& a, const ChartPoints& b);

private:
    struct Storage {
        std::vector<ChartPoint> points{};
        bool ascending = true;
    };

    std::shared_ptr<const Storage> m_points;
    std::span<const ChartPoint> m_span;
};

} // namespace ospra
