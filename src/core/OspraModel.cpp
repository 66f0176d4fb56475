#include "core/OspraModel.h"

#include <algorithm>
#include <utility>

namespace ospra {

namespace {

constexpr std::string_view useMetricKey = "useMetric";
constexpr std::string_view useAGLKey = "useAGL";
constexpr std::string_view enabledSeriesKey = "enabledSeries";
constexpr std::string_view enabledDistanceSeriesKey = "enabledDistanceSeries";

/// The stored form of a set of series: their names.
template <typename Series>
std::vector<std::string> namesOf(const std::set<Series>& series)
{
    std::vector<std::string> names;
    for (const Series element : series)
        names.emplace_back(displayName(element));
    return names;
}

/// The series of stored names; unknown names are dropped.
template <typename Series, std::size_t count>
std::set<Series> seriesNamed(const std::array<Series, count>& cases, const std::vector<std::string>& names)
{
    std::set<Series> series;
    for (const std::string& name : names)
        if (const std::optional<Series> known = caseNamed(cases, name))
            series.insert(*known);
    return series;
}

} // namespace

OspraModel::OspraModel(ModelServices services, QObject* parent) : QObject(parent), m_services(std::move(services))
{
    readSettings();
    m_services.settings->observe([this] { settingsChanged(); });
}

OspraModel::~OspraModel()
{
    m_services.settings->observe({});
}

void OspraModel::readSettings()
{
    const SettingsStore& settings = *m_services.settings;
    m_useMetric = settings.contains(useMetricKey) ? settings.boolean(useMetricKey) : m_services.localeIsMetric;
    if (settings.contains(useAGLKey))
        setUseAGL(settings.boolean(useAGLKey));
    // A stored list of which nothing is known brings the default back for the series, but means "none" for the
    // distances, which are off by default.
    const std::set<DataSeries> series =
        seriesNamed(allDataSeries, settings.texts(enabledSeriesKey).value_or(std::vector<std::string>{}));
    if (!series.empty())
        setEnabledSeries(series);
    if (const auto names = settings.texts(enabledDistanceSeriesKey))
        setEnabledDistanceSeries(seriesNamed(allDistanceSeries, *names));
}

void OspraModel::settingsChanged()
{
    // While the user has never chosen units, the locale's stay in force, whatever else is written.
    if (!m_services.settings->contains(useMetricKey))
        return;
    const bool stored = m_services.settings->boolean(useMetricKey);
    if (stored == m_useMetric)
        return;
    setUseMetric(stored);
    rebuildDisplayData();
}

QString OspraModel::errorText() const
{
    return QString::fromStdString(m_errorMessage.value_or(std::string{}));
}

DisplayUnits OspraModel::units() const
{
    return {.system = m_useMetric ? UnitSystem::metric : UnitSystem::imperial,
            .altitude = m_useAGL ? AltitudeReference::aboveGround : AltitudeReference::aboveSeaLevel};
}

std::vector<DataSeries> OspraModel::enabledSeriesList() const
{
    return {m_enabledSeries.begin(), m_enabledSeries.end()};
}

std::vector<DistanceSeries> OspraModel::enabledDistanceSeriesList() const
{
    return {m_enabledDistanceSeries.begin(), m_enabledDistanceSeries.end()};
}

std::vector<const JumpTrack*> OspraModel::visibleTracks() const
{
    return ospra::visibleTracks(m_tracks, m_hiddenTrackIDs);
}

void OspraModel::setUseMetric(bool useMetric)
{
    const bool changed = std::exchange(m_useMetric, useMetric) != useMetric;
    m_services.settings->setBoolean(useMetricKey, useMetric);
    if (changed)
        emit useMetricChanged();
}

void OspraModel::setUseAGL(bool useAGL)
{
    const bool changed = std::exchange(m_useAGL, useAGL) != useAGL;
    m_services.settings->setBoolean(useAGLKey, useAGL);
    if (changed)
        emit useAGLChanged();
    rebuildDisplayData();
}

void OspraModel::setEnabledSeries(std::set<DataSeries> series)
{
    const bool changed = series != m_enabledSeries;
    m_enabledSeries = std::move(series);
    m_services.settings->setTexts(enabledSeriesKey, namesOf(m_enabledSeries));
    if (changed)
        emit enabledSeriesChanged();
}

void OspraModel::setEnabledDistanceSeries(std::set<DistanceSeries> series)
{
    const bool changed = series != m_enabledDistanceSeries;
    m_enabledDistanceSeries = std::move(series);
    m_services.settings->setTexts(enabledDistanceSeriesKey, namesOf(m_enabledDistanceSeries));
    if (changed)
        emit enabledDistanceSeriesChanged();
}

void OspraModel::setOverviewMode(OverviewMode mode)
{
    if (std::exchange(m_overviewMode, mode) != mode)
        emit overviewModeChanged();
}

void OspraModel::setOverviewTimeRange(OverviewTimeRange range)
{
    if (std::exchange(m_overviewTimeRange, range) != range)
        emit overviewTimeRangeChanged();
}

void OspraModel::setOverviewSelectedDay(std::optional<Instant> day)
{
    if (std::exchange(m_overviewSelectedDay, day) != day)
        emit overviewSelectedDayChanged();
}

void OspraModel::dismissError()
{
    setErrorMessage(std::nullopt);
}

void OspraModel::setErrorMessage(std::optional<std::string> message)
{
    if (m_errorMessage == message)
        return;
    m_errorMessage = std::move(message);
    emit errorMessageChanged();
}

void OspraModel::setLoading(bool isLoading)
{
    if (std::exchange(m_isLoading, isLoading) != isLoading)
        emit isLoadingChanged();
}

} // namespace ospra
