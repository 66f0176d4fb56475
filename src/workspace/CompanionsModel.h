#pragma once

#include "core/OspraModel.h"

#include <QAbstractListModel>
#include <QQmlEngine>

namespace ospra {

/// The companions by name, in their order.
class CompanionsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::OspraModel* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] OspraModel* source() const { return m_source; }
    void setSource(OspraModel* source);
    [[nodiscard]] int count() const { return rowCount(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override { return {{Qt::DisplayRole, "name"}}; }

    /// Closes the companion's folder.
    Q_INVOKABLE void remove(int row);

signals:
    void sourceChanged();
    void countChanged();

private:
    void reset();

    OspraModel* m_source = nullptr;
};

} // namespace ospra
