#include "workspace/SidebarModel.h"

#include "core/text.h"
#include "workspace/dateSections.h"

#include <algorithm>
#include <utility>

namespace ospra {

SidebarModel::SidebarModel(QObject* parent)
    : ModelList(parent), m_calendar(makeUserCalendar()), m_texts(makeDateTexts())
{}

void SidebarModel::follow(const OspraModel& model)
{
    connect(&model, &OspraModel::jumpGroupsChanged, this, &SidebarModel::rebuild);
    connect(&model, &OspraModel::overviewSelectedDayChanged, this, &SidebarModel::rebuild);
    connect(&model, &OspraModel::sidebarSelectionChanged, this, &SidebarModel::updateSelectedRow);
}

void SidebarModel::readSource()
{
    rebuild();
}

int SidebarModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SidebarModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    const bool isJump = row.kind == Jump && row.group < source()->jumpGroups().size();
    const JumpGroup* group = isJump ? &source()->jumpGroups()[row.group] : nullptr;
    switch (role) {
    case KindRole: return row.kind;
    case TitleRole: return group ? jumpTitle(*group) : row.title;
    case NameRole: return group ? toQString(group->primaryEntry.name) : QString();
    case AgeRole: return group ? jumpAge(*group) : QString();
    case DotsRole: return group ? companionDots(*group) : QVariantList();
    default: return {};
    }
}

QHash<int, QByteArray> SidebarModel::roleNames() const
{
    return {{KindRole, "kind"}, {TitleRole, "title"}, {NameRole, "name"}, {AgeRole, "age"}, {DotsRole, "dots"}};
}

void SidebarModel::activate(int index)
{
    if (index < 0 || index >= rowCount())
        return;
    const Row row = m_rows[static_cast<std::size_t>(index)];
    switch (row.kind) {
    case Overview: source()->selectSidebarItem(SidebarSelection::overview()); break;
    case Filter: source()->setOverviewSelectedDay(std::nullopt); break;
    case Jump: source()->selectSidebarItem(SidebarSelection::jumpGroup(source()->jumpGroups()[row.group])); break;
    case Heading: break;
    }
}

void SidebarModel::refreshAges()
{
    if (!m_rows.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {AgeRole});
}

void SidebarModel::rebuild()
{
    beginResetModel();
    m_rows = makeRows();
    endResetModel();
    updateSelectedRow();
}

std::vector<SidebarModel::Row> SidebarModel::makeRows() const
{
    std::vector<Row> rows;
    if (!source() || source()->jumpGroups().empty())
        return rows;
    rows.push_back({.kind = Overview, .title = QStringLiteral("Overview")});
    const std::optional<Instant> day = source()->overviewSelectedDay();
    if (day) {
        rows.push_back({.kind = Heading, .title = QStringLiteral("Filtered Day")});
        rows.push_back({.kind = Filter, .title = toQString("Showing " + m_texts->date(*day))});
    }
    for (const DateSection& section : dateSections(source()->jumpGroups(), day, *m_calendar, *m_texts)) {
        rows.push_back({.kind = Heading, .title = toQString(section.label)});
        for (const std::size_t group : section.groups)
            rows.push_back({.kind = Jump, .group = group});
    }
    return rows;
}

int SidebarModel::findSelectedRow() const
{
    if (!source() || !source()->sidebarSelection())
        return -1;
    const SidebarSelection& selection = *source()->sidebarSelection();
    const auto row = std::ranges::find_if(m_rows, [&](const Row& candidate) {
        if (selection.isOverview())
            return candidate.kind == Overview;
        return candidate.kind == Jump && source()->jumpGroups()[candidate.group] == *selection.group();
    });
    return row == m_rows.end() ? -1 : static_cast<int>(row - m_rows.begin());
}

void SidebarModel::updateSelectedRow()
{
    const int row = findSelectedRow();
    if (std::exchange(m_selectedRow, row) != row)
        emit selectedRowChanged();
}

QString SidebarModel::jumpTitle(const JumpGroup& group) const
{
    return toQString(group.jumpDate ? m_texts->dateAndTime(*group.jumpDate) : group.primaryEntry.name);
}

QString SidebarModel::jumpAge(const JumpGroup& group) const
{
    return group.jumpDate ? toQString(m_texts->age(*group.jumpDate, currentInstant())) : QString();
}

/// The colours of the companions, in order. An entry whose jumper has gone has none.
QVariantList SidebarModel::companionDots(const JumpGroup& group) const
{
    QVariantList colors;
    if (!group.jumpDate)
        return colors;
    for (const JumpFileEntry& entry : group.companionEntries) {
        const auto jumper = std::ranges::find(source()->jumpers(), entry.jumperID, &Jumper::id);
        if (jumper != source()->jumpers().end())
            colors.append(static_cast<int>(jumper->color));
    }
    return colors;
}

} // namespace ospra
