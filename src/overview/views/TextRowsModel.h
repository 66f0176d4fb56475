#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QtQmlIntegration>

#include <vector>

namespace ospra {

/// One line of a card.
struct TextRow {
    QString title{};
    QString value{};
    QString note{};

    friend bool operator==(const TextRow&, const TextRow&) = default;
};

/// A short list of texts for a Repeater. Rows that stay keep their items, and with them the keyboard's focus.
class TextRowsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("OverviewState has the lists of the overview.")

public:
    using QAbstractListModel::QAbstractListModel;

    void setRows(std::vector<TextRow> rows);
    [[nodiscard]] const std::vector<TextRow>& rows() const { return m_rows; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { TitleRole = Qt::UserRole, ValueRole, NoteRole };

    void resize(int count);

    std::vector<TextRow> m_rows;
};

} // namespace ospra
