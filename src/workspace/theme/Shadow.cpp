#include "workspace/theme/Shadow.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace ospra {

namespace {

// Three running means come close to a Gaussian. `stride` is the distance from one value of the line to the next.
void blurLine(std::span<float> values, std::size_t start, std::size_t stride, std::size_t count, std::size_t radius)
{
    std::vector<float> sums(count + 1, 0.0F);
    for (std::size_t index = 0; index < count; ++index)
        sums[index + 1] = sums[index] + values[start + index * stride];
    const auto width = static_cast<float>(2 * radius + 1);
    for (std::size_t index = 0; index < count; ++index) {
        const std::size_t first = index > radius ? index - radius : 0;
        const std::size_t last = std::min(count, index + radius + 1);
        values[start + index * stride] = (sums[last] - sums[first]) / width;
    }
}

QImage roundedRectangle(QSize size, int radius, int margin)
{
    QImage image(size.grownBy({margin, margin, margin, margin}), QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRect(QPoint(margin, margin), size), radius, radius);
    return image;
}

} // namespace

QImage shadowImage(QSize size, int radius, int blur, const QColor& color)
{
    const QImage shape = roundedRectangle(size.expandedTo({1, 1}), radius, blur);
    const auto width = static_cast<std::size_t>(shape.width());
    const auto height = static_cast<std::size_t>(shape.height());
    std::vector<float> values(width * height);
    for (std::size_t y = 0; y < height; ++y)
        std::ranges::copy_n(shape.constScanLine(static_cast<int>(y)), shape.width(), &values[y * width]);

    // The variance of three means of width w is (w * w - 1) / 4.
    const double deviation = blur / 2.0;
    const auto reach =
        static_cast<std::size_t>(std::lround((std::sqrt(4.0 * deviation * deviation + 1.0) - 1.0) / 2.0));
    for (int pass = 0; pass < 3; ++pass) {
        for (std::size_t y = 0; y < height; ++y)
            blurLine(values, y * width, 1, width, reach);
        for (std::size_t x = 0; x < width; ++x)
            blurLine(values, x, width, height, reach);
    }

    QImage shadow(shape.size(), QImage::Format_ARGB32_Premultiplied);
    for (std::size_t y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(shadow.scanLine(static_cast<int>(y)));
        for (std::size_t x = 0; x < width; ++x) {
            const float opacity = values[y * width + x] * color.alphaF();
            line[x] =
                qPremultiply(qRgba(color.red(), color.green(), color.blue(), static_cast<int>(std::lround(opacity))));
        }
    }
    return shadow;
}

Shadow::Shadow(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &Shadow::changed, this, &QQuickItem::polish);
}

void Shadow::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void Shadow::updatePolish()
{
    m_image = shadowImage(size().toSize(), m_radius, m_blur, m_color);
    m_isImageNew = true;
    update();
}

QSGNode* Shadow::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(oldNode);
    if (m_image.isNull())
        return node;
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        m_isImageNew = true;
    }
    if (std::exchange(m_isImageNew, false))
        node->setTexture(window()->createTextureFromImage(m_image));
    node->setRect(boundingRect().adjusted(-m_blur, m_offset - m_blur, m_blur, m_offset + m_blur));
    return node;
}

} // namespace ospra
