#pragma once

#include "raster/DashPattern.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ospra {

/// A position in device pixels; the centre of the first pixel is at 0.5, 0.5.
struct PixelPoint {
    double x = 0.0;
    double y = 0.0;
};

/// Whole device pixels; `right` and `bottom` lie outside.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// How a stroke closes.
enum class StrokeEnd {
    round,
    flat,
    joined, ///< round, and another stroke of the line begins there, which draws what lies beyond
};

/// How much of each pixel one line covers. Strokes of one line are joined by their maximum, so that a translucent line
/// is as even where it crosses itself as elsewhere. Pixels are kept column by column, since plots are drawn that way.
class CoverageMask {
public:
    /// Gives the mask its size. It must be empty, as it is at first and after painting.
    void resize(int columns, int rows);

    [[nodiscard]] int columns() const { return m_columns; }
    [[nodiscard]] int rows() const { return m_rows; }

    /// Width of the strokes to come, in pixels. Thinner ones than 1 are drawn 1 wide and fainter, those beyond 1000
    /// as if they were that.
    void setStrokeWidth(double width);
    /// What a stroke reaches beyond its middle, soft edge included.
    [[nodiscard]] double reach() const { return m_reach; }

    /// A straight stroke. The ends should not lie further outside than a few times the size of the mask, in which case
    /// the cost is that of the pixels covered.
    void strokeSegment(PixelPoint a, PixelPoint b, StrokeEnd startsAs = StrokeEnd::round,
                       StrokeEnd endsAs = StrokeEnd::round);
    /// A vertical stroke with round ends along the middle of a column, from `top` to `bottom`. Ends may lie anywhere.
    void strokeColumn(int column, double top, double bottom);

    /// A rectangle with hard edges, cut into dashes from the top down. It lies within the mask.
    /// @param dash in pixels here
    void fillRule(const PixelRect& rect, DashPattern dash);

    /// Draws the mask in one colour over premultiplied pixels, column after column of `rows()`, and empties it.
    /// @param argb not premultiplied
    void paintOver(std::span<std::uint32_t> pixels, std::uint32_t argb);

private:
    struct RowRange {
        int first = 0;
        int last = -1; // inclusive; empty where below `first`
    };

    [[nodiscard]] std::uint8_t* column(int index) { return m_coverage.data() + std::ptrdiff_t{index} * m_stride; }
    /// The rows with a centre from `top` to `bottom`, as far as they are in the mask.
    [[nodiscard]] RowRange rowsBetween(double top, double bottom) const;
    void touch(int index, RowRange rows);
    /// Raises the rows of one column to what a vertical stroke `offset` columns away covers.
    void stampColumn(int index, int offset, double top, double bottom);

    int m_columns = 0;
    int m_rows = 0;
    std::ptrdiff_t m_stride = 0; // of a column; some bytes longer than it has rows, so that blocks may run over
    double m_reach = 1.0;
    double m_strength = 1.0; // greatest coverage, 0 to 1
    std::vector<std::uint8_t> m_coverage;
    std::vector<RowRange> m_touched; // per column
};

} // namespace ospra
