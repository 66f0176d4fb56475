#pragma once

#include "core/OspraModel.h"
#include "platform/SettingsStore.h"

#include <QObject>
#include <QQmlEngine>

#include <memory>

namespace ospra {

/// The stored choice of units, for the settings pane. It goes straight to the store; the model learns of it there.
class UnitsSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes it on its settings.")
    Q_PROPERTY(bool useMetric READ useMetric WRITE setUseMetric NOTIFY useMetricChanged)

public:
    /// @param localeIsMetric what holds while the user has not chosen
    /// @param model heard only: it tells when the stored value was changed by another
    UnitsSetting(std::shared_ptr<SettingsStore> store, bool localeIsMetric, const OspraModel& model,
                 QObject* parent = nullptr);

    [[nodiscard]] bool useMetric() const;
    void setUseMetric(bool useMetric);

signals:
    void useMetricChanged();

private:
    std::shared_ptr<SettingsStore> m_store;
    bool m_localeIsMetric;
};

} // namespace ospra
