#include "overview/views/paintHeatmap.h"

#include "overview/views/HeatmapLook.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ospra {

namespace {

/// Paints one scene. Places are those of the layout; they are brought to device pixels here.
class HeatmapPainter {
public:
    HeatmapPainter(const HeatmapScene& scene, const HeatmapLook& look, QImage& image)
        : m_scene(scene), m_layout(scene.layout), m_look(look), m_painter(&image),
          m_originX(std::round(scene.contentX * scene.scale) - std::round(scene.margin * scene.scale)),
          m_line(std::max(1.0, std::round(scene.scale)))
    {
        m_painter.setRenderHint(QPainter::Antialiasing);
    }

    void paintColumns();
    void paintRings();
    void paintMonthLabels();
    void paintBars();

private:
    [[nodiscard]] double deviceX(double x) const { return std::round(x * m_scene.scale) - m_originX; }
    [[nodiscard]] double deviceY(double y) const
    {
        return std::round(y * m_scene.scale) + std::round(m_scene.margin * m_scene.scale);
    }
    [[nodiscard]] double deviceLength(double length) const { return std::round(length * m_scene.scale); }
    [[nodiscard]] QRectF cellRect(HeatmapCell cell) const;
    [[nodiscard]] QImage cellPicture(int level) const;
    void paintMonthLine(std::ptrdiff_t week);
    void paintText(double x, double y, double height, const QFont& font, const QString& text);
    /// A frame of that width around a square, `gap` outside it; a negative gap lies inside.
    void paintRing(HeatmapCell cell, double gap, double width, const QColor& color);

    const HeatmapScene& m_scene;
    const HeatmapLayout& m_layout;
    const HeatmapLook& m_look;
    QPainter m_painter;
    double m_originX; ///< of the picture, in device pixels of the whole grid
    double m_line;    ///< the width of a hairline in device pixels
};

QRectF HeatmapPainter::cellRect(HeatmapCell cell) const
{
    const double size = deviceLength(m_layout.cellSize);
    return {deviceX(m_layout.left(cell.week)), deviceY(m_layout.top(cell.day)), size, size};
}

QImage HeatmapPainter::cellPicture(int level) const
{
    const int size = static_cast<int>(deviceLength(m_layout.cellSize));
    const double radius = m_look.cellRadius * m_scene.scale;
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_look.levels.value(level));
    painter.drawRoundedRect(QRectF(0, 0, size, size), radius, radius);
    if (level == 0 && m_look.emptyEdge.alpha() > 0) {
        const double inset = m_line / 2;
        painter.setPen(QPen(m_look.emptyEdge, m_line));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(inset, inset, size - m_line, size - m_line), radius - inset, radius - inset);
    }
    return picture;
}

void HeatmapPainter::paintColumns()
{
    std::array<QImage, 5> pictures;
    for (std::size_t level = 0; level < pictures.size(); ++level)
        pictures.at(level) = cellPicture(static_cast<int>(level));
    for (std::size_t i = 0; i < m_scene.columns.size(); ++i) {
        const HeatmapColumn& column = m_scene.columns[i];
        const std::ptrdiff_t week = m_scene.firstWeek + static_cast<std::ptrdiff_t>(i);
        if (column.opensMonth)
            paintMonthLine(week);
        for (int day = 0; day < daysPerHeatmapWeek; ++day) {
            const auto level = static_cast<std::size_t>(column.levels.at(static_cast<std::size_t>(day)));
            m_painter.drawImage(cellRect({.week = week, .day = day}).topLeft(), pictures.at(level));
        }
    }
}

void HeatmapPainter::paintMonthLine(std::ptrdiff_t week)
{
    const double top = deviceY(m_layout.gridTop());
    const double bottom = deviceY(m_layout.gridTop() + m_layout.gridHeight());
    const QRectF line(deviceX(m_layout.left(week) - m_layout.cellSpacing * 0.5), top, m_line, bottom - top);
    m_painter.fillRect(line, m_look.monthLineUnder);
    m_painter.fillRect(line, m_look.monthLine);
}

void HeatmapPainter::paintRing(HeatmapCell cell, double gap, double width, const QColor& color)
{
    const double outset = (gap + width / 2) * m_scene.scale;
    const double radius = std::max(0.0, m_look.cellRadius * m_scene.scale + outset);
    m_painter.setPen(QPen(color, width * m_scene.scale));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRoundedRect(cellRect(cell).adjusted(-outset, -outset, outset, outset), radius, radius);
}

void HeatmapPainter::paintRings()
{
    constexpr double strokeWidth = 1.0;
    if (m_scene.selectedCell) {
        paintRing(*m_scene.selectedCell, 0.0, m_look.selectedRingWidth, m_look.selectedRing);
        paintRing(*m_scene.selectedCell, -strokeWidth, strokeWidth, m_look.selected);
    }
    if (m_scene.focusedCell) {
        const double gap = m_scene.focusedCell == m_scene.selectedCell ? m_look.selectedRingWidth : 0.0;
        paintRing(*m_scene.focusedCell, gap, m_look.focusRingWidth, m_look.focusRing);
    }
}

void HeatmapPainter::paintText(double x, double y, double height, const QFont& font, const QString& text)
{
    m_painter.save();
    m_painter.translate(deviceX(x), deviceY(y));
    m_painter.scale(m_scene.scale, m_scene.scale);
    m_painter.setFont(font);
    m_painter.setPen(m_look.text);
    m_painter.drawText(QRectF(0, 0, 0, height), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, text);
    m_painter.restore();
}

void HeatmapPainter::paintMonthLabels()
{
    QFont font = m_look.monthFont;
    font.setWeight(QFont::DemiBold);
    for (std::size_t i = 0; i < m_scene.columns.size(); ++i) {
        const double x = m_layout.left(m_scene.firstWeek + static_cast<std::ptrdiff_t>(i));
        if (!m_scene.columns[i].monthLabel.isEmpty())
            paintText(x, 0.0, m_layout.labelHeight, font, m_scene.columns[i].monthLabel);
    }
}

void HeatmapPainter::paintBars()
{
    constexpr double barRadius = 1.0;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_look.bar);
    const double bottom = deviceY(m_layout.barsTop() + HeatmapLayout::barsHeight);
    for (std::size_t i = 0; i < m_scene.barHeights.size(); ++i) {
        const double left =
            static_cast<double>(m_scene.firstBar + static_cast<std::ptrdiff_t>(i)) * HeatmapLayout::barPitch;
        const double height = m_scene.barHeights[i] * m_scene.scale;
        const QRectF bar(deviceX(left), bottom - height, deviceLength(HeatmapLayout::barWidth), height);
        m_painter.drawRoundedRect(bar, barRadius * m_scene.scale, barRadius * m_scene.scale);
    }
}

} // namespace

QImage paintHeatmap(const HeatmapScene& scene, const HeatmapLook& look)
{
    const auto side = [&scene](double length) {
        return static_cast<int>(std::ceil((length + 2 * scene.margin) * scene.scale));
    };
    QImage image(side(scene.width), side(scene.layout.height()), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    HeatmapPainter painter(scene, look, image);
    painter.paintMonthLabels();
    painter.paintColumns();
    painter.paintRings();
    painter.paintBars();
    return image;
}

} // namespace ospra
