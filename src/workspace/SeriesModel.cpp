#include "workspace/SeriesModel.h"

#include "core/text.h"

namespace ospra {

namespace {

template <typename Series>
std::set<Series> toggled(std::set<Series> enabled, Series series)
{
    if (enabled.erase(series) == 0)
        enabled.insert(series);
    return enabled;
}

} // namespace

void SeriesModel::follow(const OspraModel& model)
{
    connect(&model, &OspraModel::enabledSeriesChanged, this, &SeriesModel::refresh);
    connect(&model, &OspraModel::enabledDistanceSeriesChanged, this, &SeriesModel::refresh);
}

void SeriesModel::readSource()
{
    refresh();
}

void SeriesModel::setFamily(Family family)
{
    if (m_family == family)
        return;
    beginResetModel();
    m_family = family;
    endResetModel();
    emit familyChanged();
}

int SeriesModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    return static_cast<int>(m_family == Data ? allDataSeries.size() : allDistanceSeries.size());
}

QVariant SeriesModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !source())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    if (role == TitleRole)
        return toQString(m_family == Data ? displayName(allDataSeries[row]) : displayName(allDistanceSeries[row]));
    if (role == EnabledRole)
        return m_family == Data ? source()->enabledSeries().contains(allDataSeries[row])
                                : source()->enabledDistanceSeries().contains(allDistanceSeries[row]);
    return {};
}

QHash<int, QByteArray> SeriesModel::roleNames() const
{
    return {{TitleRole, "title"}, {EnabledRole, "isEnabled"}};
}

void SeriesModel::toggle(int index)
{
    if (index < 0 || index >= rowCount() || !source())
        return;
    const auto row = static_cast<std::size_t>(index);
    if (m_family == Data)
        source()->setEnabledSeries(toggled(source()->enabledSeries(), allDataSeries[row]));
    else
        source()->setEnabledDistanceSeries(toggled(source()->enabledDistanceSeries(), allDistanceSeries[row]));
}

void SeriesModel::refresh()
{
    emit dataChanged(index(0), index(rowCount() - 1), {EnabledRole});
}

} // namespace ospra
