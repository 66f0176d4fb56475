#pragma once

#include "plot/PlotContent.h"
#include "raster/CoverageMask.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ospra {

/// Where a plot lies in its picture, in device pixels, and what it shows.
struct PlotFrame {
    int columns = 0;        ///< size of the picture
    int rows = 0;           ///
    double plotWidth = 0.0; ///< from the left edge of the picture on
    double plotTop = 0.0;   ///< rows above the plot, so that a line along its edge is not cut
    double plotHeight = 0.0;
    double scale = 1.0; ///< device pixels in a logical one
    ValueRange seconds{0.0, 1.0};
    ValueRange values{0.0, 1.0};

    [[nodiscard]] LinearScale xScale() const { return {seconds, 0.0, plotWidth}; }
    [[nodiscard]] LinearScale yScale() const { return {values, plotTop + plotHeight, plotTop}; }

    friend bool operator==(const PlotFrame&, const PlotFrame&) = default;
};

/// Draws the lines and rules of a plot. Points are reduced to pixel columns (first, least, greatest, last) only here,
/// so that the picture is that of all samples. One object draws many pictures and keeps its memory for the next.
class PlotRasteriser {
public:
    /// Any content and any frame will do: what cannot be placed is left out.
    /// @param pixels premultiplied ARGB, overwritten: `rows` times `pixelStride`, of which the first `columns` count
    /// @param pixelStride from one row to the next; at least `columns`
    void draw(const PlotContent& content, const PlotFrame& frame, std::span<std::uint32_t> pixels,
              std::ptrdiff_t pixelStride);

private:
    void drawRule(const PlotMarker& marker, const PlotFrame& frame);

    CoverageMask m_mask;
    std::vector<std::uint32_t> m_columnPixels; // the picture on its side: column after column
};

} // namespace ospra
