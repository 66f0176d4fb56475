#include "overview/views/OverviewState.h"

#include "core/replaceSource.h"
#include "core/text.h"
#include "overview/OverviewMode.h"
#include "overview/OverviewTimeRange.h"
#include "overview/jumpLists.h"
#include "overview/overviewTexts.h"

#include <algorithm>
#include <iterator>

namespace ospra {

namespace {

template <typename Cases>
QStringList namesOf(const Cases& cases)
{
    QStringList names;
    for (const auto one : cases)
        names.append(toQString(displayName(one)));
    return names;
}

template <typename Cases, typename Case>
int indexOf(const Cases& cases, Case wanted)
{
    return static_cast<int>(std::distance(cases.begin(), std::find(cases.begin(), cases.end(), wanted)));
}

template <typename List>
bool hasIndex(const List& list, int index)
{
    return index >= 0 && index < std::ssize(list);
}

} // namespace

OverviewState::OverviewState(QObject* parent)
    : QObject(parent), m_calendar(makeUserCalendar()), m_texts(makeDateTexts())
{}

void OverviewState::setSource(OspraModel* source)
{
    if (!replaceSource(m_source, source, this))
        return;
    if (m_source) {
        connect(m_source, &OspraModel::jumpGroupsChanged, this, &OverviewState::refresh);
        connect(m_source, &OspraModel::overviewTimeRangeChanged, this, &OverviewState::refresh);
        connect(m_source, &OspraModel::overviewSelectedDayChanged, this, &OverviewState::refresh);
        connect(m_source, &OspraModel::overviewModeChanged, this, &OverviewState::modeChanged);
    }
    refresh();
    emit modeChanged();
    emit sourceChanged();
}

QStringList OverviewState::rangeNames()
{
    return namesOf(allOverviewTimeRanges);
}

QStringList OverviewState::modeNames()
{
    return namesOf(allOverviewModes);
}

int OverviewState::rangeIndex() const
{
    return m_source ? indexOf(allOverviewTimeRanges, m_source->overviewTimeRange()) : 0;
}

int OverviewState::modeIndex() const
{
    return m_source ? indexOf(allOverviewModes, m_source->overviewMode()) : 0;
}

bool OverviewState::showsHeatmap() const
{
    return !m_source || m_source->overviewMode() == OverviewMode::heatmap;
}

QString OverviewState::totalText() const
{
    return toQString(jumpCountText(m_aggregates.visibleJumps));
}

std::optional<Instant> OverviewState::selectedDay() const
{
    return m_source ? m_source->overviewSelectedDay() : std::nullopt;
}

void OverviewState::selectDay(std::optional<Instant> day)
{
    if (m_source)
        m_source->setOverviewSelectedDay(selectedDayAfterClick(selectedDay(), day, *m_calendar));
}

void OverviewState::refresh()
{
    m_aggregates = m_source ? computeOverview(m_source->jumpGroups(), m_source->overviewTimeRange(), selectedDay(),
                                              currentInstant(), *m_calendar)
                            : OverviewAggregates{};
    m_headlines.setRows(headlineRows());
    m_months.setRows(monthRows());
    m_recentJumps.setRows(jumpRows(m_aggregates.recentGroups));
    if (const auto day = selectedDay()) {
        m_selectedDayJumps.setRows(jumpRows(m_aggregates.selectedDayGroups));
        m_selectedDayText = toQString(ospra::selectedDayText(m_aggregates.selectedDayGroups.size(), *day, *m_texts));
    }
    emit changed();
}

void OverviewState::chooseRange(int index)
{
    if (m_source && hasIndex(allOverviewTimeRanges, index))
        m_source->setOverviewTimeRange(allOverviewTimeRanges.at(static_cast<std::size_t>(index)));
}

void OverviewState::chooseMode(int index)
{
    if (m_source && hasIndex(allOverviewModes, index))
        m_source->setOverviewMode(allOverviewModes.at(static_cast<std::size_t>(index)));
}

void OverviewState::clearDay()
{
    if (m_source)
        m_source->setOverviewSelectedDay(std::nullopt);
}

void OverviewState::openSelectedDayJump(int row)
{
    openJump(m_aggregates.selectedDayGroups, row);
}

void OverviewState::openRecentJump(int row)
{
    openJump(m_aggregates.recentGroups, row);
}

void OverviewState::openJump(const std::vector<JumpGroup>& groups, int row)
{
    if (!m_source || !hasIndex(groups, row))
        return;
    // A copy, since the list may change while the jump opens.
    m_source->openGroup(JumpGroup(groups[static_cast<std::size_t>(row)]));
}

std::vector<TextRow> OverviewState::jumpRows(const std::vector<JumpGroup>& groups) const
{
    std::vector<TextRow> rows;
    rows.reserve(groups.size());
    for (const JumpGroup& group : groups) {
        const QString name = toQString(group.primaryEntry.name);
        rows.push_back(
            {.title = group.jumpDate ? toQString(m_texts->dateAndTime(*group.jumpDate)) : name, .value = name});
    }
    return rows;
}

std::vector<TextRow> OverviewState::headlineRows() const
{
    std::vector<TextRow> rows;
    for (const HeadlineValue& headline : headlineValues(m_aggregates, *m_texts))
        rows.push_back({.title = toQString(headline.title), .value = toQString(headline.value)});
    return rows;
}

std::vector<TextRow> OverviewState::monthRows() const
{
    std::vector<TextRow> rows;
    rows.reserve(m_aggregates.monthlyStats.size());
    for (const MonthStat& month : m_aggregates.monthlyStats)
        rows.push_back({.title = toQString(m_texts->monthAndYear(month.monthStart)),
                        .value = toQString(jumpCountText(month.jumps)),
                        .note = toQString(averageText(month.avgPerWeek))});
    return rows;
}

} // namespace ospra
