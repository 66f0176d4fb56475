#include "workspace/TracksModel.h"

#include "core/text.h"
#include "display/statsBar.h"

namespace ospra {

namespace {

QStringList statsValues(const JumpTrack& track, UnitSystem system)
{
    QStringList values;
    if (!track.statistics)
        return values;
    for (const StatsItem& item : statsBarItems(*track.statistics, system))
        values.append(toQString(item.value));
    return values;
}

} // namespace

void TracksModel::follow(const OspraModel& model)
{
    connect(&model, &OspraModel::tracksChanged, this, &TracksModel::reset);
    connect(&model, &OspraModel::hiddenTrackIDsChanged, this, [this] { refresh(HiddenRole); });
    connect(&model, &OspraModel::useMetricChanged, this, [this] {
        refresh(ValuesRole);
        emit valuesChanged();
    });
}

void TracksModel::readSource()
{
    reset();
}

void TracksModel::reset()
{
    beginResetModel();
    endResetModel();
    emit countChanged();
    emit titleChanged();
    emit valuesChanged();
}

void TracksModel::refresh(Role role)
{
    if (rowCount() > 0)
        emit dataChanged(index(0), index(rowCount() - 1), {role});
}

QString TracksModel::title() const
{
    return rowCount() > 0 ? toQString(source()->tracks().front().file.fileName) : QString();
}

QStringList TracksModel::labels() const
{
    QStringList labels;
    for (const StatsItem& item : statsBarItems({}, UnitSystem::metric))
        labels.append(toQString(item.label));
    return labels;
}

QStringList TracksModel::names() const
{
    QStringList names;
    for (int row = 0; row < rowCount(); ++row)
        names.append(data(index(row), NameRole).toString());
    return names;
}

QVariantList TracksModel::values() const
{
    QVariantList values;
    for (int row = 0; row < rowCount(); ++row)
        values.append(data(index(row), ValuesRole));
    return values;
}

int TracksModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !source() ? 0 : static_cast<int>(source()->tracks().size());
}

QVariant TracksModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const JumpTrack& track = source()->tracks()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case NameRole: return index.row() == 0 ? QStringLiteral("Me") : toQString(track.jumperName);
    case ColorRole: return static_cast<int>(track.jumperColor);
    case HiddenRole: return source()->hiddenTrackIDs().contains(track.id);
    case HintRole: return toQString(track.jumperName + " — " + track.file.fileName);
    case ValuesRole: return statsValues(track, source()->units().system);
    default: return {};
    }
}

QHash<int, QByteArray> TracksModel::roleNames() const
{
    return {{NameRole, "name"},
            {ColorRole, "jumperColor"},
            {HiddenRole, "isHidden"},
            {HintRole, "hint"},
            {ValuesRole, "values"}};
}

void TracksModel::toggleVisibility(int row)
{
    if (row >= 0 && row < rowCount())
        source()->toggleTrackVisibility(source()->tracks()[static_cast<std::size_t>(row)].id);
}

} // namespace ospra
