#pragma once

#include "workspace/ModelList.h"

#include <QQmlEngine>
#include <QStringList>
#include <QVariantList>

namespace ospra {

/// The tracks of the jump on screen with the texts of their statistics bars, in their order.
class TracksModel : public ospra::ModelList { // in full, as qmllint finds the base only so
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(QList<QString> labels READ labels CONSTANT)
    Q_PROPERTY(QStringList names READ names NOTIFY countChanged)
    Q_PROPERTY(QVariantList values READ values NOTIFY valuesChanged)

public:
    using ModelList::ModelList;

    [[nodiscard]] int count() const { return rowCount(); }
    /// The name of the first track's log; empty without tracks.
    [[nodiscard]] QString title() const;
    /// The labels of the key numbers, in their order.
    [[nodiscard]] QStringList labels() const;

    /// The names of all tracks, and the key numbers of all tracks, a list for each.
    [[nodiscard]] QStringList names() const;
    [[nodiscard]] QVariantList values() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Hides the track or shows it again.
    Q_INVOKABLE void toggleVisibility(int row);

signals:
    void countChanged();
    void titleChanged();
    void valuesChanged();

protected:
    void follow(const OspraModel& model) override;
    void readSource() override;

private:
    enum Role { NameRole = Qt::UserRole, ColorRole, HiddenRole, HintRole, ValuesRole };

    void reset();
    void refresh(Role role);
};

} // namespace ospra
