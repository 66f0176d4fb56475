#include "workspace/ChartRowCursor.h"

#include "core/replaceSource.h"

#include <utility>

namespace ospra {

void ChartRowCursor::setRows(ChartRowsModel* rows)
{
    if (!replaceSource(m_rows, rows, this))
        return;
    if (m_rows)
        connect(m_rows, &ChartRowsModel::hoverChanged, this, &ChartRowCursor::followHover);
    emit rowsChanged();
    followHover(m_row, m_row);
}

void ChartRowCursor::setRow(int row)
{
    if (std::exchange(m_row, row) == row)
        return;
    emit rowChanged();
    followHover(m_row, m_row);
}

void ChartRowCursor::setOverlay(PlotOverlay* overlay)
{
    if (m_overlay == overlay)
        return;
    m_overlay = overlay;
    emit overlayChanged();
    followHover(m_row, m_row);
}

void ChartRowCursor::followHover(int first, int last)
{
    if (m_rows && m_overlay && m_row >= first && m_row <= last)
        m_overlay->setCursor(m_rows->hoveredSeconds(), m_rows->dots(m_row));
}

} // namespace ospra
