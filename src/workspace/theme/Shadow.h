#pragma once

#include <QColor>
#include <QImage>
#include <QQuickItem>

namespace ospra {

/// The soft shadow of a rounded rectangle.
/// @param size of the rectangle in pixels, at least 1 x 1
/// @param blur how far the shadow fades out; twice the deviation of the Gaussian, as in CSS
/// @return a picture that reaches beyond the rectangle by `blur` on each side
[[nodiscard]] QImage shadowImage(QSize size, int radius, int blur, const QColor& color);

/// The shadow that a menu or dialog of this item's size throws; lies below it and reaches beyond it.
class Shadow : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int radius MEMBER m_radius NOTIFY changed)
    Q_PROPERTY(int blur MEMBER m_blur NOTIFY changed)
    Q_PROPERTY(int offset MEMBER m_offset NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)

public:
    explicit Shadow(QQuickItem* parent = nullptr);

signals:
    void changed();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    int m_radius = 0;
    int m_blur = 0;
    int m_offset = 0; // downwards
    QColor m_color = Qt::black;
    QImage m_image;
    bool m_isImageNew = false;
};

} // namespace ospra
