#include "plot/PlotItem.h"

#include "plot/markerLetters.h"

#include <QFontMetricsF>
#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>

namespace ospra {
namespace {

constexpr double pictureMargin = 2.0;   // logical px above and below the plot, for lines along its edges
constexpr double letterGap = 2.0;       // logical px between the letters of markers
constexpr double largestSide = 16384.0; // device px of a picture; no screen is larger

} // namespace

PlotItem::PlotItem(QQuickItem* parent)
    : QQuickItem(parent), m_source([this](const PlotPicture& picture) { show(picture); })
{
    setFlag(ItemHasContents);
    updateAxis();
}

void PlotItem::setContent(const PlotContent& content)
{
    if (m_content == content)
        return;
    m_content = content;
    m_requestedFrame.reset();
    contentHasChanged();
    emit contentChanged();
}

void PlotItem::setTickSpacing(qreal spacing)
{
    if (m_tickSpacing == spacing)
        return;
    m_tickSpacing = spacing;
    updateAxis();
    emit tickSpacingChanged();
}

void PlotItem::setLetterFont(const QFont& font)
{
    if (m_letterFont == font)
        return;
    m_letterFont = font;
    updateLetters();
    emit letterFontChanged();
}

QList<qreal> PlotItem::tickPositions() const
{
    QList<qreal> positions;
    for (const PlotTick& tick : m_axis.ticks)
        positions.append(yAt(tick.value));
    return positions;
}

QStringList PlotItem::tickLabels() const
{
    QStringList labels;
    for (const PlotTick& tick : m_axis.ticks)
        labels.append(QString::fromStdString(tick.label));
    return labels;
}

bool PlotItem::containsSeconds(qreal seconds) const
{
    return seconds >= m_content.seconds.lo && seconds <= m_content.seconds.hi;
}

void PlotItem::contentHasChanged()
{
    if (!isComponentComplete())
        return;
    m_values = visibleValues(m_content.lines, m_content.seconds);
    updateAxis();
    updateLetters();
    // Not only when the next frame is prepared: the window waits a few milliseconds with that, in which the picture is
    // drawn, so that as a rule one frame shows it together with its axis.
    requestPicture();
}

void PlotItem::updateAxis()
{
    ValueAxis axis = m_content.valueRange ? makeFixedAxis(*m_content.valueRange, height(), m_tickSpacing)
                                          : makeValueAxis(m_values, height(), m_tickSpacing);
    polish();
    if (axis == m_axis)
        return;
    m_axis = std::move(axis);
    emit axisChanged();
}

void PlotItem::updateLetters()
{
    const QFontMetricsF metrics(m_letterFont);
    std::vector<MarkerLetter> letters;
    QStringList texts;
    QList<QColor> colors;
    for (const PlotMarker& marker : m_content.markers) {
        if (marker.letter.empty() || !containsSeconds(marker.seconds) || !xScale().isValid())
            continue;
        const QString text = QString::fromStdString(marker.letter);
        QColor color = QColor::fromRgb(QRgb(marker.color));
        color.setAlphaF(static_cast<float>(std::clamp(marker.letterOpacity, 0.0, 1.0)));
        letters.push_back({xAt(marker.seconds), metrics.horizontalAdvance(text)});
        texts.append(text);
        colors.append(color);
    }
    const std::vector<double> places = placeMarkerLetters(letters, width(), letterGap);
    QList<qreal> positions(places.begin(), places.end());
    if (positions == m_letterPositions && texts == m_letterTexts && colors == m_letterColors)
        return;
    m_letterPositions = std::move(positions);
    m_letterTexts = std::move(texts);
    m_letterColors = std::move(colors);
    emit lettersChanged();
}

PlotFrame PlotItem::frame() const
{
    const double scale = window() != nullptr ? window()->effectiveDevicePixelRatio() : 1.0;
    PlotFrame frame{.scale = scale, .seconds = m_content.seconds, .values = m_axis.domain};
    frame.plotWidth = width() * scale;
    frame.plotHeight = height() * scale;
    frame.plotTop = std::ceil(pictureMargin * scale);
    if (!(frame.plotWidth > 0.0 && frame.plotHeight > 0.0))
        return frame;
    frame.columns = static_cast<int>(std::ceil(std::min(frame.plotWidth, largestSide)));
    frame.rows = static_cast<int>(std::ceil(std::min(frame.plotHeight, largestSide)) + 2.0 * frame.plotTop);
    return frame;
}

void PlotItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() == oldGeometry.size())
        return;
    updateAxis();
    updateLetters();
    if (newGeometry.height() != oldGeometry.height())
        emit axisChanged(); // the ticks lie elsewhere, even where they are the same
    update();
}

void PlotItem::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        polish();
    QQuickItem::itemChange(change, data);
}

void PlotItem::componentComplete()
{
    QQuickItem::componentComplete();
    contentHasChanged();
}

void PlotItem::updatePolish()
{
    requestPicture();
}

void PlotItem::requestPicture()
{
    const PlotFrame wanted = frame();
    if (!isComponentComplete() || wanted == m_requestedFrame)
        return;
    m_requestedFrame = wanted;
    m_source.request(m_content, wanted);
}

void PlotItem::show(const PlotPicture& picture)
{
    m_picture = picture;
    m_textureIsOld = true;
    ++m_rasterCount;
    emit rasterCountChanged();
    update();
}

/// From the item's corner to the nearest whole device pixel, where the picture is as sharp as it was drawn.
QPointF PlotItem::shiftToPixels() const
{
    const qreal scale = window()->effectiveDevicePixelRatio();
    const QPointF corner = mapToScene(QPointF());
    return {std::round(corner.x() * scale) / scale - corner.x(), std::round(corner.y() * scale) / scale - corner.y()};
}

QSGNode* PlotItem::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    const PlotFrame& drawn = m_picture.frame;
    if (m_picture.image.isNull() || width() <= 0.0 || height() <= 0.0) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        m_textureIsOld = true;
    }
    if (m_textureIsOld) {
        node->setTexture(window()->createTextureFromImage(m_picture.image, QQuickWindow::TextureHasAlphaChannel));
        m_textureIsOld = false;
    }
    // A picture of another size or scale factor is stretched until the next one is there.
    const double xStretch = width() / drawn.plotWidth;
    const double yStretch = height() / drawn.plotHeight;
    const QPointF shift = shiftToPixels();
    node->setRect(shift.x(), shift.y() - drawn.plotTop * yStretch, drawn.columns * xStretch, drawn.rows * yStretch);
    return node;
}

} // namespace ospra
