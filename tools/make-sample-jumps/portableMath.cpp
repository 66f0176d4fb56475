#include "tools/make-sample-jumps/portableMath.h"

#include <cmath>

namespace ospra {

namespace {

/// Taylor series of the sine; `x` within an eighth of a turn.
double sineSeries(double x)
{
    double term = x;
    double sum = x;
    for (int n = 2; n <= 14; n += 2) {
        term *= -x * x / static_cast<double>(n * (n + 1));
        sum += term;
    }
    return sum;
}

/// Taylor series of the cosine; `x` within an eighth of a turn.
double cosineSeries(double x)
{
    double term = 1.0;
    double sum = 1.0;
    for (int n = 1; n <= 15; n += 2) {
        term *= -x * x / static_cast<double>(n * (n + 1));
        sum += term;
    }
    return sum;
}

/// Taylor series of the arc tangent; `x` from 0 to tan(pi / 8).
double arcTangentSeries(double x)
{
    double power = x;
    double sum = x;
    for (int n = 3; n <= 25; n += 2) {
        power *= -x * x;
        sum += power / static_cast<double>(n);
    }
    return sum;
}

/// @param x from 0 to 1
double arcTangent(double x)
{
    constexpr double tangentOfEighth = 0.41421356237309503;
    return x <= tangentOfEighth ? arcTangentSeries(x) : pi / 4.0 - arcTangentSeries((1.0 - x) / (1.0 + x));
}

} // namespace

double sine(double angle)
{
    const double quarters = std::floor(angle / (pi / 2.0) + 0.5);
    const double rest = angle - quarters * (pi / 2.0);
    switch (static_cast<long>(quarters) & 3) {
    case 0: return sineSeries(rest);
    case 1: return cosineSeries(rest);
    case 2: return -sineSeries(rest);
    default: return -cosineSeries(rest);
    }
}

double cosine(double angle)
{
    return sine(angle + pi / 2.0);
}

double exponential(double x)
{
    constexpr double ln2 = 0.69314718055994531;
    const double doublings = std::floor(x / ln2 + 0.5);
    const double rest = x - doublings * ln2;
    double term = 1.0;
    double sum = 1.0;
    for (int n = 1; n <= 13; ++n) {
        term *= rest / static_cast<double>(n);
        sum += term;
    }
    return std::ldexp(sum, static_cast<int>(doublings)); // exact
}

double angleOf(double y, double x)
{
    const double width = std::fabs(x);
    const double height = std::fabs(y);
    if (width == 0.0 && height == 0.0)
        return 0.0;
    const double acute = height <= width ? arcTangent(height / width) : pi / 2.0 - arcTangent(width / height);
    const double angle = x < 0.0 ? pi - acute : acute;
    return y < 0.0 ? -angle : angle;
}

} // namespace ospra
