#pragma once

#include "core/OspraModel.h"

#include <QAbstractListModel>
#include <QQmlEngine>

namespace ospra {

/// The series of one family with their switches, as the menu of data series shows them.
class SeriesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::OspraModel* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)
    Q_PROPERTY(Family family READ family WRITE setFamily NOTIFY familyChanged REQUIRED)

public:
    enum Family { Data, Distance };
    Q_ENUM(Family)

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] OspraModel* source() const { return m_source; }
    void setSource(OspraModel* source);
    [[nodiscard]] Family family() const { return m_family; }
    void setFamily(Family family);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Switches a series on or off.
    Q_INVOKABLE void toggle(int row);

signals:
    void sourceChanged();
    void familyChanged();

private:
    enum Role { TitleRole = Qt::UserRole, EnabledRole };

    void refresh();

    OspraModel* m_source = nullptr;
    Family m_family = Data;
};

} // namespace ospra
