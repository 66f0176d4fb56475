#pragma once

#include "tools/make-sample-jumps/portableMath.h"

#include <cmath>

namespace ospra {

/// A place, a velocity or an acceleration over a flat piece of land. The origin of places is the landing target.
struct Vector3 {
    double north = 0.0;
    double east = 0.0;
    double down = 0.0; ///< so the height above the landing area is minus this
};

[[nodiscard]] constexpr Vector3 operator+(const Vector3& a, const Vector3& b)
{
    return {.north = a.north + b.north, .east = a.east + b.east, .down = a.down + b.down};
}

[[nodiscard]] constexpr Vector3 operator*(const Vector3& a, double factor)
{
    return {.north = a.north * factor, .east = a.east * factor, .down = a.down * factor};
}

[[nodiscard]] constexpr Vector3 operator-(const Vector3& a, const Vector3& b)
{
    return a + b * -1.0;
}

[[nodiscard]] constexpr double dot(const Vector3& a, const Vector3& b)
{
    return a.north * b.north + a.east * b.east + a.down * b.down;
}

[[nodiscard]] inline double length(const Vector3& a)
{
    return std::sqrt(dot(a, a));
}

[[nodiscard]] constexpr Vector3 horizontal(const Vector3& a)
{
    return {.north = a.north, .east = a.east, .down = 0.0};
}

/// @return length 1, or `fallback` for a vector next to nothing
[[nodiscard]] inline Vector3 unit(const Vector3& a, const Vector3& fallback = {.north = 1.0})
{
    const double size = length(a);
    return size > 1e-9 ? a * (1.0 / size) : fallback;
}

/// @param bearing rad, clockwise from north
[[nodiscard]] inline Vector3 directionTo(double bearing)
{
    return {.north = cosine(bearing), .east = sine(bearing), .down = 0.0};
}

/// A horizontal vector turned clockwise, as seen from above.
[[nodiscard]] inline Vector3 turned(const Vector3& a, double angle)
{
    const double c = cosine(angle);
    const double s = sine(angle);
    return {.north = a.north * c - a.east * s, .east = a.north * s + a.east * c, .down = a.down};
}

/// The clockwise angle, -pi to pi, from one horizontal direction to another.
[[nodiscard]] inline double angleBetween(const Vector3& from, const Vector3& to)
{
    return angleOf(from.north * to.east - from.east * to.north, from.north * to.north + from.east * to.east);
}

} // namespace ospra
