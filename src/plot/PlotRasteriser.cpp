#include "plot/PlotRasteriser.h"

#include "plot/strokeLine.h"
#include "raster/columnPixels.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace ospra {
void PlotRasteriser::draw(const PlotContent& content, const PlotFrame& frame, std::span<std::uint32_t> pixels,
                          std::ptrdiff_t pixelStride)
{
    if (frame.columns <= 0 || frame.rows <= 0)
        return;
    assert(pixelStride >= frame.columns && std::ssize(pixels) >= (frame.rows - 1) * pixelStride + frame.columns);
    m_mask.resize(frame.columns, frame.rows);
    m_columnPixels.assign(static_cast<std::size_t>(frame.columns) * static_cast<std::size_t>(frame.rows), 0);
    for (const PlotLine& line : content.lines) {
        strokeLine(m_mask, line, frame);
        m_mask.paintOver(m_columnPixels, withOpacity(line.color, line.opacity));
    }
    for (const PlotMarker& marker : content.markers)
        drawRule(marker, frame);
    turnUpright(m_columnPixels, frame.columns, frame.rows, pixels, pixelStride);
}

void PlotRasteriser::drawRule(const PlotMarker& marker, const PlotFrame& frame)
{
    const LinearScale scale = frame.xScale();
    const double x = scale.pixelAt(marker.seconds);
    if (!scale.isValid() || !(x >= 0.0 && x <= frame.plotWidth))
        return;
    // Rules are crisp: whole device pixels wide and high, whatever their place.
    const int width = std::max(static_cast<int>(std::lround(std::min(marker.width * frame.scale, 64.0))), 1);
    const int left = std::clamp(static_cast<int>(std::lround(x - width / 2.0)), 0, std::max(frame.columns - width, 0));
    const int top = std::clamp(static_cast<int>(std::lround(frame.plotTop)), 0, frame.rows);
    const int bottom = std::clamp(static_cast<int>(std::lround(frame.plotTop + frame.plotHeight)), top, frame.rows);
    m_mask.fillRule({left, top, std::min(left + width, frame.columns), bottom},
                    {marker.dash.on * frame.scale, marker.dash.off * frame.scale});
    m_mask.paintOver(m_columnPixels, withOpacity(marker.color, marker.ruleOpacity));
}

} // namespace ospra
