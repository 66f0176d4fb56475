#include "workspace/TracksModel.h"

#include "display/statsBar.h"
#include "workspace/text.h"

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

void TracksModel::setSource(OspraModel* source)
{
    if (m_source == source)
        return;
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    if (m_source) {
        connect(m_source, &OspraModel::tracksChanged, this, &TracksModel::reset);
        connect(m_source, &OspraModel::hiddenTrackIDsChanged, this, [this] { refresh(HiddenRole); });
        connect(m_source, &OspraModel::useMetricChanged, this, [this] {
            refresh(ValuesRole);
            emit valuesChanged();
        });
    }
    reset();
    emit sourceChanged();
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
    return rowCount() > 0 ? toQString(m_source->tracks().front().file.fileName) : QString();
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
    return parent.isValid() || !m_source ? 0 : static_cast<int>(m_source->tracks().size());
}

QVariant TracksModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const JumpTrack& track = m_source->tracks()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case NameRole: return index.row() == 0 ? QStringLiteral("Me") : toQString(track.jumperName);
    case ColorRole: return static_cast<int>(track.jumperColor);
    case HiddenRole: return m_source->hiddenTrackIDs().contains(track.id);
    case HintRole: return toQString(track.jumperName + " — " + track.file.fileName);
    case ValuesRole: return statsValues(track, m_source->units().system);
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
        m_source->toggleTrackVisibility(m_source->tracks()[static_cast<std::size_t>(row)].id);
}

} // namespace ospra
