#pragma once

#include "workspace/ChartRow.h"
#include "workspace/ModelList.h"
#include "workspace/stepCursor.h"

#include <QAccessible>
#include <QColor>
#include <QList>
#include <QQmlEngine>

#include <limits>
#include <vector>

namespace ospra {

/// The rows of the chart column with all that they draw and read out. A hover changes only what moves with it, and only
/// in the rows that can be seen; that is no data of the list, since it would go through a binding for each row.
class ChartRowsModel : public ospra::ModelList, // in full, as qmllint finds the base only so
                       private QAccessible::ActivationObserver {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<QColor> palette READ palette WRITE setPalette NOTIFY paletteChanged REQUIRED)
    Q_PROPERTY(bool hasSeries READ hasSeries NOTIFY hasSeriesChanged)
    Q_PROPERTY(int firstOnScreen READ firstOnScreen WRITE setFirstOnScreen NOTIFY onScreenChanged)
    Q_PROPERTY(int lastOnScreen READ lastOnScreen WRITE setLastOnScreen NOTIFY onScreenChanged)

public:
    /// What a key does with the cursor.
    enum Step {
        Back = static_cast<int>(CursorStep::back),
        Forward = static_cast<int>(CursorStep::forward),
        LeapBack = static_cast<int>(CursorStep::leapBack),
        LeapForward = static_cast<int>(CursorStep::leapForward),
        ToStart = static_cast<int>(CursorStep::toStart),
        ToEnd = static_cast<int>(CursorStep::toEnd),
    };
    Q_ENUM(Step)

    explicit ChartRowsModel(QObject* parent = nullptr);
    ~ChartRowsModel() override;
    Q_DISABLE_COPY_MOVE(ChartRowsModel)

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
    Q_INVOKABLE [[nodiscard]] qreal hoveredSeconds() const;
    /// The time since the exit at that moment; empty when there is none.
    [[nodiscard]] QString timeLabel() const;
    /// What a row reads there, and the dots on its lines; nothing for a row that there is not.
    [[nodiscard]] const std::vector<HoverRow>& readings(int row) const;
    [[nodiscard]] PlotDots dots(int row) const;
    /// Whether a screen reader wants to know of changes.
    [[nodiscard]] bool hasReader() const { return m_hasReader; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The pointer stands at a moment, or over no chart.
    Q_INVOKABLE void hoverAt(qreal seconds) { source()->setHoveredSeconds(seconds); }
    Q_INVOKABLE void hoverNothing() { source()->setHoveredSeconds(std::nullopt); }
    /// Moves the cursor as a key does.
    /// @return where a selection begins that this step opens: at the cursor before, or at the new one if there was none
    ///     in sight; NaN where there is none at all
    Q_INVOKABLE qreal moveCursor(ospra::ChartRowsModel::Step step);

signals:
    void paletteChanged();
    void hasSeriesChanged();
    void onScreenChanged();
    /// What follows the pointer is another in these rows, both included.
    void hoverChanged(int first, int last);

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
    };

    /// A screen reader that comes while the pointer stands over a chart wants to read what is there.
    void accessibilityActiveChanged(bool active) override;

    void updateRows();
    void updateContents();
    void updateHover();
    void updateHoverIn(int first, int last);
    void refresh(int first, int last, const QList<int>& roles);

    bool m_hasReader = QAccessible::isActive();
    QList<QColor> m_colors;
    ChartPalette m_palette{};
    int m_firstOnScreen = 0;
    int m_lastOnScreen = std::numeric_limits<int>::max();
    std::vector<ChartRow> m_rows;
    std::vector<std::vector<HoverRow>> m_readings; // of each row as last updated
};

} // namespace ospra
