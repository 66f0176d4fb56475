#pragma once

#include "workspace/ChartRow.h"
#include "workspace/ModelList.h"

#include <QColor>
#include <QList>
#include <QQmlEngine>

#include <limits>
#include <vector>

namespace ospra {

/// The rows of the chart column with all that they draw and read out. A hover changes only what moves with it, and only
/// in the rows that can be seen.
class ChartRowsModel : public ospra::ModelList { // in full, as qmllint finds the base only so
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QColor> palette READ palette WRITE setPalette NOTIFY paletteChanged REQUIRED)
    Q_PROPERTY(bool hasSeries READ hasSeries NOTIFY hasSeriesChanged)
    Q_PROPERTY(int firstOnScreen READ firstOnScreen WRITE setFirstOnScreen NOTIFY onScreenChanged)
    Q_PROPERTY(int lastOnScreen READ lastOnScreen WRITE setLastOnScreen NOTIFY onScreenChanged)
    Q_PROPERTY(qreal hoveredSeconds READ hoveredSeconds NOTIFY hoveredSecondsChanged)
    Q_PROPERTY(QString timeLabel READ timeLabel NOTIFY hoveredSecondsChanged)

public:
    using ModelList::ModelList;

    /// The colours of the names that the logic uses, in their order.
    [[nodiscard]] QList<QColor> palette() const { return m_colors; }
    void setPalette(const QList<QColor>& colors);
    /// Whether any series is on at all.
    [[nodiscard]] bool hasSeries() const;
    /// The rows that are scrolled into view, both included. The others follow the pointer no sooner than they come.
    [[nodiscard]] int firstOnScreen() const { return m_firstOnScreen; }
    void setFirstOnScreen(int row);
    [[nodiscard]] int lastOnScreen() const { return m_lastOnScreen; }
    void setLastOnScreen(int row);
    /// The moment under the pointer, NaN when there is none.
    [[nodiscard]] qreal hoveredSeconds() const;
    /// The time since the exit at that moment; empty when there is none.
    [[nodiscard]] QString timeLabel() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The pointer stands at a moment, or over no chart.
    Q_INVOKABLE void hoverAt(qreal seconds) { source()->setHoveredSeconds(seconds); }
    Q_INVOKABLE void hoverNothing() { source()->setHoveredSeconds(std::nullopt); }

signals:
    void paletteChanged();
    void hasSeriesChanged();
    void onScreenChanged();
    void hoveredSecondsChanged();

protected:
    void follow(const OspraModel& model) override;
    void readSource() override;

private:
    enum Role {
        TitleRole = Qt::UserRole,
        ColorRole,
        UnitRole,
        ShowsTimeRole,
        ContentRole,
        DotsRole,
        ReadingNamesRole,
        ReadingColorsRole,
        ReadingValuesRole,
    };

    void updateRows();
    void updateContents();
    void updateHover();
    void updateReadings(int first, int last);
    void refresh(int first, int last, const QList<int>& roles);

    QList<QColor> m_colors;
    ChartPalette m_palette{};
    int m_firstOnScreen = 0;
    int m_lastOnScreen = std::numeric_limits<int>::max();
    std::vector<ChartRow> m_rows;
    std::vector<std::vector<HoverRow>> m_readings; // of each row as last updated; three roles show them
};

} // namespace ospra
