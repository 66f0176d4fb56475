#include "core/OspraModel.h"

#include <utility>

namespace ospra {

void OspraModel::rebuildDisplayData()
{
    setChartData(buildChartData(m_tracks, units()));
    m_horizontalDistanceData = buildHorizontalDistances(m_tracks, units().system);
    m_distanceData = buildDistanceData(m_tracks, units().system);
    emit distanceDataChanged();
    rebuildVisibleData();
}

void OspraModel::rebuildVisibleData()
{
    if (m_tracks.empty()) {
        clearVisibleData();
        return;
    }
    const TimeRange range = displayRange();
    m_visibleChartTracks = cutChartData(m_tracks, m_chartData, m_hiddenTrackIDs, range);
    m_visibleHorizontalDistanceTracks =
        cutHorizontalDistances(m_tracks, m_horizontalDistanceData, m_hiddenTrackIDs, range);
    m_visibleDistanceDataCache = cutDistanceData(m_tracks, m_distanceData, m_hiddenTrackIDs, range);
    m_visibleMapSegments =
        ospra::visibleMapSegments(m_tracks, m_mapPaths, m_hiddenTrackIDs, {m_activeZoomMode, m_zoomRange});
    setVisibleMapRegion(visibleMapRegion(m_tracks, m_mapPaths, m_hiddenTrackIDs, m_zoomRange));
    emit visibleDataChanged();
}

void OspraModel::clearVisibleData()
{
    m_visibleChartTracks.clear();
    m_visibleHorizontalDistanceTracks.clear();
    m_visibleMapSegments.clear();
    m_visibleDistanceDataCache.clear();
    setVisibleMapRegion(std::nullopt);
    emit visibleDataChanged();
}

TimeRange OspraModel::displayRange() const
{
    return m_zoomRange ? *m_zoomRange : fullRange(m_tracks);
}

void OspraModel::toggleTrackVisibility(const Uuid& trackID)
{
    TrackIDs hidden = m_hiddenTrackIDs;
    if (hidden.erase(trackID) == 0)
        hidden.insert(trackID);
    setHiddenTrackIDs(std::move(hidden));
    // The window of a named zoom follows the tracks that are left.
    if (m_activeZoomMode)
        applyZoomMode(*m_activeZoomMode);
    advanceCameraUpdateTrigger();
}

void OspraModel::applyZoomMode(ZoomMode mode)
{
    setZoomRange(zoomRangeFor(mode, m_tracks, m_hiddenTrackIDs));
}

void OspraModel::chooseZoomMode(ZoomMode mode)
{
    setActiveZoomMode(mode);
    applyZoomMode(mode);
}

void OspraModel::clearZoom()
{
    setActiveZoomMode(std::nullopt);
    setZoomRange(std::nullopt);
}

void OspraModel::toggleDefaultZoom()
{
    if (m_activeZoomMode || m_zoomRange)
        clearZoom();
    else if (!m_tracks.empty() && findPhase(m_tracks.front().phases, JumpPhase::freefall))
        chooseZoomMode(ZoomMode::freefallAndCanopy);
}

void OspraModel::zoomToDrag(double a, double b)
{
    const std::optional<TimeRange> range = zoomRangeForDrag(a, b);
    if (!range)
        return;
    setActiveZoomMode(std::nullopt);
    setZoomRange(range);
}

void OspraModel::setHoveredSeconds(std::optional<double> seconds)
{
    storeHoveredSeconds(seconds ? std::optional(snappedSeconds(m_tracks, *seconds)) : std::nullopt);
}

void OspraModel::storeHoveredSeconds(std::optional<double> seconds)
{
    if (std::exchange(m_hoveredSeconds, seconds) != seconds)
        emit hoveredSecondsChanged();
}

void OspraModel::setHiddenTrackIDs(TrackIDs hidden)
{
    const bool changed = hidden != m_hiddenTrackIDs;
    m_hiddenTrackIDs = std::move(hidden);
    if (changed)
        emit hiddenTrackIDsChanged();
    rebuildVisibleData();
}

void OspraModel::setChartData(std::vector<SeriesData> chartData)
{
    const bool changed = chartData != m_chartData;
    m_chartData = std::move(chartData);
    if (changed)
        emit chartDataChanged();
}

void OspraModel::setZoomRange(std::optional<TimeRange> range)
{
    const bool changed = range != m_zoomRange;
    m_zoomRange = range;
    rebuildVisibleData();
    if (changed)
        emit zoomChanged();
}

void OspraModel::setActiveZoomMode(std::optional<ZoomMode> mode)
{
    if (std::exchange(m_activeZoomMode, mode) != mode)
        emit zoomChanged();
}

void OspraModel::setVisibleMapRegion(std::optional<MapRegion> region)
{
    if (std::exchange(m_visibleMapRegionCache, region) != region)
        emit visibleMapRegionChanged();
}

void OspraModel::advanceCameraUpdateTrigger()
{
    ++m_cameraUpdateTrigger;
    emit cameraUpdateTriggerChanged();
}

} // namespace ospra
