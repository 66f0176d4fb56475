#pragma once

// Qt's moc fails on <compare> as the first of all headers, so the one that does not begin with it comes first.
// clang-format off
#include "overview/views/OverviewState.h"
#include "overview/HeatmapGrid.h"
#include "overview/views/HeatmapLayout.h"
#include "overview/views/HeatmapLook.h"
// clang-format on
#include "overview/views/paintHeatmap.h"

#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQmlIntegration>

#include <optional>
#include <unordered_map>

namespace ospra {

/// The grid of the jump days with the names of the months above and the weekly trend below. The item is as wide as the
/// part that is to be seen and draws what begins at `contentX`, so that only the columns on screen are ever asked of
/// the calendar or drawn, and places stay exact in grids that are millions of pixels wide.
///
/// With the keyboard's focus, the arrow keys move from day to day and Space or Return selects the day.
class HeatmapItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::OverviewState* overview READ overview WRITE setOverview NOTIFY overviewChanged REQUIRED)
    Q_PROPERTY(ospra::HeatmapLook* look READ look WRITE setLook NOTIFY lookChanged REQUIRED)
    Q_PROPERTY(qreal cellSize READ cellSize WRITE setCellSize NOTIFY layoutChanged)
    Q_PROPERTY(qreal cellSpacing READ cellSpacing WRITE setCellSpacing NOTIFY layoutChanged)
    Q_PROPERTY(qreal contentX READ contentX WRITE setContentX NOTIFY contentXChanged)
    Q_PROPERTY(qreal contentWidth READ contentWidth NOTIFY layoutChanged)
    Q_PROPERTY(qreal trendTop READ trendTop NOTIFY layoutChanged)
    Q_PROPERTY(bool isOverDay READ isOverDay NOTIFY hoveredDayChanged)
    Q_PROPERTY(bool hoveredDayHasJumps READ hoveredDayHasJumps NOTIFY hoveredDayChanged)
    Q_PROPERTY(QString hoveredDayText READ hoveredDayText NOTIFY hoveredDayChanged)
    Q_PROPERTY(QString focusedDayText READ focusedDayText NOTIFY focusedDayChanged)

public:
    explicit HeatmapItem(QQuickItem* parent = nullptr);

    [[nodiscard]] OverviewState* overview() const { return m_overview; }
    void setOverview(OverviewState* overview);
    [[nodiscard]] HeatmapLook* look() const { return m_look; }
    void setLook(HeatmapLook* look);
    [[nodiscard]] qreal cellSize() const { return m_layout.cellSize; }
    void setCellSize(qreal size);
    [[nodiscard]] qreal cellSpacing() const { return m_layout.cellSpacing; }
    void setCellSpacing(qreal spacing);
    [[nodiscard]] qreal contentX() const { return m_contentX; }
    void setContentX(qreal x);
    /// The width of all weeks.
    [[nodiscard]] qreal contentWidth() const;
    /// Where the title of the weekly trend belongs, which the item does not draw.
    [[nodiscard]] qreal trendTop() const { return m_layout.trendTop(); }
    /// The pointer is over a day.
    [[nodiscard]] bool isOverDay() const { return m_hoveredCell.has_value(); }
    [[nodiscard]] bool hoveredDayHasJumps() const { return m_hoveredDay && m_hoveredDay->count > 0; }
    /// "2 jumps on 3 Jul 2026" of the day under the pointer; empty without one.
    [[nodiscard]] QString hoveredDayText() const;
    /// The same of the day that the keyboard's focus is on.
    [[nodiscard]] QString focusedDayText() const;

    /// The pointer is at this place of the item.
    Q_INVOKABLE void hoverAt(qreal x, qreal y);
    Q_INVOKABLE void endHover();
    Q_INVOKABLE void clickAt(qreal x, qreal y);
    /// What Space does: selects the day that the focus is on, or clears it.
    Q_INVOKABLE void pressFocusedDay();

    /// What is drawn at the moment. Asks the calendar for the columns on screen that it was not asked for before.
    [[nodiscard]] HeatmapScene scene();
    [[nodiscard]] std::optional<HeatmapCell> focusedCell() const { return m_focusedCell; }

signals:
    void overviewChanged();
    void lookChanged();
    void layoutChanged();
    void contentXChanged();
    void hoveredDayChanged();
    void focusedDayChanged();
    /// Asks for the `contentX` at which the focused day can be seen.
    void revealRequested(qreal contentX);

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    [[nodiscard]] const HeatmapGrid& grid() const;
    [[nodiscard]] std::optional<HeatmapDay> dayAt(HeatmapCell cell) const;
    [[nodiscard]] QString dayText(const std::optional<HeatmapDay>& day) const;
    [[nodiscard]] HeatmapColumn column(std::ptrdiff_t week);
    [[nodiscard]] const QString& monthLabel(std::ptrdiff_t week);
    [[nodiscard]] std::optional<HeatmapCell> cellUnder(qreal x, qreal y) const;
    [[nodiscard]] HeatmapCell firstFocus() const;
    void updateHover();
    void setFocusedCell(std::optional<HeatmapCell> cell);
    void moveFocus(std::ptrdiff_t weeks, int days);
    void overviewHasChanged();
    void lookHasChanged();
    void layoutHasChanged();

    QPointer<OverviewState> m_overview;
    QPointer<HeatmapLook> m_look;
    HeatmapLayout m_layout;
    qreal m_contentX = 0.0;
    std::optional<HeatmapCell> m_selectedCell;
    std::optional<QPointF> m_pointer; ///< while it is over the item
    std::optional<HeatmapCell> m_hoveredCell;
    std::optional<HeatmapDay> m_hoveredDay;
    std::optional<HeatmapCell> m_focusedCell; ///< while the ring is to be seen
    /// The name of the month that a column opens, empty if it opens none, for the columns seen so far.
    std::unordered_map<std::ptrdiff_t, QString> m_monthLabels;
    QImage m_image;
    qreal m_imageScale = 1.0;
    bool m_textureIsOld = false; ///< the node still shows the picture before
};

} // namespace ospra
