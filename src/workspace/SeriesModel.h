#pragma once

#include "workspace/ModelList.h"

#include <QQmlEngine>

namespace ospra {

/// The series of one family with their switches, as the menu of data series shows them.
class SeriesModel : public ospra::ModelList { // in full, as qmllint finds the base only so
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Family family READ family WRITE setFamily NOTIFY familyChanged REQUIRED)

public:
    enum Family { Data, Distance };
    Q_ENUM(Family)

    using ModelList::ModelList;

    [[nodiscard]] Family family() const { return m_family; }
    void setFamily(Family family);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Switches a series on or off.
    Q_INVOKABLE void toggle(int row);

signals:
    void familyChanged();

protected:
    void follow(const OspraModel& model) override;
    void readSource() override;

private:
    enum Role { TitleRole = Qt::UserRole, EnabledRole };

    void refresh();

    Family m_family = Data;
};

} // namespace ospra
