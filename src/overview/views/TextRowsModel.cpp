#include "overview/views/TextRowsModel.h"

#include <utility>

namespace ospra {

void TextRowsModel::setRows(std::vector<TextRow> rows)
{
    resize(static_cast<int>(rows.size()));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (m_rows[i] == rows[i])
            continue;
        m_rows[i] = std::move(rows[i]);
        const QModelIndex changed = index(static_cast<int>(i));
        emit dataChanged(changed, changed);
    }
}

void TextRowsModel::resize(int count)
{
    const int before = rowCount();
    if (count < before) {
        beginRemoveRows({}, count, before - 1);
        m_rows.resize(static_cast<std::size_t>(count));
        endRemoveRows();
    } else if (count > before) {
        beginInsertRows({}, before, count - 1);
        m_rows.resize(static_cast<std::size_t>(count));
        endInsertRows();
    }
}

int TextRowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant TextRowsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const TextRow& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case TitleRole: return row.title;
    case ValueRole: return row.value;
    case NoteRole: return row.note;
    default: return {};
    }
}

QHash<int, QByteArray> TextRowsModel::roleNames() const
{
    return {{TitleRole, "title"}, {ValueRole, "value"}, {NoteRole, "note"}};
}

} // namespace ospra
