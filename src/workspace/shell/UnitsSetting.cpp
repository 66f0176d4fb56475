#include "workspace/shell/UnitsSetting.h"

#include <utility>

namespace ospra {

namespace {

constexpr std::string_view useMetricKey = "useMetric";

} // namespace

UnitsSetting::UnitsSetting(std::shared_ptr<SettingsStore> store, bool localeIsMetric, const OspraModel& model,
                           QObject* parent)
    : QObject(parent), m_store(std::move(store)), m_localeIsMetric(localeIsMetric)
{
    connect(&model, &OspraModel::useMetricChanged, this, &UnitsSetting::useMetricChanged);
}

bool UnitsSetting::useMetric() const
{
    return m_store->contains(useMetricKey) ? m_store->boolean(useMetricKey) : m_localeIsMetric;
}

void UnitsSetting::setUseMetric(bool useMetric)
{
    m_store->setBoolean(useMetricKey, useMetric);
    emit useMetricChanged();
}

} // namespace ospra
