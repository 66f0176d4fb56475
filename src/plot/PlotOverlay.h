#pragma once

#include "plot/PlotItem.h"

#include <QColor>
#include <QList>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

#include <cstdint>
#include <limits>

namespace ospra {

/// A filled circle on a line of a plot.
struct PlotDot {
    double seconds = 0.0;
    double value = 0.0;
    std::uint32_t color = 0xffffff; ///< 0xRRGGBB
    double opacity = 1.0;

    friend bool operator==(const PlotDot&, const PlotDot&) = default;
};

/// All dots of a plot, from back to front.
struct PlotDots {
    Q_GADGET
    QML_VALUE_TYPE(plotDots)

public:
    QList<PlotDot> list;

    friend bool operator==(const PlotDots&, const PlotDots&) = default;
};

/// What moves with the pointer over a plot: cursor, dots and selection, from back to front. It lies over the plot with
/// the same geometry, and leaves the plot's picture alone.
class PlotOverlay : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::PlotItem* plot READ plot WRITE setPlot NOTIFY plotChanged REQUIRED)
    Q_PROPERTY(qreal cursorSeconds MEMBER m_cursorSeconds NOTIFY overlayChanged)
    Q_PROPERTY(QColor cursorColor MEMBER m_cursorColor NOTIFY overlayChanged)
    Q_PROPERTY(ospra::PlotDots dots READ dots WRITE setDots NOTIFY overlayChanged)
    Q_PROPERTY(qreal dragStart MEMBER m_dragStart NOTIFY overlayChanged)
    Q_PROPERTY(qreal dragEnd MEMBER m_dragEnd NOTIFY overlayChanged)
    Q_PROPERTY(QColor dragColor MEMBER m_dragColor NOTIFY overlayChanged)

public:
    explicit PlotOverlay(QQuickItem* parent = nullptr);

    [[nodiscard]] PlotItem* plot() const { return m_plot; }
    void setPlot(PlotItem* plot);

    [[nodiscard]] PlotDots dots() const { return m_dots; }
    void setDots(const PlotDots& dots);

    /// Cursor and dots in one.
    /// @param seconds NaN: no cursor
    void setCursor(qreal seconds, const PlotDots& dots);

signals:
    void plotChanged();
    void overlayChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    static constexpr qreal nothing = std::numeric_limits<qreal>::quiet_NaN();

    [[nodiscard]] QRectF cursorRect(qreal scale) const;
    [[nodiscard]] QRectF dragRect() const;
    [[nodiscard]] QPointF dotCentre(const PlotDot& dot) const;

    QPointer<PlotItem> m_plot;
    qreal m_cursorSeconds = nothing; // NaN or outside the domain: no cursor and no dots
    QColor m_cursorColor = Qt::gray;
    PlotDots m_dots;
    qreal m_dragStart = nothing; // NaN: no selection
    qreal m_dragEnd = nothing;
    QColor m_dragColor = Qt::transparent;
};

} // namespace ospra
