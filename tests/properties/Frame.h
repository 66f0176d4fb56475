#pragma once

#include "platform/Coordinate.h"

#include <cmath>
#include <numbers>
#include <valarray>

namespace ospra::properties {

using Vector = std::valarray<double>;

inline double dot(const Vector& a, const Vector& b)
{
    return (a * b).sum();
}

inline double length(const Vector& vector)
{
    return std::sqrt(dot(vector, vector));
}

/// The directions at a place on a sphere, of length 1, as seen from its middle.
struct Frame {
    Vector east;
    Vector north;
    Vector up;
};

inline Frame frameAt(Coordinate place)
{
    const double phi = place.latitude * std::numbers::pi / 180;
    const double lambda = place.longitude * std::numbers::pi / 180;
    const Vector outwards{std::cos(lambda), std::sin(lambda), 0};
    const Vector axis{0, 0, 1};
    return {.east = {-std::sin(lambda), std::cos(lambda), 0},
            .north = std::cos(phi) * axis - std::sin(phi) * outwards,
            .up = std::cos(phi) * outwards + std::sin(phi) * axis};
}

} // namespace ospra::properties
