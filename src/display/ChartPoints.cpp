#include "display/ChartPoints.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace ospra {

namespace {

/// Whether a binary search by seconds is right. A NaN makes it false, also when it stands alone.
bool ascends(std::span<const ChartPoint> points)
{
    double before = -std::numeric_limits<double>::infinity();
    for (const ChartPoint& point : points) {
        if (!(before <= point.seconds))
            return false;
        before = point.seconds;
    }
    return true;
}

} // namespace

ChartPoints::ChartPoints(std::vector<ChartPoint> points)
{
    const bool ascending = ascends(points);
    m_points = std::make_shared<const Storage>(Storage{.points = std::move(points), .ascending = ascending});
    m_span = m_points->points;
}

ChartPoints ChartPoints::cut(double lo, double hi) const
{
    if (empty() || !(lo <= hi)) // also where one of them is NaN
        return {};

    if (!m_points->ascending) {
        std::vector<ChartPoint> kept;
        std::ranges::copy_if(
            m_span, std::back_inserter(kept), [=](double seconds) { return lo <= seconds && seconds <= hi; },
            &ChartPoint::seconds);
        return ChartPoints(std::move(kept));
    }

    const auto first = std::ranges::lower_bound(m_span, lo, {}, &ChartPoint::seconds);
    const auto last = std::ranges::upper_bound(first, m_span.end(), hi, {}, &ChartPoint::seconds);
    ChartPoints part = *this;
    part.m_span = {first, last};
    return part;
}

bool operator==(const ChartPoints& a, const ChartPoints& b)
{
    return std::ranges::equal(a.m_span, b.m_span);
}

} // namespace ospra
