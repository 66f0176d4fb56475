// What the pointer and the keys do to the heatmap.

#include "overview/views/HeatmapItem.h"

#include <QKeyEvent>

#include <algorithm>

namespace ospra {

std::optional<HeatmapCell> HeatmapItem::cellUnder(qreal x, qreal y) const
{
    return m_layout.cellAt(x + m_contentX, y, grid().weekCount());
}

void HeatmapItem::hoverAt(qreal x, qreal y)
{
    m_pointer = QPointF(x, y);
    updateHover();
}

void HeatmapItem::endHover()
{
    m_pointer.reset();
    updateHover();
}

void HeatmapItem::updateHover()
{
    const auto cell = m_pointer ? cellUnder(m_pointer->x(), m_pointer->y()) : std::nullopt;
    if (m_hoveredCell == cell)
        return;
    m_hoveredCell = cell;
    m_hoveredDay = cell ? dayAt(*cell) : std::nullopt;
    emit hoveredDayChanged();
}

void HeatmapItem::clickAt(qreal x, qreal y)
{
    const auto cell = cellUnder(x, y);
    const auto day = cell ? dayAt(*cell) : std::nullopt;
    if (day)
        m_overview->selectDay(day->date);
}

void HeatmapItem::pressFocusedDay()
{
    const auto day = m_focusedCell ? dayAt(*m_focusedCell) : std::nullopt;
    if (day)
        m_overview->selectDay(day->date);
}

/// The selected day, or the last one with jumps.
HeatmapCell HeatmapItem::firstFocus() const
{
    if (m_selectedCell)
        return *m_selectedCell;
    HeatmapCell cell{.week = grid().weekCount() - 1, .day = daysPerHeatmapWeek - 1};
    while (cell.day > 0 && grid().count(cell) == 0)
        --cell.day;
    return cell;
}

void HeatmapItem::setFocusedCell(std::optional<HeatmapCell> cell)
{
    if (m_focusedCell == cell)
        return;
    m_focusedCell = cell;
    polish();
    emit focusedDayChanged();
    if (!cell)
        return;
    const double left = m_layout.left(cell->week);
    const double right = left + m_layout.cellSize;
    if (left < m_contentX || right > m_contentX + width())
        emit revealRequested(
            std::clamp(left - (width() - m_layout.cellSize) / 2, 0.0, std::max(0.0, contentWidth() - width())));
}

void HeatmapItem::moveFocus(std::ptrdiff_t weeks, int days)
{
    if (grid().weekCount() == 0)
        return;
    const HeatmapCell from = m_focusedCell.value_or(firstFocus());
    const std::ptrdiff_t lastDay = grid().weekCount() * daysPerHeatmapWeek - 1;
    const std::ptrdiff_t day =
        std::clamp((from.week + weeks) * daysPerHeatmapWeek + from.day + days, std::ptrdiff_t{0}, lastDay);
    setFocusedCell(HeatmapCell{.week = day / daysPerHeatmapWeek, .day = static_cast<int>(day % daysPerHeatmapWeek)});
}

void HeatmapItem::focusInEvent(QFocusEvent* event)
{
    QQuickItem::focusInEvent(event);
    if (grid().weekCount() > 0 && event->reason() != Qt::MouseFocusReason)
        setFocusedCell(m_focusedCell.value_or(firstFocus()));
}

void HeatmapItem::focusOutEvent(QFocusEvent* event)
{
    QQuickItem::focusOutEvent(event);
    setFocusedCell(std::nullopt);
}

void HeatmapItem::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left: moveFocus(-1, 0); break;
    case Qt::Key_Right: moveFocus(1, 0); break;
    case Qt::Key_Up: moveFocus(0, -1); break;
    case Qt::Key_Down: moveFocus(0, 1); break;
    case Qt::Key_Home: moveFocus(-grid().weekCount(), 0); break;
    case Qt::Key_End: moveFocus(grid().weekCount(), 0); break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: pressFocusedDay(); break;
    default: event->ignore(); return;
    }
    event->accept();
}

} // namespace ospra
