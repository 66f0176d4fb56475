#include "tests/support/AerialPicture.h"

#include "tilemap/Mercator.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace ospra {

namespace {

constexpr int fieldZoom = 15;      // from it on fields keep their size on the ground; further out they stand for more
constexpr double fieldsAcross = 6; // a tile at that zoom

/// A number from 0 to 1 that belongs to a place of the grid.
double chance(std::int64_t column, std::int64_t row, std::uint64_t salt)
{
    std::uint64_t mixed = static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15U ^
                          static_cast<std::uint64_t>(row) * 0xC2B2AE3D27D4EB4FU ^ salt * 0x165667B19E3779F9U;
    mixed ^= mixed >> 31U;
    mixed *= 0xBF58476D1CE4E5B9U;
    mixed ^= mixed >> 29U;
    return static_cast<double>(mixed >> 11U) / 9007199254740992.0;
}

/// Paints one tile; lengths in the grid are fields, in the picture pixels.
class AerialPainter {
public:
    AerialPainter(QImage& picture, const TileID& tile)
        : m_painter(&picture), m_tile(tile), m_size(picture.width()),
          m_perWorld(fieldsAcross * std::exp2(std::min(tile.zoom, fieldZoom))),
          m_fieldSize(m_size * std::exp2(tile.zoom) / m_perWorld)
    {
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_firstColumn = m_perWorld * tile.x / std::exp2(tile.zoom);
        m_firstRow = m_perWorld * tile.y / std::exp2(tile.zoom);
    }

    void paintGround()
    {
        m_painter.fillRect(0, 0, m_size, m_size, QColor(96, 108, 70));
        const auto across = static_cast<std::int64_t>(std::ceil(m_size / m_fieldSize)) + 1;
        const auto left = static_cast<std::int64_t>(std::floor(m_firstColumn));
        const auto top = static_cast<std::int64_t>(std::floor(m_firstRow));
        for (std::int64_t row = top - 1; row <= top + across; ++row) {
            for (std::int64_t column = left - 1; column <= left + across; ++column)
                paintField(column, row);
        }
        for (std::int64_t row = top - 1; row <= top + across; ++row) {
            for (std::int64_t column = left - 1; column <= left + across; ++column)
                paintLanes(column, row);
        }
    }

    void paintAirfield(const PaintedAirfield& airfield)
    {
        const std::optional<WorldPoint> middle = worldPoint(airfield.middle);
        if (!middle)
            return;
        const double pixelsAWorld = m_size * std::exp2(m_tile.zoom);
        const double metre = pixelsAWorld / metersPerWorldUnit(airfield.middle.latitude);
        m_painter.save();
        m_painter.translate(middle->x * pixelsAWorld - m_tile.x * m_size, middle->y * pixelsAWorld - m_tile.y * m_size);
        m_painter.rotate(airfield.bearing);
        m_painter.scale(metre, metre); // from here on metres, the runway from south to north
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(QColor(126, 142, 84));
        m_painter.drawRoundedRect(QRectF(-130, -560, 300, 1120), 60, 60);
        m_painter.setBrush(QColor(96, 97, 98));
        m_painter.drawRect(QRectF(-12, -450, 24, 900));
        m_painter.drawRect(QRectF(12, -30, 60, 12));
        m_painter.drawRect(QRectF(66, -110, 50, 190));
        m_painter.setBrush(QColor(214, 214, 208));
        for (int y = -400; y < 400; y += 50)
            m_painter.drawRect(QRectF(-0.6, y, 1.2, 30));
        for (int y = -105; y < 60; y += 45) {
            m_painter.setBrush(QColor(176, 178, 182));
            m_painter.drawRect(QRectF(120, y, 26, 36));
        }
        m_painter.restore();
    }

private:
    /// The corner of four fields, moved a little so that no grid shows.
    [[nodiscard]] QPointF corner(std::int64_t column, std::int64_t row) const
    {
        const double x = static_cast<double>(column) + 0.55 * (chance(column, row, 1) - 0.5);
        const double y = static_cast<double>(row) + 0.55 * (chance(column, row, 2) - 0.5);
        return {(x - m_firstColumn) * m_fieldSize, (y - m_firstRow) * m_fieldSize};
    }

    void paintField(std::int64_t column, std::int64_t row)
    {
        static const std::array colors{QColor(112, 128, 66), QColor(139, 146, 82), QColor(164, 152, 98),
                                       QColor(92, 114, 58),  QColor(128, 110, 78), QColor(150, 158, 100),
                                       QColor(104, 122, 72), QColor(178, 166, 112)};
        const QPolygonF outline{
            {corner(column, row), corner(column + 1, row), corner(column + 1, row + 1), corner(column, row + 1)}};
        const auto kind = static_cast<std::size_t>(chance(column, row, 3) * static_cast<double>(colors.size()));
        const int shade = 92 + static_cast<int>(16 * chance(column, row, 4));
        const bool isWood = chance(column / 2, row / 2, 5) < 0.16;
        const QColor color = isWood ? QColor(52, 72, 44) : colors[kind].darker(shade + 8);
        m_painter.setPen(QPen(color.darker(125), std::max(m_fieldSize / 60, 0.6)));
        m_painter.setBrush(color);
        m_painter.drawPolygon(outline);
        if (isWood)
            paintTrees(column, row, outline);
        else if (m_fieldSize > 30)
            paintRows(outline, color);
    }

    void paintTrees(std::int64_t column, std::int64_t row, const QPolygonF& outline)
    {
        m_painter.setPen(Qt::NoPen);
        const std::uint64_t count = m_fieldSize > 30 ? 40 : 8;
        for (std::uint64_t i = 0; i < count; ++i) {
            const QPointF place = placeIn(outline, chance(column, row, 100 + 3 * i), chance(column, row, 101 + 3 * i));
            const double radius = m_fieldSize * (0.03 + 0.05 * chance(column, row, 102 + 3 * i));
            m_painter.setBrush(i % 2 == 0 ? QColor(42, 60, 36, 170) : QColor(70, 92, 54, 150));
            m_painter.drawEllipse(place, radius, radius);
        }
    }

    /// What a tractor leaves, along one edge of the field.
    void paintRows(const QPolygonF& outline, const QColor& color)
    {
        m_painter.setPen(QPen(color.lighter(107), m_fieldSize / 90));
        for (int i = 1; i < 20; ++i)
            m_painter.drawLine(placeIn(outline, 0.02, i / 20.0), placeIn(outline, 0.98, i / 20.0));
    }

    /// From the first corner, so far towards the second and the fourth, 0 to 1.
    static QPointF placeIn(const QPolygonF& outline, double along, double down)
    {
        const QPointF upper = outline[0] + (outline[1] - outline[0]) * along;
        const QPointF lower = outline[3] + (outline[2] - outline[3]) * along;
        return upper + (lower - upper) * down;
    }

    void paintLanes(std::int64_t column, std::int64_t row)
    {
        const double width = std::max(m_fieldSize / 28, 0.7);
        m_painter.setPen(QPen(QColor(186, 180, 166), width, Qt::SolidLine, Qt::RoundCap));
        if (row % 4 == 0)
            m_painter.drawLine(corner(column, row), corner(column + 1, row));
        if (column % 5 == 0)
            m_painter.drawLine(corner(column, row), corner(column, row + 1));
        if (row % 4 != 0 || column % 5 != 0)
            return;
        m_painter.setPen(Qt::NoPen);
        for (std::uint64_t i = 0; i < 7; ++i) { // a hamlet where lanes meet
            const QPointF offset((chance(column, row, 40 + i) - 0.5) * m_fieldSize * 0.7,
                                 (chance(column, row, 60 + i) - 0.5) * m_fieldSize * 0.7);
            const double side = m_fieldSize * 0.07;
            m_painter.setBrush(i % 3 == 0 ? QColor(168, 104, 84) : QColor(150, 140, 132));
            m_painter.drawRect(QRectF(corner(column, row) + offset, QSizeF(side * 1.5, side)));
        }
    }

    QPainter m_painter;
    TileID m_tile;
    int m_size = 0;
    double m_perWorld = 0.0;  ///< fields round the world
    double m_fieldSize = 0.0; ///< pixels
    double m_firstColumn = 0.0;
    double m_firstRow = 0.0;
};

} // namespace

QImage paintAerial(const TileID& tile, std::span<const PaintedAirfield> airfields, int size)
{
    QImage picture(size, size, QImage::Format_RGB32);
    AerialPainter painter(picture, tile);
    painter.paintGround();
    for (const PaintedAirfield& airfield : airfields)
        painter.paintAirfield(airfield);
    return picture;
}

} // namespace ospra
