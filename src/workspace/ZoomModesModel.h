#pragma once

#include "workspace/ModelList.h"

#include <QQmlEngine>

#include <optional>
#include <vector>

namespace ospra {

/// The zoom toggles of the toolbar: those that the phases of the first track allow, and which of them is on.
class ZoomModesModel : public ospra::ModelList { // in full, as qmllint finds the base only so
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    using ModelList::ModelList;

    [[nodiscard]] int count() const { return rowCount(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// What a click does: a mode that is off comes on, one that is on gives way to the whole log.
    Q_INVOKABLE void activate(int row);

signals:
    void countChanged();

protected:
    void follow(const OspraModel& model) override;
    void readSource() override;

private:
    enum Role { TextRole = Qt::UserRole, OnRole };

    void updateRows();
    void updateState();

    std::vector<std::optional<ZoomMode>> m_modes; // absent: the whole log
};

} // namespace ospra
