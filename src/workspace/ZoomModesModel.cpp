#include "workspace/ZoomModesModel.h"

#include <utility>

namespace ospra {

namespace {

QString modeText(std::optional<ZoomMode> mode)
{
    if (!mode)
        return QStringLiteral("All");
    switch (*mode) {
    case ZoomMode::freefall: return QStringLiteral("Freefall");
    case ZoomMode::canopy: return QStringLiteral("Canopy");
    case ZoomMode::freefallAndCanopy: return QStringLiteral("FF+Canopy");
    }
    return {};
}

std::vector<std::optional<ZoomMode>> modesFor(const std::vector<JumpTrack>& tracks)
{
    std::vector<std::optional<ZoomMode>> modes;
    if (tracks.empty() || tracks.front().phases.empty())
        return modes;
    modes.push_back(std::nullopt);
    if (findPhase(tracks.front().phases, JumpPhase::freefall)) {
        modes.push_back(ZoomMode::freefallAndCanopy);
        modes.push_back(ZoomMode::freefall);
    }
    if (findPhase(tracks.front().phases, JumpPhase::canopy))
        modes.push_back(ZoomMode::canopy);
    return modes;
}

} // namespace

void ZoomModesModel::follow(const OspraModel& model)
{
    connect(&model, &OspraModel::tracksChanged, this, &ZoomModesModel::updateRows);
    connect(&model, &OspraModel::zoomChanged, this, &ZoomModesModel::updateState);
}

void ZoomModesModel::readSource()
{
    updateRows();
}

int ZoomModesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_modes.size());
}

QVariant ZoomModesModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const std::optional<ZoomMode> mode = m_modes[static_cast<std::size_t>(index.row())];
    if (role == TextRole)
        return modeText(mode);
    if (role == OnRole)
        return source()->activeZoomMode() == mode;
    return {};
}

QHash<int, QByteArray> ZoomModesModel::roleNames() const
{
    return {{TextRole, "text"}, {OnRole, "isOn"}};
}

void ZoomModesModel::activate(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    const std::optional<ZoomMode> mode = m_modes[static_cast<std::size_t>(row)];
    if (mode && source()->activeZoomMode() != mode)
        source()->chooseZoomMode(*mode);
    else
        source()->clearZoom();
}

void ZoomModesModel::updateRows()
{
    std::vector<std::optional<ZoomMode>> modes;
    if (source())
        modes = modesFor(source()->tracks());
    if (modes == m_modes)
        return;
    beginResetModel();
    m_modes = std::move(modes);
    endResetModel();
    emit countChanged();
}

void ZoomModesModel::updateState()
{
    if (!m_modes.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {OnRole});
}

} // namespace ospra
