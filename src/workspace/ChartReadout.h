#pragma once

#include "workspace/ChartRowsModel.h"
#include "workspace/LaidOutText.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>

#include <cmath>
#include <vector>

namespace ospra {

/// What one row of the charts reads under the pointer, in one line: the time since the exit, where the row shows it,
/// and for each jumper the name and the value. All of it is one picture, painted when a text changes: a move of the
/// pointer changes the values of all rows, and a text item for each costs more than the rest of the frame. Screen
/// readers get the texts from properties, which tell of a change only while somebody reads.
class ChartReadout : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::ChartRowsModel* rows READ rows WRITE setRows NOTIFY rowsChanged REQUIRED)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY rowChanged REQUIRED)
    Q_PROPERTY(bool showsTime MEMBER m_showsTime NOTIFY lookChanged)
    Q_PROPERTY(QFont numberFont MEMBER m_numberFont NOTIFY lookChanged)
    Q_PROPERTY(QFont nameFont MEMBER m_nameFont NOTIFY lookChanged)
    Q_PROPERTY(QColor timeColor MEMBER m_timeColor NOTIFY lookChanged)
    Q_PROPERTY(QColor valueColor MEMBER m_valueColor NOTIFY lookChanged)
    Q_PROPERTY(qreal lineTop MEMBER m_lineTop NOTIFY lookChanged)
    Q_PROPERTY(qreal timeGap MEMBER m_timeGap NOTIFY lookChanged)
    Q_PROPERTY(qreal readingGap MEMBER m_readingGap NOTIFY lookChanged)
    Q_PROPERTY(qreal valueGap MEMBER m_valueGap NOTIFY lookChanged)
    Q_PROPERTY(qreal nameMaximum MEMBER m_nameMaximum NOTIFY lookChanged)
    Q_PROPERTY(qreal contentWidth READ contentWidth NOTIFY contentWidthChanged)
    Q_PROPERTY(QString timeLabel READ timeLabel NOTIFY spokenChanged)
    Q_PROPERTY(QString spokenReadings READ spokenReadings NOTIFY spokenChanged)

public:
    explicit ChartReadout(QQuickItem* parent = nullptr);

    [[nodiscard]] ChartRowsModel* rows() const { return m_rows; }
    void setRows(ChartRowsModel* rows);
    [[nodiscard]] int row() const { return m_row; }
    void setRow(int row);

    /// The room that all of it wants, with the gap before it; 0 when there is nothing to read.
    [[nodiscard]] qreal contentWidth() const { return m_contentWidth; }
    /// The time, where this row shows it; empty when there is none.
    [[nodiscard]] QString timeLabel() const;
    /// Names and values in words.
    [[nodiscard]] QString spokenReadings() const;

signals:
    void rowsChanged();
    void rowChanged();
    void lookChanged();
    void contentWidthChanged();
    void spokenChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    struct Reading {
        LaidOutText name{};
        LaidOutText value{};
        QColor color{};

        [[nodiscard]] qreal nameWidth() const { return std::ceil(name.width()); }
    };

    void readAgain();
    void followHover(int first, int last);
    void lookHasChanged();
    bool layOut();
    [[nodiscard]] qreal widthOfAll() const;
    [[nodiscard]] QImage picture() const;

    QPointer<ChartRowsModel> m_rows;
    int m_row = -1;
    bool m_showsTime = false;
    QFont m_numberFont;
    QFont m_nameFont;
    QFont m_timeFont;   // the number font, bolder
    QFont m_valueFont;  // likewise
    QFont m_jumperFont; // the name font, likewise
    QColor m_timeColor = Qt::black;
    QColor m_valueColor = Qt::black;
    qreal m_lineTop = 0.0; // above the glyphs
    qreal m_timeGap = 0.0;
    qreal m_readingGap = 0.0;
    qreal m_valueGap = 0.0;
    qreal m_nameMaximum = 0.0;
    LaidOutText m_time;
    std::vector<Reading> m_readings;
    qreal m_contentWidth = 0.0;
    bool m_isStale = true; // the picture shows another size or look
    QImage m_image;
    bool m_textureIsOld = false; // the node still shows the picture before
};

} // namespace ospra
