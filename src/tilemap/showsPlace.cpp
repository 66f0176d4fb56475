#include "tilemap/showsPlace.h"

#include <algorithm>

namespace ospra {
namespace {

/// Counts the sides that a ray to the east crosses. A side includes its southern end only, so that a ray through a
/// corner counts it once.
bool isWithin(const std::vector<Coordinate>& polygon, Coordinate place)
{
    bool within = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Coordinate& from = polygon[i];
        const Coordinate& to = polygon[i + 1 < polygon.size() ? i + 1 : 0];
        if ((from.latitude <= place.latitude) == (to.latitude <= place.latitude))
            continue;
        const double portion = (place.latitude - from.latitude) / (to.latitude - from.latitude);
        if (place.longitude < from.longitude + portion * (to.longitude - from.longitude))
            within = !within;
    }
    return within;
}

} // namespace

bool showsPlace(std::span<const std::vector<Coordinate>> polygons, Coordinate place)
{
    constexpr double turn = 360.0;
    return polygons.empty() || std::ranges::any_of(polygons, [&](const std::vector<Coordinate>& polygon) {
               return isWithin(polygon, place) || isWithin(polygon, {place.latitude, place.longitude + turn}) ||
                      isWithin(polygon, {place.latitude, place.longitude - turn});
           });
}

} // namespace ospra
