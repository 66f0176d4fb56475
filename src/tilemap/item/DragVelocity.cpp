#include "tilemap/item/DragVelocity.h"

#include <algorithm>

namespace ospra {
namespace {

constexpr std::int64_t window = 100;    // ms that the mean goes over
constexpr std::int64_t standstill = 60; // ms without a move, after which the pointer stands

} // namespace

void DragVelocity::begin(ViewPoint position, std::int64_t milliseconds)
{
    m_samples.assign(1, {position, milliseconds});
}

void DragVelocity::move(ViewPoint position, std::int64_t milliseconds)
{
    std::erase_if(m_samples, [&](const Sample& sample) { return sample.milliseconds < milliseconds - window; });
    m_samples.push_back({position, milliseconds});
}

ViewPoint DragVelocity::atRelease(std::int64_t milliseconds) const
{
    if (m_samples.size() < 2 || milliseconds - m_samples.back().milliseconds > standstill)
        return {};
    const Sample& first = m_samples.front();
    const Sample& last = m_samples.back();
    // Moves that are handed over all at once tell no velocity; a tick of the clock is the least time they took.
    const double seconds = static_cast<double>(std::max<std::int64_t>(last.milliseconds - first.milliseconds, 8)) / 1e3;
    return {(last.position.x - first.position.x) / seconds, (last.position.y - first.position.y) / seconds};
}

} // namespace ospra
