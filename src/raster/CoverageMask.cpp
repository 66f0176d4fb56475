#include "raster/CoverageMask.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>

namespace ospra {
namespace {

constexpr int blockRows = 8; // rows are computed in blocks that the compiler turns into vector instructions

/// A straight stroke in its own directions: `u` along it from its middle, `v` across.
struct Stroke {
    float u = 0.0F; ///< of the first row's centre
    float v = 0.0F;
    float uPerRow = 0.0F;
    float vPerRow = 0.0F;
    float halfLength = 0.0F;
    float reach = 0.0F;
    float strength = 255.0F;
};

/// Raises rows to what a stroke with round ends covers. The stroke comes by value: the rows are bytes, which might lie
/// in it for all that the compiler knows, and the loop would not become vector instructions.
void stampRound(std::uint8_t* rows, int count, const Stroke stroke) // NOLINT(performance-unnecessary-value-param)
{
    const int padded = (count + blockRows - 1) / blockRows * blockRows;
    for (int row = 0; row < padded; ++row) {
        const float u = stroke.u + static_cast<float>(row) * stroke.uPerRow;
        const float v = stroke.v + static_cast<float>(row) * stroke.vPerRow;
        const float pastEnd = std::abs(u) - stroke.halfLength;
        const float beyond = (pastEnd + std::abs(pastEnd)) / 2.0F; // 0 where negative, without a comparison
        const float inside = stroke.reach - std::sqrt(beyond * beyond + v * v);
        const float covered =
            (std::abs(inside) - std::abs(inside - 1.0F) + 1.0F) / 2.0F; // kept within 0 to 1, likewise
        const float level = covered * stroke.strength + 0.5F;
        rows[row] = std::max(rows[row], static_cast<std::uint8_t>(static_cast<int>(level)));
    }
}

/// The same for a stroke with at least one flat end.
void stampFlat(std::uint8_t* rows, int count, const Stroke& stroke, StrokeEnd startsAs, StrokeEnd endsAs)
{
    for (int row = 0; row < count; ++row) {
        const float u = stroke.u + static_cast<float>(row) * stroke.uPerRow;
        const float v = stroke.v + static_cast<float>(row) * stroke.vPerRow;
        const float beforeStart = -u - stroke.halfLength;
        const float afterEnd = u - stroke.halfLength;
        float beyond = 0.0F;
        float along = 1.0F;
        for (const auto& [distance, end] : {std::pair(beforeStart, startsAs), std::pair(afterEnd, endsAs)}) {
            if (end == StrokeEnd::flat)
                along *= std::clamp(0.5F - distance, 0.0F, 1.0F);
            else
                beyond = std::max(beyond, distance);
        }
        const float inside = stroke.reach - std::sqrt(beyond * beyond + v * v);
        const float covered = std::clamp(inside, 0.0F, 1.0F) * along * stroke.strength + 0.5F;
        rows[row] = std::max(rows[row], static_cast<std::uint8_t>(static_cast<int>(covered)));
    }
}

/// The first of `count` pixels whose centre is not before the position; `count` where none is.
int firstCentreFrom(double position, int count)
{
    if (!(position > 0.5))
        return 0;
    if (position > count - 0.5)
        return count;
    const int floored = static_cast<int>(position - 0.5);
    return floored + (floored < position - 0.5 ? 1 : 0);
}

} // namespace

void CoverageMask::resize(int columns, int rows)
{
    assert(columns >= 0 && rows >= 0);
    if (columns == m_columns && rows == m_rows)
        return; // painting has left the mask empty
    m_columns = columns;
    m_rows = rows;
    m_stride = std::ptrdiff_t{rows} + blockRows;
    m_coverage.assign(static_cast<std::size_t>(m_stride) * static_cast<std::size_t>(columns), 0);
    m_touched.assign(static_cast<std::size_t>(columns), RowRange{});
}

void CoverageMask::setStrokeWidth(double width)
{
    constexpr double widest = 1000.0;
    const double wanted = width > 0.0 ? std::min(width, widest) : 0.0; // NaN draws nothing
    const double drawn = std::max(wanted, 1.0);
    m_reach = drawn / 2.0 + 0.5;
    m_strength = wanted / drawn;
}

CoverageMask::RowRange CoverageMask::rowsBetween(double top, double bottom) const
{
    return {firstCentreFrom(top, m_rows), firstCentreFrom(bottom, m_rows) - 1};
}

void CoverageMask::touch(int index, RowRange rows)
{
    if (rows.last < rows.first)
        return;
    RowRange& touched = m_touched[static_cast<std::size_t>(index)];
    if (touched.last < touched.first) {
        touched = rows;
        return;
    }
    touched.first = std::min(touched.first, rows.first);
    touched.last = std::max(touched.last, rows.last);
}

void CoverageMask::strokeSegment(PixelPoint a, PixelPoint b, StrokeEnd startsAs, StrokeEnd endsAs)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    const double alongX = length > 0.0 ? dx / length : 1.0;
    const double alongY = length > 0.0 ? dy / length : 0.0;
    const double rise = dx != 0.0 ? dy / dx : 0.0;
    const double left = std::min(a.x, b.x);
    const double right = std::max(a.x, b.x);
    // Where a stroke is not steep and the next one begins, each draws the columns on its own side, round end included.
    // The edges of a wide stroke would not meet there after a bend, unless it is nearly level.
    const bool isGentle = std::abs(dy) * std::max(2.0 * (m_reach - 1.0), 1.0) <= std::abs(dx);
    const auto columnsBeyond = [&](StrokeEnd strokeEnd) {
        return strokeEnd == StrokeEnd::joined && isGentle ? 0.0 : m_reach;
    };
    const int first = firstCentreFrom(left - columnsBeyond(dx < 0.0 ? endsAs : startsAs), m_columns);
    const int end = firstCentreFrom(right + columnsBeyond(dx < 0.0 ? startsAs : endsAs), m_columns);
    const bool goesOn = isGentle && startsAs == StrokeEnd::joined && endsAs == StrokeEnd::joined;
    const double gentleReach = goesOn ? m_reach * length / std::abs(dx) : 0.0; // upright
    const PixelPoint middle{(a.x + b.x) / 2.0, (a.y + b.y) / 2.0};
    const bool isFlat = startsAs == StrokeEnd::flat || endsAs == StrokeEnd::flat;
    Stroke stroke{.uPerRow = static_cast<float>(alongY),
                  .vPerRow = static_cast<float>(alongX),
                  .halfLength = static_cast<float>(length / 2.0),
                  .reach = static_cast<float>(m_reach),
                  .strength = static_cast<float>(m_strength * 255.0)};
    for (int index = first; index < end; ++index) {
        const double x = index + 0.5;
        RowRange rows;
        if (goesOn) {
            const double y = a.y + rise * (x - a.x);
            rows = rowsBetween(y - gentleReach, y + gentleReach);
        } else {
            // The part of the stroke's middle line that is near enough to this column to reach it.
            const double yStart = dx != 0.0 ? a.y + rise * (std::clamp(x - m_reach, left, right) - a.x) : a.y;
            const double yEnd = dx != 0.0 ? a.y + rise * (std::clamp(x + m_reach, left, right) - a.x) : b.y;
            rows = rowsBetween(std::min(yStart, yEnd) - m_reach, std::max(yStart, yEnd) + m_reach);
        }
        if (rows.last < rows.first)
            continue;
        const double fromMiddleX = x - middle.x;
        const double fromMiddleY = rows.first + 0.5 - middle.y;
        stroke.u = static_cast<float>(fromMiddleX * alongX + fromMiddleY * alongY);
        stroke.v = static_cast<float>(fromMiddleY * alongX - fromMiddleX * alongY);
        std::uint8_t* const start = column(index) + rows.first;
        if (isFlat)
            stampFlat(start, rows.last - rows.first + 1, stroke, startsAs, endsAs);
        else
            stampRound(start, rows.last - rows.first + 1, stroke);
        touch(index, rows);
    }
}

void CoverageMask::strokeColumn(int column, double top, double bottom)
{
    const int width = static_cast<int>(std::ceil(m_reach)) - 1;
    for (int offset = -width; offset <= width; ++offset) {
        if (column + offset >= 0 && column + offset < m_columns)
            stampColumn(column + offset, std::abs(offset), top, bottom);
    }
}

void CoverageMask::stampColumn(int index, int offset, double top, double bottom)
{
    const RowRange all = rowsBetween(top - m_reach, bottom + m_reach);
    if (all.last < all.first)
        return;
    const auto strength = m_strength * 255.0;
    const auto coverageAt = [&](double distance) {
        const double covered = std::clamp(m_reach - distance, 0.0, 1.0) * strength + 0.5;
        return static_cast<std::uint8_t>(covered);
    };
    std::uint8_t* const rows = column(index);
    const auto stampSoft = [&](int first, int last) {
        for (int row = first; row <= last; ++row) {
            const double beyond = std::max({top - (row + 0.5), row + 0.5 - bottom, 0.0});
            rows[row] = std::max(rows[row], coverageAt(std::sqrt(beyond * beyond + offset * offset)));
        }
    };
    const RowRange inner = rowsBetween(top, bottom);
    if (inner.last < inner.first) {
        stampSoft(all.first, all.last);
    } else {
        stampSoft(all.first, inner.first - 1);
        const std::uint8_t full = coverageAt(offset);
        for (int row = inner.first; row <= inner.last; ++row)
            rows[row] = std::max(rows[row], full);
        stampSoft(inner.last + 1, all.last);
    }
    touch(index, all);
}

void CoverageMask::fillRule(const PixelRect& rect, DashPattern dash)
{
    for (int index = rect.left; index < rect.right; ++index) {
        for (int row = rect.top; row < rect.bottom; ++row) {
            if (dash.isSolid() || std::fmod(row - rect.top + 0.5, dash.on + dash.off) < dash.on)
                column(index)[row] = 255;
        }
        touch(index, {rect.top, rect.bottom - 1});
    }
}

} // namespace ospra
