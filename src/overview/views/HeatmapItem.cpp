#include "overview/views/HeatmapItem.h"

#include "core/text.h"
#include "overview/heatmapScale.h"
#include "overview/overviewTexts.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>

namespace ospra {

namespace {

constexpr double margin = 4.0;            // logical px painted around the item, for the rings of squares at its edges
constexpr double widestMonthLabel = 80.0; // logical px; a label this far to the left may still reach into the view
constexpr std::size_t mostMonthLabels = 4096;

} // namespace

HeatmapItem::HeatmapItem(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    setActiveFocusOnTab(true);
    setImplicitHeight(m_layout.height());
}

void HeatmapItem::setOverview(OverviewState* overview)
{
    if (m_overview == overview)
        return;
    if (m_overview)
        m_overview->disconnect(this);
    m_overview = overview;
    if (m_overview)
        connect(m_overview, &OverviewState::changed, this, &HeatmapItem::overviewHasChanged);
    overviewHasChanged();
    emit overviewChanged();
}

void HeatmapItem::setLook(HeatmapLook* look)
{
    if (m_look == look)
        return;
    if (m_look)
        m_look->disconnect(this);
    m_look = look;
    if (m_look)
        connect(m_look, &HeatmapLook::changed, this, &HeatmapItem::lookHasChanged);
    lookHasChanged();
    emit lookChanged();
}

void HeatmapItem::setCellSize(qreal size)
{
    if (m_layout.cellSize == size || !(size > 0.0))
        return;
    m_layout.cellSize = size;
    layoutHasChanged();
}

void HeatmapItem::setCellSpacing(qreal spacing)
{
    if (m_layout.cellSpacing == spacing || !(spacing >= 0.0))
        return;
    m_layout.cellSpacing = spacing;
    layoutHasChanged();
}

void HeatmapItem::setContentX(qreal x)
{
    if (m_contentX == x)
        return;
    m_contentX = x;
    updateHover(); // another day has come under a resting pointer
    polish();
    emit contentXChanged();
}

qreal HeatmapItem::contentWidth() const
{
    return m_layout.width(grid().weekCount());
}

const HeatmapGrid& HeatmapItem::grid() const
{
    static const HeatmapGrid empty;
    return m_overview ? m_overview->aggregates().heatmap : empty;
}

void HeatmapItem::overviewHasChanged()
{
    m_monthLabels.clear();
    const auto selectedDay = m_overview ? m_overview->selectedDay() : std::nullopt;
    m_selectedCell = selectedDay ? grid().cellOf(*selectedDay, m_overview->calendar()) : std::nullopt;
    m_hoveredCell.reset(); // its count may be another now
    m_hoveredDay.reset();
    updateHover();
    if (m_focusedCell && m_focusedCell->week >= grid().weekCount())
        m_focusedCell.reset();
    emit hoveredDayChanged();
    emit focusedDayChanged();
    emit layoutChanged();
    polish();
}

void HeatmapItem::lookHasChanged()
{
    if (m_look) {
        m_layout.labelHeight = m_look->monthHeight;
        m_layout.trendTitleHeight = m_look->trendTitleHeight;
    }
    layoutHasChanged();
}

void HeatmapItem::layoutHasChanged()
{
    setImplicitHeight(m_layout.height());
    polish();
    emit layoutChanged();
}

std::optional<HeatmapDay> HeatmapItem::dayAt(HeatmapCell cell) const
{
    return m_overview ? grid().day(cell, m_overview->calendar()) : std::nullopt;
}

QString HeatmapItem::dayText(const std::optional<HeatmapDay>& day) const
{
    return day && m_overview ? toQString(ospra::hoveredDayText(*day, m_overview->texts())) : QString();
}

QString HeatmapItem::hoveredDayText() const
{
    return dayText(m_hoveredDay);
}

QString HeatmapItem::focusedDayText() const
{
    return m_focusedCell ? dayText(dayAt(*m_focusedCell)) : QString();
}

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

const QString& HeatmapItem::monthLabel(std::ptrdiff_t week)
{
    if (m_monthLabels.size() > mostMonthLabels)
        m_monthLabels.clear();
    const auto [entry, isNew] = m_monthLabels.try_emplace(week);
    const Calendar& calendar = m_overview->calendar();
    if (isNew && grid().opensMonth(week, calendar))
        entry->second = toQString(m_overview->texts().monthShort(grid().weekStart(week, calendar)));
    return entry->second;
}

HeatmapColumn HeatmapItem::column(std::ptrdiff_t week)
{
    HeatmapColumn column{.monthLabel = monthLabel(week)};
    column.opensMonth = !column.monthLabel.isEmpty();
    for (int day = 0; day < daysPerHeatmapWeek; ++day) {
        const int count = grid().count({.week = week, .day = day});
        column.levels.at(static_cast<std::size_t>(day)) = heatmapLevel(count, m_overview->aggregates().busiestDay);
    }
    return column;
}

HeatmapScene HeatmapItem::scene()
{
    const double scale = window() ? window()->effectiveDevicePixelRatio() : 1.0;
    HeatmapScene scene{.layout = m_layout,
                       .contentX = m_contentX,
                       .width = width(),
                       .margin = margin,
                       .scale = scale,
                       .selectedCell = m_selectedCell,
                       .focusedCell = m_focusedCell};
    const double from = m_contentX - margin;
    const double to = m_contentX + width() + margin;
    const IndexWindow columns = m_layout.columnsBetween(from - widestMonthLabel, to, grid().weekCount());
    scene.firstWeek = columns.first;
    for (std::ptrdiff_t week = columns.first; week < columns.end; ++week)
        scene.columns.push_back(column(week));
    const IndexWindow bars = HeatmapLayout::barsBetween(from, to, grid().weekCount());
    scene.firstBar = bars.first;
    for (std::ptrdiff_t week = bars.first; week < bars.end; ++week) {
        const int count = grid().weeklyCounts()[static_cast<std::size_t>(week)];
        scene.barHeights.push_back(weeklyBarHeight(count, m_overview->aggregates().busiestWeek));
    }
    return scene;
}

void HeatmapItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void HeatmapItem::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged || change == ItemVisibleHasChanged)
        polish();
    QQuickItem::itemChange(change, data);
}

void HeatmapItem::updatePolish()
{
    if (!isVisible() || !m_overview || !m_look || !(width() > 0.0))
        return;
    const HeatmapScene picture = scene();
    m_image = paintHeatmap(picture, *m_look);
    m_imageScale = picture.scale;
    m_textureIsOld = true;
    update();
}

QSGNode* HeatmapItem::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    if (m_image.isNull()) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Nearest); // device pixel for device pixel
        m_textureIsOld = true;
    }
    if (m_textureIsOld) {
        node->setTexture(window()->createTextureFromImage(m_image, QQuickWindow::TextureHasAlphaChannel));
        m_textureIsOld = false;
    }
    const double edge = std::round(margin * m_imageScale) / m_imageScale;
    node->setRect(-edge, -edge, m_image.width() / m_imageScale, m_image.height() / m_imageScale);
    return node;
}

} // namespace ospra
