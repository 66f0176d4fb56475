#include "tools/make-sample-jumps/Wind.h"

namespace ospra {

Wind::Wind(Random random)
{
    const double surface = random.between(1.2, 5.0);    // m/s; nobody jumps in much more
    const double bearing = random.between(0.0, 2 * pi); // where it blows to
    const double veer = random.between(-10.0, 45.0) * degree;
    const double aloft = surface + random.between(3.0, 11.0);
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const double share = heights[i] / heights.back();
        const double speed = surface + (aloft - surface) * share + (i == 0 ? 0.0 : 0.8 * random.bell());
        m_layers[i] = directionTo(bearing + veer * share + 4.0 * degree * random.bell()) * std::fmax(speed, 0.5);
    }
}

Vector3 Wind::at(double height) const
{
    for (std::size_t i = 1; i < heights.size(); ++i) {
        if (height < heights[i]) {
            const double share = std::fmax(height - heights[i - 1], 0.0) / (heights[i] - heights[i - 1]);
            return m_layers[i - 1] * (1.0 - share) + m_layers[i] * share;
        }
    }
    return m_layers.back();
}

Vector3 Wind::meanBelow(double height) const
{
    constexpr int parts = 8;
    Vector3 sum;
    for (int i = 0; i < parts; ++i)
        sum = sum + at(height * (static_cast<double>(i) + 0.5) / parts);
    return sum * (1.0 / parts);
}

Vector3 Wind::upwind() const
{
    return unit(m_layers.front() * -1.0);
}

} // namespace ospra
