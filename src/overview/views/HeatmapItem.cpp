#include "overview/views/HeatmapItem.h"

#include "core/replaceSource.h"
#include "core/text.h"
#include "overview/heatmapScale.h"
#include "overview/overviewTexts.h"

#include <QQuickWindow>
#include <QSGImageNode>

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
    if (!replaceSource(m_overview, overview, this))
        return;
    if (m_overview)
        connect(m_overview, &OverviewState::changed, this, &HeatmapItem::overviewHasChanged);
    overviewHasChanged();
    emit overviewChanged();
}

void HeatmapItem::setLook(HeatmapLook* look)
{
    if (!replaceSource(m_look, look, this))
        return;
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
