#include "workspace/CompanionsModel.h"

#include "core/text.h"

namespace ospra {

void CompanionsModel::follow(const OspraModel& model)
{
    connect(&model, &OspraModel::jumpersChanged, this, &CompanionsModel::reset);
}

void CompanionsModel::readSource()
{
    reset();
}

int CompanionsModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() || !source() || source()->jumpers().empty())
        return 0;
    return static_cast<int>(source()->jumpers().size()) - 1;
}

QVariant CompanionsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::DisplayRole)
        return {};
    return toQString(source()->jumpers()[static_cast<std::size_t>(index.row()) + 1].name);
}

void CompanionsModel::remove(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    const Uuid id = source()->jumpers()[static_cast<std::size_t>(row) + 1].id;
    source()->removeCompanion(id);
}

void CompanionsModel::reset()
{
    beginResetModel();
    endResetModel();
    emit countChanged();
}

} // namespace ospra
