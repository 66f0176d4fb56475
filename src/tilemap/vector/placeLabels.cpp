#include "tilemap/vector/placeLabels.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <unordered_map>

namespace ospra {
namespace {

constexpr double cellSize = 128.0; // px

/// A box without its turn: the smallest upright one that holds it.
struct UprightBox {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

UprightBox uprightBox(const LabelBox& box, double margin)
{
    const double along = std::abs(std::cos(box.angle));
    const double across = std::abs(std::sin(box.angle));
    const double halfWidth = box.halfWidth * along + box.halfHeight * across + margin;
    const double halfHeight = box.halfWidth * across + box.halfHeight * along + margin;
    return {box.center.x - halfWidth, box.center.y - halfHeight, box.center.x + halfWidth, box.center.y + halfHeight};
}

/// Whether a side of `a`, moved out by the margin, has all of `b` beyond it.
bool isBeyondSides(const LabelBox& a, const LabelBox& b, double margin)
{
    const PixelPoint between{b.center.x - a.center.x, b.center.y - a.center.y};
    const double turn = b.angle - a.angle;
    const double along = std::abs(std::cos(turn));
    const double across = std::abs(std::sin(turn));
    const double u = between.x * std::cos(a.angle) + between.y * std::sin(a.angle);
    const double v = between.y * std::cos(a.angle) - between.x * std::sin(a.angle);
    return std::abs(u) >= a.halfWidth + margin + b.halfWidth * along + b.halfHeight * across ||
           std::abs(v) >= a.halfHeight + margin + b.halfWidth * across + b.halfHeight * along;
}

/// The boxes taken so far, to be found by where they lie and by their texts.
class TakenBoxes {
public:
    TakenBoxes(std::span<const LabelBox> boxes, double margin) : m_boxes(boxes), m_margin(margin) {}

    [[nodiscard]] bool hasRoomFor(const LabelBox& box)
    {
        bool isFree = true;
        forCells(uprightBox(box, m_margin), [&](std::vector<std::size_t>& cell) {
            isFree = isFree && std::none_of(cell.begin(), cell.end(), [&](std::size_t taken) {
                         return boxesTouch(m_boxes[taken], box, m_margin);
                     });
        });
        return isFree;
    }

    [[nodiscard]] bool isRepeated(const LabelBox& box)
    {
        const std::vector<std::size_t>& same = m_byText[box.text];
        return std::any_of(same.begin(), same.end(), [&](std::size_t taken) {
            const PixelPoint other = m_boxes[taken].center;
            return std::hypot(other.x - box.center.x, other.y - box.center.y) < box.leastRepeat;
        });
    }

    void take(std::size_t index)
    {
        const LabelBox& box = m_boxes[index];
        forCells(uprightBox(box, 0.0), [&](std::vector<std::size_t>& cell) { cell.push_back(index); });
        m_byText[box.text].push_back(index);
    }

private:
    template <typename Visit>
    void forCells(const UprightBox& box, const Visit& visit)
    {
        const auto cellOf = [](double position) { return static_cast<std::int64_t>(std::floor(position / cellSize)); };
        for (std::int64_t x = cellOf(box.left); x <= cellOf(box.right); ++x) {
            for (std::int64_t y = cellOf(box.top); y <= cellOf(box.bottom); ++y)
                visit(m_cells[x * 0x1'0000'0001 + y]);
        }
    }

    std::span<const LabelBox> m_boxes;
    double m_margin;
    std::unordered_map<std::int64_t, std::vector<std::size_t>> m_cells; // two cells may share a list
    std::unordered_map<std::string_view, std::vector<std::size_t>> m_byText;
};

/// A line with the way along it.
class MeasuredLine {
public:
    explicit MeasuredLine(std::span<const PixelPoint> points) : m_points(points)
    {
        m_along.reserve(points.size());
        double along = 0.0;
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (i > 0)
                along += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
            m_along.push_back(along);
        }
    }

    [[nodiscard]] double length() const { return m_along.back(); }

    [[nodiscard]] PixelPoint at(double along) const
    {
        const std::size_t next = std::clamp<std::size_t>(firstAfter(along), 1, m_points.size() - 1);
        const double piece = m_along[next] - m_along[next - 1];
        const double t = piece > 0.0 ? (along - m_along[next - 1]) / piece : 0.0;
        const PixelPoint& a = m_points[next - 1];
        const PixelPoint& b = m_points[next];
        return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
    }

    /// Whether the line between two ways along it stays within `bend` of the straight and does not turn back.
    [[nodiscard]] bool isStraight(double from, double to, double bend) const
    {
        const PixelPoint a = at(from);
        const PixelPoint b = at(to);
        const double chord = std::hypot(b.x - a.x, b.y - a.y);
        if (chord < 0.98 * (to - from))
            return false;
        for (std::size_t i = firstAfter(from); i < m_points.size() && m_along[i] < to; ++i) {
            const double area = (b.x - a.x) * (m_points[i].y - a.y) - (b.y - a.y) * (m_points[i].x - a.x);
            if (std::abs(area) > bend * chord)
                return false;
        }
        return true;
    }

private:
    [[nodiscard]] std::size_t firstAfter(double along) const
    {
        return static_cast<std::size_t>(std::upper_bound(m_along.begin(), m_along.end(), along) - m_along.begin());
    }

    std::span<const PixelPoint> m_points;
    std::vector<double> m_along;
};

} // namespace

bool boxesTouch(const LabelBox& a, const LabelBox& b, double margin)
{
    return !isBeyondSides(a, b, margin) && !isBeyondSides(b, a, margin);
}

std::vector<std::size_t> placeLabels(std::span<const LabelBox> boxes, double margin)
{
    std::vector<std::size_t> taken;
    TakenBoxes placed(boxes, margin);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (placed.isRepeated(boxes[i]) || !placed.hasRoomFor(boxes[i]))
            continue;
        placed.take(i);
        taken.push_back(i);
    }
    return taken;
}

std::vector<LineSpot> straightSpots(std::span<const PixelPoint> line, double length, double step, double bend)
{
    constexpr int mostSteps = 60; // from the middle, to either side
    std::vector<LineSpot> spots;
    const MeasuredLine measured(line);
    const double middle = measured.length() / 2.0;
    const auto tryAt = [&](double along) {
        const double from = along - length / 2.0;
        const double to = along + length / 2.0;
        if (!(from >= 0.0 && to <= measured.length()) || !measured.isStraight(from, to, bend))
            return;
        const PixelPoint a = measured.at(from);
        const PixelPoint b = measured.at(to);
        double angle = std::atan2(b.y - a.y, b.x - a.x);
        if (std::abs(angle) > std::numbers::pi / 2.0)
            angle -= std::copysign(std::numbers::pi, angle);
        spots.push_back({.center = {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0}, .angle = angle});
    };
    tryAt(middle);
    for (int i = 1; i <= mostSteps && i * step <= middle; ++i) {
        tryAt(middle - i * step);
        tryAt(middle + i * step);
    }
    return spots;
}

} // namespace ospra
