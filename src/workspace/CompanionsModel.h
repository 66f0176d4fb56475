#pragma once

#include "workspace/ModelList.h"

#include <QQmlEngine>

namespace ospra {

/// The companions by name, in their order.
class CompanionsModel : public ospra::ModelList { // in full, as qmllint finds the base only so
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    using ModelList::ModelList;

    [[nodiscard]] int count() const { return rowCount(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override { return {{Qt::DisplayRole, "name"}}; }

    /// Closes the companion's folder.
    Q_INVOKABLE void remove(int row);

signals:
    void countChanged();

protected:
    void follow(const OspraModel& model) override;
    void readSource() override;

private:
    void reset();
};

} // namespace ospra
