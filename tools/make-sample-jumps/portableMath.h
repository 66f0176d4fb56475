#pragma once

namespace ospra {

constexpr double pi = 3.14159265358979323846;
constexpr double degree = pi / 180.0; // rad

// The functions of the standard library differ in the last digit from one C library to the next, and a simulation would
// carry that digit into its output. These use nothing but the basic operations, which IEEE 754 fixes to the last bit.
// Their error stays below 1e-11, far beyond what a log shows.

/// @param angle rad, within some thousands of turns
[[nodiscard]] double sine(double angle);
[[nodiscard]] double cosine(double angle);

/// e to the power of `x`, for -700 < x < 700.
[[nodiscard]] double exponential(double x);

/// The angle of the point (x, y) from the x axis.
/// @return rad, from -pi to pi; 0 at the origin
[[nodiscard]] double angleOf(double y, double x);

} // namespace ospra
