#include "workspace/CompanionsModel.h"

#include "workspace/text.h"

namespace ospra {

void CompanionsModel::setSource(OspraModel* source)
{
    if (m_source == source)
        return;
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    if (m_source)
        connect(m_source, &OspraModel::jumpersChanged, this, &CompanionsModel::reset);
    reset();
    emit sourceChanged();
}

int CompanionsModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() || !m_source || m_source->jumpers().empty())
        return 0;
    return static_cast<int>(m_source->jumpers().size()) - 1;
}

QVariant CompanionsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::DisplayRole)
        return {};
    return toQString(m_source->jumpers()[static_cast<std::size_t>(index.row()) + 1].name);
}

void CompanionsModel::remove(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    const Uuid id = m_source->jumpers()[static_cast<std::size_t>(row) + 1].id;
    m_source->removeCompanion(id);
}

void CompanionsModel::reset()
{
    beginResetModel();
    endResetModel();
    emit countChanged();
}

} // namespace ospra
