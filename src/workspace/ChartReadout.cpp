#include "workspace/ChartReadout.h"

#include "core/replaceSource.h"
#include "core/text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace ospra {

namespace {

constexpr qreal uncut = std::numeric_limits<qreal>::infinity();

} // namespace

ChartReadout::ChartReadout(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &ChartReadout::lookChanged, this, &ChartReadout::lookHasChanged);
}

void ChartReadout::setRows(ChartRowsModel* rows)
{
    if (!replaceSource(m_rows, rows, this))
        return;
    if (m_rows)
        connect(m_rows, &ChartRowsModel::hoverChanged, this, &ChartReadout::followHover);
    emit rowsChanged();
    readAgain();
}

void ChartReadout::setRow(int row)
{
    if (std::exchange(m_row, row) == row)
        return;
    emit rowChanged();
    readAgain();
}

void ChartReadout::followHover(int first, int last)
{
    if (m_row >= first && m_row <= last)
        readAgain();
}

void ChartReadout::readAgain()
{
    polish();
    if (m_rows && m_rows->hasReader())
        emit spokenChanged();
}

void ChartReadout::lookHasChanged()
{
    m_timeFont = m_valueFont = m_numberFont;
    m_timeFont.setWeight(QFont::DemiBold);
    m_valueFont.setWeight(QFont::Medium);
    m_jumperFont = m_nameFont;
    m_jumperFont.setWeight(QFont::Medium);
    m_isStale = true;
    polish();
}

QString ChartReadout::timeLabel() const
{
    return m_showsTime && m_rows ? m_rows->timeLabel() : QString();
}

QString ChartReadout::spokenReadings() const
{
    QStringList texts;
    if (m_rows)
        for (const HoverRow& reading : m_rows->readings(m_row))
            texts.append(toQString(reading.name) + QLatin1Char(' ') + toQString(reading.value));
    return texts.join(QLatin1String(", "));
}

void ChartReadout::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) {
        m_isStale = true;
        polish();
    }
    QQuickItem::itemChange(change, data);
}

void ChartReadout::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    update(); // its place among the device pixels is another
    if (newGeometry.size() == oldGeometry.size())
        return;
    m_isStale = true;
    polish();
}

/// @return whether any text is another
bool ChartReadout::layOut()
{
    bool isNew = m_time.set(timeLabel(), m_timeFont, uncut);
    const std::size_t before = m_readings.size();
    const std::vector<HoverRow> nothing;
    const std::vector<HoverRow>& readings = m_rows ? m_rows->readings(m_row) : nothing;
    m_readings.resize(readings.size());
    isNew |= before != readings.size();
    for (std::size_t index = 0; index < readings.size(); ++index) {
        Reading& shown = m_readings[index];
        isNew |= shown.name.set(toQString(readings[index].name), m_jumperFont, m_nameMaximum);
        isNew |= shown.value.set(toQString(readings[index].value), m_valueFont, uncut);
        const QColor color = m_rows->palette().value(static_cast<qsizetype>(readings[index].color));
        isNew |= std::exchange(shown.color, color) != color;
    }
    return isNew;
}

qreal ChartReadout::widthOfAll() const
{
    qreal width = m_time.isEmpty() ? 0.0 : m_timeGap + m_time.width();
    for (const Reading& reading : m_readings)
        width += m_readingGap + reading.nameWidth() + m_valueGap + reading.value.width();
    return width;
}

void ChartReadout::updatePolish()
{
    if (!layOut() && !m_isStale)
        return;
    const qreal wanted = widthOfAll();
    if (std::exchange(m_contentWidth, wanted) != wanted)
        emit contentWidthChanged(); // which may change the width, so the picture comes after
    m_image = picture();
    m_isStale = false;
    m_textureIsOld = true;
    update();
}

/// As far as there is room; none where there is nothing to read.
QImage ChartReadout::picture() const
{
    const qreal scale = window() != nullptr ? window()->effectiveDevicePixelRatio() : 1.0;
    const QSize size(static_cast<int>(std::ceil(std::min(m_contentWidth, width()) * scale)),
                     static_cast<int>(std::ceil(height() * scale)));
    if (size.isEmpty())
        return {};
    // On a ground that is not opaque glyphs are blended as the scene graph blends those of its texts.
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    // Each text begins on a whole device pixel, as it does in an item of its own.
    const auto place = [scale, baseline = m_lineTop + QFontMetricsF(m_valueFont).ascent()](qreal left) {
        return QPointF(std::round(left * scale), std::round(baseline * scale)) / scale;
    };
    qreal x = 0.0;
    if (!m_time.isEmpty()) {
        painter.setPen(m_timeColor);
        m_time.paint(painter, place(m_timeGap));
        x = m_timeGap + m_time.width();
    }
    for (const Reading& reading : m_readings) {
        x += m_readingGap;
        painter.setPen(reading.color);
        reading.name.paint(painter, place(x));
        x += reading.nameWidth() + m_valueGap;
        painter.setPen(m_valueColor);
        reading.value.paint(painter, place(x));
        x += reading.value.width();
    }
    return image;
}

QSGNode* ChartReadout::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    if (m_image.isNull()) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Nearest);
        m_textureIsOld = true;
    }
    if (std::exchange(m_textureIsOld, false))
        node->setTexture(window()->createTextureFromImage(m_image, QQuickWindow::TextureHasAlphaChannel));
    // On whole device pixels, where the picture is as sharp as it was painted.
    const qreal scale = m_image.devicePixelRatio();
    const QPointF corner = mapToScene(QPointF());
    node->setRect(std::round(corner.x() * scale) / scale - corner.x(),
                  std::round(corner.y() * scale) / scale - corner.y(), m_image.width() / scale,
                  m_image.height() / scale);
    return node;
}

} // namespace ospra
