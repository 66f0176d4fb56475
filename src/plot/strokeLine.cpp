#include "plot/strokeLine.h"

#include "raster/DashedPen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace ospra {
namespace {

constexpr double farAway = 1e9;         // px; positions are kept within this, so that differences do not overflow
constexpr std::size_t denseSamples = 3; // a column with fewer shows its samples one by one
constexpr std::size_t readAtOnce = 4;   // samples
constexpr double leastSpike = 0.05;     // px; what lies beyond a stroke by less cannot be seen

/// Neighbouring samples of a line that fall into the same pixel column.
struct ColumnRun {
    int column = 0; ///< -1: all that lies left of the plot; one more than the last: all right of it
    std::size_t samples = 0;
    PixelPoint first;
    PixelPoint last;
    double top = 0.0; ///< least y in pixels
    double bottom = 0.0;

    [[nodiscard]] double height() const { return bottom - top; }
};

/// Leaves the range as it is for NaN.
void widen(ValueRange& range, double value)
{
    range.lo = value < range.lo ? value : range.lo;
    range.hi = value > range.hi ? value : range.hi;
}

/// A linear scale without a division per value.
struct QuickScale {
    explicit QuickScale(const LinearScale& scale)
        : domain(scale.domain), from(scale.from), to(scale.to),
          pixelsPerUnit((scale.to - scale.from) / (scale.domain.hi - scale.domain.lo)),
          unitsPerPixel((scale.domain.hi - scale.domain.lo) / (scale.to - scale.from))
    {}

    [[nodiscard]] bool isValid() const
    {
        return std::isfinite(pixelsPerUnit) && std::isfinite(unitsPerPixel) && pixelsPerUnit != 0.0;
    }
    [[nodiscard]] double pixelAt(double value) const { return from + (value - domain.lo) * pixelsPerUnit; }
    [[nodiscard]] double valueAt(double pixel) const { return domain.lo + (pixel - from) * unitsPerPixel; }

    ValueRange domain;
    double from;
    double to;
    double pixelsPerUnit;
    double unitsPerPixel;
};

/// Cuts a line into its runs, one after the other.
class RunReader {
public:
    RunReader(const PlotLine& line, const PlotFrame& frame)
        : m_line(line), m_x(frame.xScale()), m_y(frame.yScale()), m_columns(frame.columns)
    {}

    /// The next run with a sample that has a place.
    std::optional<ColumnRun> next()
    {
        while (m_next < m_line.count && !(std::isfinite(x(m_next)) && std::isfinite(y(m_next))))
            ++m_next;
        if (m_next >= m_line.count)
            return std::nullopt;
        const std::size_t first = m_next;
        ColumnRun run;
        run.column = columnAt(x(first));
        const ValueRange values = readColumn(run.column);
        std::size_t last = m_next - 1;
        while (!(std::isfinite(x(last)) && std::isfinite(y(last))))
            --last;
        run.samples = last - first + 1;
        run.first = place(first);
        run.last = place(last);
        const double yOfLeast = pixelY(values.lo);
        const double yOfGreatest = pixelY(values.hi);
        run.top = std::min(yOfLeast, yOfGreatest);
        run.bottom = std::max(yOfLeast, yOfGreatest);
        return run;
    }

private:
    [[nodiscard]] double x(std::size_t i) const { return m_line.x[static_cast<std::ptrdiff_t>(i) * m_line.stride]; }
    [[nodiscard]] double y(std::size_t i) const { return m_line.y[static_cast<std::ptrdiff_t>(i) * m_line.stride]; }
    [[nodiscard]] double pixelY(double value) const { return std::clamp(m_y.pixelAt(value), -farAway, farAway); }
    [[nodiscard]] PixelPoint place(std::size_t i) const
    {
        return {std::clamp(m_x.pixelAt(x(i)), -farAway, farAway), pixelY(y(i))};
    }

    [[nodiscard]] int columnAt(double seconds) const
    {
        const double pixel = m_x.pixelAt(seconds);
        if (!(pixel >= 0.0))
            return -1;
        if (pixel > m_x.to)
            return m_columns;
        return static_cast<int>(std::min(pixel, m_columns - 1.0));
    }

    /// The times that a column stands for, `lo` inclusive, `hi` not.
    [[nodiscard]] ValueRange secondsOf(int column) const
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        ValueRange bounds{m_x.valueAt(column), m_x.valueAt(column + 1.0)};
        if (column < 0)
            bounds = {std::numeric_limits<double>::lowest(), m_x.domain.lo};
        else if (column >= m_columns)
            bounds = {std::nextafter(m_x.domain.hi, infinity), infinity};
        else if (column + 1.0 >= m_x.to) // a sample at the very end of the domain belongs to the last column
            bounds.hi = std::nextafter(m_x.domain.hi, infinity);
        return bounds;
    }

    /// Steps behind the run that begins at m_next and lies in one column. The first sample belongs to the run whatever
    /// the rounding of the bounds says, so that the reader always gets on.
    ValueRange readColumn(int column)
    {
        const auto [from, to] = secondsOf(column);
        const std::ptrdiff_t stride = m_line.stride;
        const std::size_t first = m_next;
        const std::size_t count = m_line.count;
        const double* px = m_line.x + static_cast<std::ptrdiff_t>(first + 1) * stride;
        const double* py = m_line.y + static_cast<std::ptrdiff_t>(first + 1) * stride;
        std::array<ValueRange, readAtOnce> ranges;
        ranges.fill({y(first), y(first)});
        std::size_t i = first + 1;
        // Several ranges at a time, since a comparison has to wait for the one before it in the same range.
        for (; i + readAtOnce <= count; i += readAtOnce) {
            bool areWithin = true;
            for (std::size_t k = 0; k < readAtOnce; ++k) {
                const double x = px[static_cast<std::ptrdiff_t>(k) * stride];
                areWithin &= (x >= from) & (x < to);
            }
            if (!areWithin)
                break;
            for (std::size_t k = 0; k < readAtOnce; ++k)
                widen(ranges[k], py[static_cast<std::ptrdiff_t>(k) * stride]);
            px += static_cast<std::ptrdiff_t>(readAtOnce) * stride;
            py += static_cast<std::ptrdiff_t>(readAtOnce) * stride;
        }
        for (; i < count && (*px >= from) & (*px < to); ++i, px += stride, py += stride)
            widen(ranges[0], *py);
        m_next = i;
        const ValueRange values{std::ranges::min(ranges, {}, &ValueRange::lo).lo,
                                std::ranges::max(ranges, {}, &ValueRange::hi).hi};
        return std::isfinite(values.lo) && std::isfinite(values.hi) ? values : finiteValues(first, i);
    }

    [[nodiscard]] ValueRange finiteValues(std::size_t first, std::size_t end) const
    {
        ValueRange values{y(first), y(first)};
        for (std::size_t i = first; i < end; ++i) {
            if (!std::isfinite(y(i)))
                continue;
            values.lo = std::min(values.lo, y(i));
            values.hi = std::max(values.hi, y(i));
        }
        return values;
    }

    const PlotLine& m_line;
    QuickScale m_x;
    QuickScale m_y;
    int m_columns;
    std::size_t m_next = 0;
};

/// Draws runs. A run is held back until the next is known, since that says how it is left.
class RunStroker {
public:
    RunStroker(CoverageMask& mask, DashedPen& pen) : m_mask(mask), m_pen(pen) {}

    void add(const ColumnRun& run)
    {
        if (m_pending.samples > 0)
            join(m_pending, run);
        else
            m_pen.lineTo(run.first, run.first);
        m_pending = run;
    }

    void finish() { drawAlone(m_pending); }

private:
    [[nodiscard]] bool isInside(const ColumnRun& run) const { return run.column >= 0 && run.column < m_mask.columns(); }
    [[nodiscard]] bool isDense(const ColumnRun& run) const { return isInside(run) && run.samples >= denseSamples; }

    void join(const ColumnRun& run, const ColumnRun& next)
    {
        if (!isDense(run) || !isInside(next) || std::abs(next.column - run.column) != 1) {
            drawAlone(run);
            m_pen.lineTo(run.last, next.first);
            return;
        }
        if (isDense(next) && overlapMuch(run, next)) {
            m_pen.spike(run.column, run.top, run.bottom);
            m_pen.skip(1.0);
            return;
        }
        drawAlong(run, run.first, next.first);
    }

    void drawAlone(const ColumnRun& run)
    {
        if (run.samples > 1)
            drawAlong(run, run.first, run.last);
    }

    /// Draws a run as a stroke between two points, the first in its column, and upright what its samples show beyond
    /// the part of the stroke that lies in the column.
    void drawAlong(const ColumnRun& run, PixelPoint from, PixelPoint to)
    {
        if (isInside(run)) {
            const double edgeX = to.x > from.x ? run.column + 1.0 : run.column;
            const double portion = to.x != from.x ? std::min((edgeX - from.x) / (to.x - from.x), 1.0) : 1.0;
            const double edge = from.y + portion * (to.y - from.y);
            const double top = std::min(from.y, edge);
            const double bottom = std::max(from.y, edge);
            if (run.top < top - leastSpike)
                m_pen.spike(run.column, run.top, top);
            if (run.bottom > bottom + leastSpike)
                m_pen.spike(run.column, bottom, run.bottom);
        }
        m_pen.lineTo(from, to);
    }

    /// Whether two neighbouring columns are filled by noise. Upright strokes then cover all that a path between them
    /// would.
    static bool overlapMuch(const ColumnRun& run, const ColumnRun& next)
    {
        constexpr double leastOverlap = 2.0; // px
        const double overlap = std::min(run.bottom, next.bottom) - std::max(run.top, next.top);
        return overlap >= leastOverlap && overlap >= std::min(run.height(), next.height()) / 2.0;
    }

    CoverageMask& m_mask;
    DashedPen& m_pen;
    ColumnRun m_pending; // without samples: none
};

} // namespace

void strokeLine(CoverageMask& mask, const PlotLine& line, const PlotFrame& frame)
{
    if (!QuickScale(frame.xScale()).isValid() || !QuickScale(frame.yScale()).isValid() || line.x == nullptr ||
        line.y == nullptr)
        return;
    mask.setStrokeWidth(line.width * frame.scale);
    DashedPen pen(mask, line.dash, frame.scale);
    RunReader reader(line, frame);
    RunStroker stroker(mask, pen);
    while (const auto run = reader.next())
        stroker.add(*run);
    stroker.finish();
}

} // namespace ospra
