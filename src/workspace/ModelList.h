#pragma once

#include "core/OspraModel.h"

#include <QAbstractListModel>
#include <QQmlEngine>

namespace ospra {

/// A list for QML of records that the model holds. `source` is the model; without one the list is empty.
class ModelList : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(ospra::OspraModel* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] OspraModel* source() const { return m_source; }
    void setSource(OspraModel* source);

signals:
    void sourceChanged();

protected:
    /// Connects this list to the signals of what it shows. The connections go when the source changes.
    virtual void follow(const OspraModel& model) = 0;
    /// Takes everything from the source, which is another one or gone.
    virtual void readSource() = 0;

private:
    OspraModel* m_source = nullptr;
};

} // namespace ospra
