#pragma once

#include "raster/CoverageMask.h"
#include "raster/DashPattern.h"

namespace ospra {

/// Draws a path into a mask, solid or dashed, and leaves out what lies outside the mask.
class DashedPen {
public:
    /// @param mask with its size and stroke width set
    /// @param scale device pixels in a unit of the pattern
    DashedPen(CoverageMask& mask, DashPattern dash, double scale);
    /// Draws what is still in hand.
    ~DashedPen();

    DashedPen(const DashedPen&) = delete;
    DashedPen& operator=(const DashedPen&) = delete;

    /// Draws from one point of the path to the next. Coordinates are finite; they may be huge.
    void lineTo(PixelPoint from, PixelPoint to);
    /// Draws an upright stroke that is no step along the path, where the path is not in a gap.
    void spike(int column, double top, double bottom);
    /// Goes along the path without drawing.
    void skip(double length);

private:
    /// From 0, the start of a segment, to 1, its end; nothing where `end` is below `start`.
    struct Portion {
        double start = 0.0;
        double end = 1.0;
    };

    /// What of a segment may touch the mask.
    [[nodiscard]] Portion visiblePortion(PixelPoint from, PixelPoint to) const;
    void dashTo(PixelPoint from, PixelPoint to, double length);
    void extend(PixelPoint from, PixelPoint to, bool isDashStart);
    [[nodiscard]] bool extendsStraight(PixelPoint to);
    void aim();
    void lift(StrokeEnd endsAs);
    [[nodiscard]] bool isNear(PixelPoint point) const
    {
        return point.x >= -m_margin && point.x <= m_right && point.y >= -m_margin && point.y <= m_bottom;
    }
    [[nodiscard]] bool isOn() const { return m_phase < m_on; }

    CoverageMask& m_mask;
    double m_margin; // what lies further than this beyond the mask does not touch it
    double m_right;
    double m_bottom;
    double m_on = 0.0;
    double m_period = 0.0; // 0 where solid
    double m_phase = 0.0;  // below m_period

    // The stroke in hand, which is drawn when the path bends.
    bool m_isDown = false;
    StrokeEnd m_startsAs = StrokeEnd::round;
    PixelPoint m_start;
    PixelPoint m_end;
    bool m_isUpright = false;  // the slopes are x over y instead of y over x
    double m_leastSlope = 0.0; // what further points may have, seen from the start, for the stroke to stay straight
    double m_greatestSlope = 0.0;
};

} // namespace ospra
