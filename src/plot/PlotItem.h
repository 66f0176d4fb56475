#pragma once

#include "plot/LinearScale.h"
#include "plot/PlotContent.h"
#include "plot/PlotPicture.h"
#include "plot/valueAxis.h"

#include <QColor>
#include <QFont>
#include <QQmlEngine>
#include <QQuickItem>

#include <optional>

namespace ospra {

/// Lets QML hand a plot's content on; it looks the same from there whatever it holds.
struct PlotContentType {
    Q_GADGET
    QML_FOREIGN(ospra::PlotContent)
    QML_VALUE_TYPE(plotContent)
};

/// The plot area: the item's own rectangle, in which it shows lines and rules. They are drawn in the background, and
/// what is there stays on screen until the new picture is finished. Axis labels, grid and letters are told as positions
/// and texts, for items around this one to show.
class PlotItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::PlotContent content READ content WRITE setContent NOTIFY contentChanged)
    Q_PROPERTY(qreal tickSpacing READ tickSpacing WRITE setTickSpacing NOTIFY tickSpacingChanged)
    Q_PROPERTY(QFont letterFont READ letterFont WRITE setLetterFont NOTIFY letterFontChanged)
    Q_PROPERTY(qreal yMin READ yMin NOTIFY axisChanged)
    Q_PROPERTY(qreal yMax READ yMax NOTIFY axisChanged)
    Q_PROPERTY(QList<qreal> tickPositions READ tickPositions NOTIFY axisChanged)
    Q_PROPERTY(QStringList tickLabels READ tickLabels NOTIFY axisChanged)
    Q_PROPERTY(QList<qreal> letterPositions READ letterPositions NOTIFY lettersChanged)
    Q_PROPERTY(QStringList letterTexts READ letterTexts NOTIFY lettersChanged)
    Q_PROPERTY(QList<QColor> letterColors READ letterColors NOTIFY lettersChanged)
    Q_PROPERTY(int rasterCount READ rasterCount NOTIFY rasterCountChanged)

public:
    explicit PlotItem(QQuickItem* parent = nullptr);

    [[nodiscard]] const PlotContent& content() const { return m_content; }
    void setContent(const PlotContent& content);

    /// Logical pixels between two ticks, about.
    [[nodiscard]] qreal tickSpacing() const { return m_tickSpacing; }
    void setTickSpacing(qreal spacing);

    /// What the markers' letters will be shown in; their places depend on its widths.
    [[nodiscard]] QFont letterFont() const { return m_letterFont; }
    void setLetterFont(const QFont& font);

    /// Ends of the y domain, at the bottom and the top edge of the item.
    [[nodiscard]] qreal yMin() const { return m_axis.domain.lo; }
    [[nodiscard]] qreal yMax() const { return m_axis.domain.hi; }
    /// y of the ticks in the item, ascending by value, and a label for each.
    [[nodiscard]] QList<qreal> tickPositions() const;
    [[nodiscard]] QStringList tickLabels() const;

    /// Left edges in the item of the letters of the markers that can be seen; texts and colours for each.
    [[nodiscard]] QList<qreal> letterPositions() const { return m_letterPositions; }
    [[nodiscard]] QStringList letterTexts() const { return m_letterTexts; }
    [[nodiscard]] QList<QColor> letterColors() const { return m_letterColors; }

    /// How many pictures have been drawn for the item and shown.
    [[nodiscard]] int rasterCount() const { return m_rasterCount; }

    /// Position in the item for a time or a value, also outside of it; the middle where there is no domain.
    Q_INVOKABLE qreal xAt(qreal seconds) const { return xScale().pixelAt(seconds); }
    Q_INVOKABLE qreal yAt(qreal value) const { return yScale().pixelAt(value); }
    /// Time and value at a position in the item, also outside of it; NaN where there is no domain or no room.
    Q_INVOKABLE qreal secondsAt(qreal x) const { return xScale().valueAt(x); }
    Q_INVOKABLE qreal valueAt(qreal y) const { return yScale().valueAt(y); }
    /// Whether a time lies in the x domain, ends included.
    Q_INVOKABLE bool containsSeconds(qreal seconds) const;

    [[nodiscard]] LinearScale xScale() const { return {m_content.seconds, 0.0, width()}; }
    [[nodiscard]] LinearScale yScale() const { return {m_axis.domain, height(), 0.0}; }

signals:
    void contentChanged();
    void tickSpacingChanged();
    void letterFontChanged();
    void axisChanged();
    void lettersChanged();
    void rasterCountChanged();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void componentComplete() override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    void contentHasChanged();
    void updateAxis();
    void updateLetters();
    void requestPicture();
    [[nodiscard]] PlotFrame frame() const;
    [[nodiscard]] QPointF shiftToPixels() const;
    void show(const PlotPicture& picture);

    PlotContent m_content;
    qreal m_tickSpacing = defaultTickSpacing;
    QFont m_letterFont;
    std::optional<ValueRange> m_values; // of the points in the x domain
    ValueAxis m_axis;
    QList<qreal> m_letterPositions;
    QStringList m_letterTexts;
    QList<QColor> m_letterColors;
    PlotPictureSource m_source;
    PlotPicture m_picture;                     // kept, since the scene graph may come back without its textures
    bool m_textureIsOld = false;               // the node still shows the picture before
    std::optional<PlotFrame> m_requestedFrame; // absent: whatever was asked for no longer does
    int m_rasterCount = 0;
};

} // namespace ospra
