#include "plot/PlotOverlay.h"

#include <QImage>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>

#include <algorithm>
#include <cmath>
#include <vector>

namespace ospra {
namespace {

constexpr qreal dotSide = 8.0;       // of the filled circle, in logical px
constexpr qreal dotEdge = 1.0;       // stroke round it, half of it outside
constexpr qreal dotImageSide = 10.0; // with the stroke and a soft edge

/// The position in whole device pixels.
qreal aligned(qreal position, qreal scale)
{
    return std::floor(position * scale + 0.5) / scale;
}

QImage dotImage(const PlotDot& dot, qreal scale)
{
    const int side = std::max(static_cast<int>(std::ceil(dotImageSide * scale)), 1);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(std::clamp(dot.opacity, 0.0, 1.0));
    painter.translate(side / 2.0, side / 2.0);
    painter.scale(scale, scale);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(QRgb(dot.color)));
    painter.drawEllipse(QPointF(), dotSide / 2.0, dotSide / 2.0);
    painter.setPen(QPen(QColor(0, 0, 0, 128), dotEdge));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(), dotSide / 2.0, dotSide / 2.0);
    return image;
}

/// The nodes of an overlay, in the order in which they are drawn. Nodes that show nothing are empty rectangles.
/// The transform stays what it is: it is there because the software renderer finds the place of nodes that are added or
/// moved only if their parent is of a kind that can have one.
class OverlayNode : public QSGTransformNode {
public:
    explicit OverlayNode(QQuickWindow* window)
        : m_window(window), m_cursor(window->createRectangleNode()), m_drag(window->createRectangleNode())
    {
        appendChildNode(m_cursor);
        appendChildNode(m_drag);
    }

    void setCursor(const QRectF& rect, const QColor& color) { setRectangle(m_cursor, rect, color); }
    void setDrag(const QRectF& rect, const QColor& color) { setRectangle(m_drag, rect, color); }

    /// Those beyond the dots there were are shown when `setDot` has told what they look like.
    void setDotCount(std::size_t count)
    {
        while (m_dots.size() > count) {
            removeChildNode(m_dots.back().node);
            delete m_dots.back().node;
            m_dots.pop_back();
        }
        while (m_dots.size() < count) {
            QSGImageNode* const node = m_window->createImageNode();
            node->setOwnsTexture(true);
            m_dots.push_back({node, {}, 0.0});
        }
    }

    void setDot(std::size_t index, const PlotDot& dot, QPointF centre, qreal scale)
    {
        Dot& shown = m_dots[index];
        if (shown.scale != scale || shown.look.color != dot.color || shown.look.opacity != dot.opacity) {
            shown.node->setTexture(
                m_window->createTextureFromImage(dotImage(dot, scale), QQuickWindow::TextureHasAlphaChannel));
            shown.look = dot;
            shown.scale = scale;
        }
        const qreal side = std::ceil(dotImageSide * scale) / scale;
        if (shown.node->parent() == nullptr)
            insertChildNodeBefore(shown.node, m_drag); // not before it has a texture, which the software renderer wants
        shown.node->setRect(aligned(centre.x() - side / 2.0, scale), aligned(centre.y() - side / 2.0, scale), side,
                            side);
    }

private:
    struct Dot {
        QSGImageNode* node = nullptr;
        PlotDot look{};
        qreal scale = 0.0;
    };

    static void setRectangle(QSGRectangleNode* node, const QRectF& rect, const QColor& color)
    {
        node->setRect(rect);
        node->setColor(rect.isEmpty() ? QColor(Qt::transparent) : color);
    }

    QQuickWindow* m_window;
    QSGRectangleNode* m_cursor;
    QSGRectangleNode* m_drag;
    std::vector<Dot> m_dots;
};

} // namespace

PlotOverlay::PlotOverlay(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &PlotOverlay::overlayChanged, this, &QQuickItem::update);
}

void PlotOverlay::setPlot(PlotItem* plot)
{
    if (m_plot == plot)
        return;
    if (m_plot)
        disconnect(m_plot, nullptr, this, nullptr);
    m_plot = plot;
    if (m_plot) {
        connect(m_plot, &PlotItem::contentChanged, this, &QQuickItem::update);
        connect(m_plot, &PlotItem::axisChanged, this, &QQuickItem::update);
    }
    emit plotChanged();
    update();
}

void PlotOverlay::setDots(const PlotDots& dots)
{
    if (m_dots == dots)
        return;
    m_dots = dots;
    emit overlayChanged();
}

void PlotOverlay::setCursor(qreal seconds, const PlotDots& dots)
{
    const bool isSame = seconds == m_cursorSeconds || (std::isnan(seconds) && std::isnan(m_cursorSeconds));
    if (isSame && m_dots == dots)
        return;
    m_cursorSeconds = seconds;
    m_dots = dots;
    emit overlayChanged();
}

void PlotOverlay::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemDevicePixelRatioHasChanged)
        update();
    QQuickItem::itemChange(change, data);
}

void PlotOverlay::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    update();
}

QRectF PlotOverlay::cursorRect(qreal scale) const
{
    if (!m_plot || !m_plot->containsSeconds(m_cursorSeconds))
        return {};
    const qreal width = std::max(std::round(scale), 1.0) / scale;
    return {aligned(m_plot->xAt(m_cursorSeconds) - width / 2.0, scale), 0.0, width, height()};
}

QRectF PlotOverlay::dragRect() const
{
    if (!m_plot || !std::isfinite(m_dragStart) || !std::isfinite(m_dragEnd))
        return {};
    const qreal start = std::clamp(m_plot->xAt(m_dragStart), 0.0, width());
    const qreal end = std::clamp(m_plot->xAt(m_dragEnd), 0.0, width());
    return QRectF(start, 0.0, end - start, height()).normalized();
}

QPointF PlotOverlay::dotCentre(const PlotDot& dot) const
{
    return {m_plot->xAt(dot.seconds), m_plot->yAt(dot.value)};
}

QSGNode* PlotOverlay::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<OverlayNode*>(oldNode);
    if (node == nullptr)
        node = new OverlayNode(window());
    const qreal scale = window()->effectiveDevicePixelRatio();
    const QRectF cursor = cursorRect(scale);
    node->setCursor(cursor, m_cursorColor);
    node->setDrag(dragRect(), m_dragColor);
    // A line's value may be beyond the plot where the y domain is given; there is no dot for it.
    QList<PlotDot> shown;
    if (!cursor.isEmpty()) {
        for (const PlotDot& dot : m_dots.list) {
            const QPointF centre = dotCentre(dot);
            if (m_plot->containsSeconds(dot.seconds) && centre.y() >= 0.0 && centre.y() <= height())
                shown.append(dot);
        }
    }
    node->setDotCount(static_cast<std::size_t>(shown.size()));
    for (qsizetype i = 0; i < shown.size(); ++i)
        node->setDot(static_cast<std::size_t>(i), shown[i], dotCentre(shown[i]), scale);
    return node;
}

} // namespace ospra
