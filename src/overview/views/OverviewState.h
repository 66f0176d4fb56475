#pragma once

#include "core/OspraModel.h"
#include "overview/computeOverview.h"
#include "overview/views/TextRowsModel.h"
#include "platform/Calendar.h"
#include "platform/DateTexts.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqml.h>

#include <memory>
#include <optional>

namespace ospra {

/// Tells this module's QML of the model, which it hands on without naming it.
struct OverviewSourceForeign {
    Q_GADGET
    QML_FOREIGN(ospra::OspraModel)
    QML_ANONYMOUS
};

/// What the overview screen shows of the model, and what its controls do.
class OverviewState : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::OspraModel* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)
    Q_PROPERTY(bool hasJumps READ hasJumps NOTIFY changed)
    Q_PROPERTY(QList<QString> rangeNames READ rangeNames CONSTANT)
    Q_PROPERTY(QList<QString> modeNames READ modeNames CONSTANT)
    Q_PROPERTY(int rangeIndex READ rangeIndex NOTIFY changed)
    Q_PROPERTY(int modeIndex READ modeIndex NOTIFY modeChanged)
    Q_PROPERTY(bool showsHeatmap READ showsHeatmap NOTIFY modeChanged)
    Q_PROPERTY(bool hasSelectedDay READ hasSelectedDay NOTIFY changed)
    Q_PROPERTY(QString totalText READ totalText NOTIFY changed)
    Q_PROPERTY(QString selectedDayText READ selectedDayText NOTIFY changed)
    Q_PROPERTY(ospra::TextRowsModel* headlines READ headlines CONSTANT)
    Q_PROPERTY(ospra::TextRowsModel* months READ months CONSTANT)
    Q_PROPERTY(ospra::TextRowsModel* selectedDayJumps READ selectedDayJumps CONSTANT)
    Q_PROPERTY(ospra::TextRowsModel* recentJumps READ recentJumps CONSTANT)

public:
    explicit OverviewState(QObject* parent = nullptr);

    [[nodiscard]] OspraModel* source() const { return m_source; }
    void setSource(OspraModel* source);
    [[nodiscard]] bool hasJumps() const { return m_source && m_source->hasJumpGroups(); }
    [[nodiscard]] static QStringList rangeNames();
    [[nodiscard]] static QStringList modeNames();
    /// The position in `rangeNames`.
    [[nodiscard]] int rangeIndex() const;
    [[nodiscard]] int modeIndex() const;
    [[nodiscard]] bool showsHeatmap() const;
    [[nodiscard]] bool hasSelectedDay() const { return m_source && m_source->overviewSelectedDay(); }
    /// "253 jumps", those of the range.
    [[nodiscard]] QString totalText() const;
    /// Of the last selected day, also after it was cleared, so that its card can fade away with it.
    [[nodiscard]] QString selectedDayText() const { return m_selectedDayText; }
    [[nodiscard]] TextRowsModel* headlines() { return &m_headlines; }
    [[nodiscard]] TextRowsModel* months() { return &m_months; }
    /// The jumps of the last selected day.
    [[nodiscard]] TextRowsModel* selectedDayJumps() { return &m_selectedDayJumps; }
    [[nodiscard]] TextRowsModel* recentJumps() { return &m_recentJumps; }

    [[nodiscard]] const OverviewAggregates& aggregates() const { return m_aggregates; }
    [[nodiscard]] const Calendar& calendar() const { return *m_calendar; }
    [[nodiscard]] const DateTexts& texts() const { return *m_texts; }
    [[nodiscard]] std::optional<Instant> selectedDay() const;
    /// What a click on a day does: selects it, or clears the selection if it was selected.
    void selectDay(std::optional<Instant> day);

    /// Computes everything anew for this moment. Weeks, months and the range move on while the program stands open.
    Q_INVOKABLE void refresh();
    Q_INVOKABLE void chooseRange(int index);
    Q_INVOKABLE void chooseMode(int index);
    Q_INVOKABLE void clearDay();
    /// Opens a jump by its row.
    Q_INVOKABLE void openSelectedDayJump(int row);
    Q_INVOKABLE void openRecentJump(int row);

signals:
    void sourceChanged();
    void modeChanged();
    void changed();

private:
    [[nodiscard]] std::vector<TextRow> jumpRows(const std::vector<JumpGroup>& groups) const;
    [[nodiscard]] std::vector<TextRow> headlineRows() const;
    [[nodiscard]] std::vector<TextRow> monthRows() const;
    void openJump(const std::vector<JumpGroup>& groups, int row);

    OspraModel* m_source = nullptr;
    std::unique_ptr<Calendar> m_calendar;
    std::unique_ptr<DateTexts> m_texts;
    OverviewAggregates m_aggregates;
    QString m_selectedDayText;
    TextRowsModel m_headlines;
    TextRowsModel m_months;
    TextRowsModel m_selectedDayJumps;
    TextRowsModel m_recentJumps;
};

} // namespace ospra
