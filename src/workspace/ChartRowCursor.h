#pragma once

#include "plot/PlotOverlay.h"
#include "workspace/ChartRowsModel.h"

#include <QObject>
#include <QPointer>
#include <QQmlEngine>

namespace ospra {

/// Keeps the cursor and the dots of one row's overlay where the pointer stands. It hands them on itself, since a move
/// of the pointer changes them in all rows and bindings would have to be evaluated for each.
class ChartRowCursor : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::ChartRowsModel* rows READ rows WRITE setRows NOTIFY rowsChanged REQUIRED)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY rowChanged REQUIRED)
    Q_PROPERTY(ospra::PlotOverlay* overlay READ overlay WRITE setOverlay NOTIFY overlayChanged REQUIRED)

public:
    using QObject::QObject;

    [[nodiscard]] ChartRowsModel* rows() const { return m_rows; }
    void setRows(ChartRowsModel* rows);
    [[nodiscard]] int row() const { return m_row; }
    void setRow(int row);
    [[nodiscard]] PlotOverlay* overlay() const { return m_overlay; }
    void setOverlay(PlotOverlay* overlay);

signals:
    void rowsChanged();
    void rowChanged();
    void overlayChanged();

private:
    void followHover(int first, int last);

    QPointer<ChartRowsModel> m_rows;
    int m_row = -1;
    QPointer<PlotOverlay> m_overlay;
};

} // namespace ospra
