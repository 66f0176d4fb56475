#include "tilemap/vector/paintOverlay.h"

#include "tilemap/vector/chooseNames.h"
#include "tilemap/vector/paintRoads.h"
#include "tilemap/vector/placeLabels.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace ospra {
namespace {

// Logical pixels.
constexpr double haloReach = 1.25; // beyond the letters
constexpr double labelMargin = 9.0;
constexpr double leastRepeatOfPlaces = 120.0;
constexpr double leastRepeatOfRoads = 250.0;
constexpr double spotStep = 60.0; // between places along a line that are tried
constexpr std::size_t mostBoxes = 20'000;

struct Label {
    QString text{};
    double size = 1.0;
    bool isRoad = false;
};

/// Labels that may be shown, and the room each would take.
struct Candidates {
    std::vector<Label> labels{};
    std::vector<LabelBox> boxes{};
    std::vector<std::size_t> labelOf{}; ///< of each box
};

/// The font of a name, in the picture's pixels.
QFont fontOf(const QFont& base, const Label& label, double scale)
{
    constexpr double pixelsPerPoint = 96.0 / 72.0;
    const double town = base.pixelSize() > 0 ? base.pixelSize() : base.pointSizeF() * pixelsPerPoint;
    QFont font = base;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(town * label.size * scale))));
    font.setWeight(label.isRoad ? QFont::Medium : QFont::DemiBold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void addBoxes(Candidates& candidates, const MapName& name, const LayerFrame& frame, const QFont& base)
{
    const double scale = frame.scale;
    // Line breaks and the like in a name would stand as boxes.
    Label label{.text = QString::fromUtf8(name.text.data(), static_cast<qsizetype>(name.text.size())).simplified(),
                .size = name.size,
                .isRoad = name.isRoad};
    const QFontMetricsF metrics(fontOf(base, label, scale));
    const double halo = haloReach * scale;
    LabelBox box{.center = name.line.front(),
                 .halfWidth = metrics.horizontalAdvance(label.text) / 2.0 + halo,
                 .halfHeight = (metrics.ascent() + metrics.descent()) / 2.0,
                 .text = name.text,
                 .leastRepeat = (name.isRoad ? leastRepeatOfRoads : leastRepeatOfPlaces) * scale};
    const auto add = [&] {
        candidates.boxes.push_back(box);
        candidates.labelOf.push_back(candidates.labels.size());
    };
    if (name.isRoad) {
        const double room = 2.0 * box.halfWidth + 2.0 * labelMargin * scale;
        for (const LineSpot& spot : straightSpots(name.line, room, spotStep * scale, 0.25 * metrics.ascent())) {
            box.center = spot.center;
            box.angle = spot.angle;
            if (countsForNames(spot.center, frame))
                add();
        }
    } else {
        add();
    }
    candidates.labels.push_back(std::move(label));
}

void paintLabel(QPainter& painter, const Label& label, const LabelBox& box, const QFont& base, double scale)
{
    const QColor haloColor(9, 12, 18, 230);
    const QColor letterColor(255, 255, 255, label.isRoad ? 225 : 250);
    const QFont font = fontOf(base, label, scale);
    const QFontMetricsF metrics(font);
    QPainterPath letters;
    letters.addText(-metrics.horizontalAdvance(label.text) / 2.0, metrics.capHeight() / 2.0, font, label.text);
    letters.setFillRule(Qt::WindingFill);
    painter.save();
    painter.translate(box.center.x, box.center.y);
    painter.rotate(box.angle * 180.0 / std::numbers::pi);
    painter.strokePath(letters, QPen(haloColor, 2.0 * haloReach * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(letters, letterColor);
    painter.restore();
}

bool isInPicture(const LabelBox& box, const QImage& picture)
{
    const double reach = std::hypot(box.halfWidth, box.halfHeight);
    return box.center.x > -reach && box.center.x < picture.width() + reach && box.center.y > -reach &&
           box.center.y < picture.height() + reach;
}

} // namespace

QImage paintOverlay(std::span<const PlacedVectorTile> tiles, const LayerFrame& frame, const QFont& font)
{
    if (frame.columns <= 0 || frame.rows <= 0)
        return {};
    QImage picture(frame.columns, frame.rows, QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return {};
    const std::ptrdiff_t stride = picture.bytesPerLine() / static_cast<qsizetype>(sizeof(std::uint32_t));
    paintRoads(tiles, frame,
               {reinterpret_cast<std::uint32_t*>(picture.bits()), static_cast<std::size_t>(stride * frame.rows)},
               stride);
    Candidates candidates;
    for (const MapName& name : chooseNames(tiles, frame)) {
        if (candidates.boxes.size() < mostBoxes)
            addBoxes(candidates, name, frame, font);
    }
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const std::size_t taken : placeLabels(candidates.boxes, labelMargin * frame.scale)) {
        const LabelBox& box = candidates.boxes[taken];
        if (isInPicture(box, picture))
            paintLabel(painter, candidates.labels[candidates.labelOf[taken]], box, font, frame.scale);
    }
    return picture;
}

} // namespace ospra
