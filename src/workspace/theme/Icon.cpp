#include "workspace/theme/Icon.h"

#include "workspace/theme/renderIcon.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ospra {

Icon::Icon(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    setImplicitSize(16.0, 16.0);
}

void Icon::setName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    polish();
    emit nameChanged();
}

void Icon::setSize(qreal size)
{
    if (size == implicitWidth())
        return;
    setImplicitSize(size, size);
    emit sizeChanged();
}

void Icon::setColor(const QColor& color)
{
    if (color == m_color)
        return;
    m_color = color;
    polish();
    emit colorChanged();
}

void Icon::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void Icon::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        polish();
}

void Icon::updatePolish()
{
    if (window() == nullptr)
        return;
    const qreal side = std::min(width(), height()) * window()->effectiveDevicePixelRatio();
    m_side = static_cast<int>(std::lround(side));
    m_image = m_side > 0 ? renderIcon(m_name, m_side, m_color) : QImage();
    update();
}

QSGNode* Icon::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    if (m_side <= 0) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        if (m_image.isNull()) // the node was lost with its window
            m_image = renderIcon(m_name, m_side, m_color);
    }
    if (!m_image.isNull())
        node->setTexture(window()->createTextureFromImage(std::exchange(m_image, QImage())));
    // The picture stands on whole device pixels, so that nothing is blurred.
    const qreal ratio = window()->effectiveDevicePixelRatio();
    const qreal shown = m_side / ratio;
    const QPointF corner((width() - shown) / 2.0, (height() - shown) / 2.0);
    const QPointF scene = mapToScene(corner);
    const QPointF aligned(std::round(scene.x() * ratio) / ratio, std::round(scene.y() * ratio) / ratio);
    node->setRect(QRectF(corner + aligned - scene, QSizeF(shown, shown)));
    return node;
}

} // namespace ospra
