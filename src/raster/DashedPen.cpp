#include "raster/DashedPen.h"

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

constexpr double leastBend = 0.15; // px; a line that bends by less is straight

/// Two values of one coordinate.
struct Ends {
    double lo = 0.0;
    double hi = 0.0;
};

/// Narrows `start` to `end`, portions of a segment, to where a coordinate with the values `ends` at 0 and at 1 lies
/// within the bounds. `end` is below `start` where it does so nowhere.
void clip(double& start, double& end, Ends ends, Ends bounds)
{
    const double delta = ends.hi - ends.lo;
    if (delta == 0.0) {
        if (ends.lo < bounds.lo || ends.lo > bounds.hi)
            end = -1.0;
        return;
    }
    const double atLo = (bounds.lo - ends.lo) / delta;
    const double atHi = (bounds.hi - ends.lo) / delta;
    start = std::max(start, std::min(atLo, atHi));
    end = std::min(end, std::max(atLo, atHi));
}

} // namespace

DashedPen::DashedPen(CoverageMask& mask, DashPattern dash, double scale)
    : m_mask(mask), m_margin(mask.reach() + 1.0), m_right(mask.columns() + m_margin), m_bottom(mask.rows() + m_margin)
{
    // A pattern finer than a tenth of a pixel shows as a solid line anyway.
    constexpr double leastPeriod = 0.1;
    const double period = (dash.on + dash.off) * scale;
    if (dash.isSolid() || !(period >= leastPeriod) || !std::isfinite(period))
        return;
    m_on = dash.on * scale;
    m_period = period;
}

DashedPen::~DashedPen()
{
    lift(StrokeEnd::round);
}

DashedPen::Portion DashedPen::visiblePortion(PixelPoint from, PixelPoint to) const
{
    Portion portion;
    clip(portion.start, portion.end, {from.x, to.x}, {-m_margin, m_right});
    clip(portion.start, portion.end, {from.y, to.y}, {-m_margin, m_bottom});
    return portion;
}

void DashedPen::lineTo(PixelPoint from, PixelPoint to)
{
    if (m_period <= 0.0 && isNear(from) && isNear(to)) {
        extend(from, to, false);
        return;
    }
    const Portion portion = visiblePortion(from, to);
    const double length = m_period > 0.0 ? std::hypot(to.x - from.x, to.y - from.y) : 0.0;
    if (!(portion.start <= portion.end)) {
        skip(length);
        return;
    }
    const auto at = [&](double t) { return PixelPoint{from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)}; };
    const PixelPoint start = portion.start > 0.0 ? at(portion.start) : from;
    const PixelPoint end = portion.end < 1.0 ? at(portion.end) : to;
    if (m_period <= 0.0) {
        extend(start, end, false);
        return;
    }
    skip(length * portion.start);
    dashTo(start, end, length * (portion.end - portion.start));
    skip(length * (1.0 - portion.end));
}

void DashedPen::dashTo(PixelPoint from, PixelPoint to, double length)
{
    if (!(length > 0.0))
        return;
    const auto at = [&](double distance) {
        const double t = distance / length;
        return PixelPoint{from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)};
    };
    double done = 0.0;
    while (done < length) {
        const bool on = isOn();
        const double rest = (on ? m_on : m_period) - m_phase;
        const bool ends = rest <= length - done;
        const double next = ends ? done + rest : length;
        if (on)
            extend(at(done), at(next), m_phase == 0.0);
        if (on && ends)
            lift(StrokeEnd::flat);
        m_phase = !ends ? m_phase + (next - done) : on ? m_on : 0.0;
        done = next;
    }
}

/// Adds a piece of the path to the stroke in hand if that stays straight but for a fraction of a pixel, or else begins
/// a stroke with it. Few long strokes cost less than many short ones. Near the ends of a dash all is taken for
/// straight: the round corner at a vertex would reach beyond the end otherwise.
void DashedPen::extend(PixelPoint from, PixelPoint to, bool isDashStart)
{
    const bool goesOn = m_isDown && !isDashStart && from.x == m_end.x && from.y == m_end.y;
    if (goesOn) {
        const bool isDot = m_start.x == m_end.x && m_start.y == m_end.y;
        const double halfWidth = m_mask.reach();
        if (isDot || (m_period > 0.0 && (m_phase < halfWidth || m_phase > m_on - halfWidth))) {
            m_end = to;
            aim();
            return;
        }
        if ((to.x == from.x && to.y == from.y) || extendsStraight(to))
            return;
    }
    // Where the line turns back, neither stroke draws the other's columns, so both need their round ends whole.
    const bool isJoined = goesOn && (to.x - from.x) * (m_end.x - m_start.x) >= 0.0;
    lift(isJoined ? StrokeEnd::joined : StrokeEnd::round);
    m_isDown = true;
    m_startsAs = isDashStart ? StrokeEnd::flat : isJoined ? StrokeEnd::joined : StrokeEnd::round;
    m_start = from;
    m_end = to;
    aim();
}

/// Lengthens the stroke in hand to a point that lies onwards and within the slopes that its points leave it.
bool DashedPen::extendsStraight(PixelPoint to)
{
    const double onwards = m_isUpright ? to.y - m_end.y : to.x - m_end.x;
    const double before = m_isUpright ? m_end.y - m_start.y : m_end.x - m_start.x;
    if (!(onwards * before > 0.0))
        return false;
    const double along = before + onwards;
    const double slope = (m_isUpright ? to.x - m_start.x : to.y - m_start.y) / along;
    if (!(slope >= m_leastSlope && slope <= m_greatestSlope))
        return false;
    const double bend = leastBend / std::abs(along);
    m_end = to;
    m_leastSlope = std::max(m_leastSlope, slope - bend);
    m_greatestSlope = std::min(m_greatestSlope, slope + bend);
    return true;
}

/// Finds out which way the stroke in hand goes, and which slopes further points may have.
void DashedPen::aim()
{
    const double dx = m_end.x - m_start.x;
    const double dy = m_end.y - m_start.y;
    m_isUpright = std::abs(dy) > std::abs(dx);
    const double along = m_isUpright ? dy : dx;
    const double slope = along != 0.0 ? (m_isUpright ? dx : dy) / along : 0.0;
    const double bend = along != 0.0 ? leastBend / std::abs(along) : 0.0;
    m_leastSlope = slope - bend;
    m_greatestSlope = slope + bend;
}

void DashedPen::lift(StrokeEnd endsAs)
{
    if (m_isDown)
        m_mask.strokeSegment(m_start, m_end, m_startsAs, endsAs);
    m_isDown = false;
}

void DashedPen::spike(int column, double top, double bottom)
{
    if (m_period <= 0.0 || isOn())
        m_mask.strokeColumn(column, top, bottom);
}

void DashedPen::skip(double length)
{
    if (m_period <= 0.0 || !(length > 0.0))
        return;
    lift(StrokeEnd::round);
    m_phase = std::fmod(m_phase + length, m_period);
    if (!std::isfinite(m_phase))
        m_phase = 0.0;
}

} // namespace ospra
