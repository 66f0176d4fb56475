#include "tilemap/vector/VectorTile.h"

#include "fuzz/require.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

using ospra::require;

/// Sees to the points of a line. @return how many there are
std::size_t checkLine(const std::vector<ospra::TilePoint>& points)
{
    require(points.size() >= 2, "a line of fewer than two points");
    for (const ospra::TilePoint& point : points)
        require(std::isfinite(point.x) && std::isfinite(point.y), "a point that is not finite");
    return points.size();
}

} // namespace

/// Whatever the bytes are, what is read can be drawn and is no more than they can hold.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto tile = ospra::decodeVectorTile({reinterpret_cast<const char*>(data), size});
    if (!tile)
        return 0;
    std::size_t points = tile->places.size();
    for (const ospra::TileRoad& road : tile->roads)
        points += checkLine(road.points);
    for (const ospra::TileRoadName& road : tile->roadNames) {
        points += checkLine(road.points);
        require(!road.name.empty(), "a road name without text");
    }
    for (const ospra::TilePlace& place : tile->places) {
        require(!place.name.empty(), "a place name without text");
        require(std::isfinite(place.point.x) && std::isfinite(place.point.y), "a place that is nowhere");
    }
    require(points <= size / 2, "more points than bytes");
    return 0;
}
