#pragma once

#include <QColor>
#include <QImage>
#include <QQuickItem>

namespace ospra {

/// One of the theme's icons, tinted and sharp at every scale factor.
class Icon : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit Icon(QQuickItem* parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString& name);

    /// Side of the square in logical pixels; gives the implicit size.
    [[nodiscard]] qreal size() const { return implicitWidth(); }
    void setSize(qreal size);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor& color);

signals:
    void nameChanged();
    void sizeChanged();
    void colorChanged();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    QString m_name;
    QColor m_color = Qt::black;
    QImage m_image; // as the next paint node shall show it; empty once it has been handed over
    int m_side = 0; // of the picture shown, in device pixels
};

} // namespace ospra
