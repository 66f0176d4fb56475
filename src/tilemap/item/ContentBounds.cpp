#include "tilemap/item/ContentBounds.h"

#include "tilemap/PathLayer.h"

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

void add(std::optional<WorldRect>& bounds, WorldPoint place)
{
    if (!bounds) {
        bounds = WorldRect{place.x, place.y, place.x, place.y};
        return;
    }
    const double x = place.x - std::round(place.x - bounds->center().x); // the turn nearest to what there is
    *bounds = {.left = std::min(bounds->left, x),
               .top = std::min(bounds->top, place.y),
               .right = std::max(bounds->right, x),
               .bottom = std::max(bounds->bottom, place.y)};
}

} // namespace

std::optional<WorldRect> ContentBounds::of(const MapContent& content)
{
    std::vector<std::string> ids;
    for (const MapPath& path : content.paths)
        ids.push_back(path.id);
    if (ids != m_ids) {
        m_bounds = boundsOf(content.paths);
        m_ids = std::move(ids);
    }
    std::optional<WorldRect> bounds = m_bounds;
    for (const Coordinate& coordinate : content.places) {
        if (const std::optional<WorldPoint> place = worldPoint(coordinate))
            add(bounds, *place);
    }
    return bounds;
}

bool sharePath(const MapContent& a, const MapContent& b)
{
    return std::ranges::any_of(a.paths, [&b](const MapPath& path) {
        return std::ranges::find(b.paths, path.id, &MapPath::id) != b.paths.end();
    });
}

} // namespace ospra
