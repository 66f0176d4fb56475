#include "tools/take-screenshots/measureTexts.h"

#include "workspace/theme/desktop/Contrast.h"

#include <QQuickItem>

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace ospra {

namespace {

constexpr double fadedOpacity = 0.5; // what is switched off lies below

/// Where the walk through the items stands.
struct Surroundings {
    QRectF clip{};        ///< in the window
    double opacity = 1.0; ///< of all items from the window down
};

bool isText(const QQuickItem& item)
{
    return item.inherits("QQuickText") || item.inherits("QQuickTextEdit");
}

bool hasWords(const QString& text)
{
    return std::ranges::any_of(text, [](QChar sign) { return sign.isLetterOrNumber(); });
}

/// The colour of the ground: the most frequent one but the text's own, of which there may be more on a photograph.
QColor groundOf(const QImage& area, QRgb text)
{
    std::unordered_map<QRgb, int> counts;
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x)
            ++counts[area.pixel(x, y)];
    }
    counts.erase(text);
    if (counts.empty())
        return QColor::fromRgb(text);
    return QColor::fromRgb(std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; })->first);
}

/// The greatest contrast of any pixel to the ground.
double greatestContrast(const QImage& area, const QColor& ground)
{
    double greatest = 1.0;
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x)
            greatest = std::max(greatest, contrastRatio(area.pixelColor(x, y), ground));
    }
    return greatest;
}

/// The contrast of one text. Something else may reach into its place, a line for instance; so the colour that it was
/// given counts too, on the ground that the picture has there. An outline has its own colour.
double contrastOf(const QQuickItem& item, double opacity, const QImage& area)
{
    auto color = item.property("color").value<QColor>();
    const QColor ground = groundOf(area, color.rgb());
    const double seen = greatestContrast(area, ground);
    if (item.property("style").toInt() != 0)
        return seen;
    color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
    return std::min(seen, contrastRatio(color, ground));
}

std::optional<TextContrast> measure(const QQuickItem& item, const Surroundings& around, const QImage& picture)
{
    const double scale = picture.width() / item.window()->contentItem()->width();
    const QRectF box = item.mapRectToScene(QRectF(0, 0, item.width(), item.height())) & around.clip;
    const QRect place = QRectF(box.topLeft() * scale, box.size() * scale).toRect() & picture.rect();
    const QString text = item.property("text").toString();
    if (place.isEmpty() || around.opacity < fadedOpacity || !hasWords(text))
        return std::nullopt;
    return TextContrast{
        .text = text, .place = place, .contrast = contrastOf(item, around.opacity, picture.copy(place))};
}

void walk(const QQuickItem& item, Surroundings around, const QImage& picture, std::vector<TextContrast>& found)
{
    around.opacity *= item.opacity();
    if (!item.isVisible())
        return;
    if (item.clip())
        around.clip &= item.mapRectToScene(item.boundingRect());
    if (isText(item)) {
        if (const std::optional<TextContrast> measured = measure(item, around, picture))
            found.push_back(*measured);
    }
    for (const QQuickItem* child : item.childItems())
        walk(*child, around, picture, found);
}

/// What is in front: the layer of menus and dialogs where one is open, else the whole window.
const QQuickItem& front(const QQuickWindow& window)
{
    for (const QQuickItem* item : window.contentItem()->childItems()) {
        if (item->inherits("QQuickOverlay") && item->isVisible() && !item->childItems().isEmpty())
            return *item;
    }
    return *window.contentItem();
}

} // namespace

std::vector<TextContrast> measureTexts(QQuickWindow& window, const QImage& picture)
{
    std::vector<TextContrast> found;
    walk(front(window), {.clip = window.contentItem()->boundingRect()}, picture, found);
    return found;
}

} // namespace ospra
