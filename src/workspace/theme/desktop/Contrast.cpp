#include "workspace/theme/desktop/Contrast.h"

#include <algorithm>
#include <cmath>

namespace ospra {

namespace {

// The way to white or black is walked in steps too small to be seen.
constexpr int mixSteps = 50;

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor withOpacity(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

// `color`, moved towards `target` by `step` of all steps.
QColor mixed(const QColor& color, const QColor& target, int step)
{
    return blended(withOpacity(target, static_cast<double>(step) / mixSteps), color);
}

bool isReadable(const QColor& accent, std::span<const QColor> grounds, double tint)
{
    return std::ranges::all_of(grounds, [&](const QColor& ground) {
        const QColor tinted = blended(withOpacity(accent, tint), ground);
        return contrastRatio(accent, ground) >= readableContrast && contrastRatio(accent, tinted) >= readableContrast;
    });
}

} // namespace

QColor blended(const QColor& over, const QColor& ground)
{
    const float opacity = over.alphaF();
    const auto mix = [opacity](float upper, float lower) { return upper * opacity + lower * (1.0F - opacity); };
    return QColor::fromRgbF(mix(over.redF(), ground.redF()), mix(over.greenF(), ground.greenF()),
                            mix(over.blueF(), ground.blueF()));
}

double contrastRatio(const QColor& text, const QColor& ground)
{
    const auto [darker, lighter] = std::minmax({luminance(blended(text, ground)), luminance(ground)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readableAccent(QColor accent, std::span<const QColor> grounds, double tint)
{
    const bool onDark = !grounds.empty() && luminance(grounds.front()) < 0.18;
    const QColor target = onDark ? Qt::white : Qt::black;
    for (int step = 0; step < mixSteps; ++step) {
        const QColor candidate = mixed(accent, target, step);
        if (isReadable(candidate, grounds, tint))
            return candidate;
    }
    return target;
}

QColor accentUnderWhite(QColor accent)
{
    for (int step = 0; step < mixSteps; ++step) {
        const QColor candidate = mixed(accent, Qt::black, step);
        if (contrastRatio(Qt::white, candidate) >= readableContrast)
            return candidate;
    }
    return Qt::black;
}

} // namespace ospra
