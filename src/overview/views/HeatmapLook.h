#pragma once

#include <QColor>
#include <QFont>
#include <QList>
#include <QObject>
#include <QtQmlIntegration>

namespace ospra {

/// The colours and fonts of the heatmap.
class HeatmapLook : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QColor> levels MEMBER levels NOTIFY changed)
    Q_PROPERTY(QColor emptyEdge MEMBER emptyEdge NOTIFY changed)
    Q_PROPERTY(QColor selected MEMBER selected NOTIFY changed)
    Q_PROPERTY(QColor selectedRing MEMBER selectedRing NOTIFY changed)
    Q_PROPERTY(qreal selectedRingWidth MEMBER selectedRingWidth NOTIFY changed)
    Q_PROPERTY(QColor focusRing MEMBER focusRing NOTIFY changed)
    Q_PROPERTY(qreal focusRingWidth MEMBER focusRingWidth NOTIFY changed)
    Q_PROPERTY(QColor monthLine MEMBER monthLine NOTIFY changed)
    Q_PROPERTY(QColor monthLineUnder MEMBER monthLineUnder NOTIFY changed)
    Q_PROPERTY(QColor bar MEMBER bar NOTIFY changed)
    Q_PROPERTY(QColor text MEMBER text NOTIFY changed)
    Q_PROPERTY(QFont monthFont MEMBER monthFont NOTIFY changed)
    Q_PROPERTY(qreal monthHeight MEMBER monthHeight NOTIFY changed)
    Q_PROPERTY(qreal trendTitleHeight MEMBER trendTitleHeight NOTIFY changed)
    Q_PROPERTY(qreal cellRadius MEMBER cellRadius NOTIFY changed)

public:
    using QObject::QObject;

    QList<QColor> levels; ///< five, from no jump to the busiest days
    QColor emptyEdge;     ///< inside the squares of level 0
    QColor selected;      ///< the stroke of the selected day
    QColor selectedRing;  ///< around that stroke, in the gap between the squares
    qreal selectedRingWidth = 1.0;
    QColor focusRing;
    qreal focusRingWidth = 2.0;
    QColor monthLine;
    QColor monthLineUnder; ///< on the same pixels, below the line
    QColor bar;
    QColor text;
    QFont monthFont; ///< drawn semibold
    qreal monthHeight = 14.0;
    qreal trendTitleHeight = 13.0;
    qreal cellRadius = 2.0;

signals:
    void changed();
};

} // namespace ospra
