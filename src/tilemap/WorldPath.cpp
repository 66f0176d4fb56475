#include "tilemap/WorldPath.h"

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

constexpr std::size_t pieceLength = 64; // segments

} // namespace

std::vector<WorldPoint> worldPoints(std::span<const Coordinate> coordinates)
{
    std::vector<WorldPoint> points;
    points.reserve(coordinates.size());
    for (const Coordinate& coordinate : coordinates) {
        auto point = worldPoint(coordinate);
        if (!point)
            continue;
        const double step = points.empty() ? 0.0 : point->x - points.back().x;
        if (std::abs(step) > 0.5)
            point->x -= std::round(step);
        points.push_back(*point);
    }
    return points;
}

WorldRect boundsOf(std::span<const WorldPoint> points)
{
    WorldRect bounds{points.front().x, points.front().y, points.front().x, points.front().y};
    for (const WorldPoint& point : points) {
        bounds.left = std::min(bounds.left, point.x);
        bounds.top = std::min(bounds.top, point.y);
        bounds.right = std::max(bounds.right, point.x);
        bounds.bottom = std::max(bounds.bottom, point.y);
    }
    return bounds;
}

ReducedPath reducedPath(std::span<const WorldPoint> points, double distance)
{
    ReducedPath reduced;
    if (points.size() < 2)
        return reduced;
    std::vector<WorldPoint>& kept = reduced.points;
    kept.push_back(points.front());
    for (const WorldPoint& point : points.subspan(1, points.size() - 2)) {
        const double dx = point.x - kept.back().x;
        const double dy = point.y - kept.back().y;
        if (dx * dx + dy * dy >= distance * distance)
            kept.push_back(point);
    }
    kept.push_back(points.back());
    for (std::size_t first = 0; first + 1 < kept.size(); first += pieceLength) {
        ReducedPath::Piece piece{.first = first, .last = std::min(first + pieceLength, kept.size() - 1)};
        piece.bounds = boundsOf(std::span(kept).subspan(first, piece.last - first + 1));
        for (std::size_t i = first; i < piece.last; ++i)
            piece.length += std::hypot(kept[i + 1].x - kept[i].x, kept[i + 1].y - kept[i].y);
        reduced.pieces.push_back(piece);
    }
    return reduced;
}

} // namespace ospra
