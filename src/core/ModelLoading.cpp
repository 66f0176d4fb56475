#include "core/OspraModel.h"

#include <utility>

namespace ospra {

void OspraModel::loadTracks(const JumpGroup& group)
{
    LoadRequest request{.entries = {group.primaryEntry}, .jumpers = m_jumpers, .units = units()};
    request.entries.insert(request.entries.end(), group.companionEntries.begin(), group.companionEntries.end());
    loadTracks(std::move(request));
}

void OspraModel::loadTracks(LoadRequest request)
{
    setLoading(true);
    const int revision = ++m_loadRevision;
    m_services.pool->post([this, alive = std::weak_ptr(m_alive), mailbox = m_services.mailbox,
                           request = std::move(request), revision,
                           zoomMode = m_activeZoomMode](const std::stop_token& stop) {
        if (alive.expired())
            return;
        // Held by pointer, as the message has to be copyable and the tracks are large.
        auto result = std::make_shared<LoadResult>(loadJump(request, stop));
        mailbox->post([this, alive, revision, zoomMode, result] {
            if (!alive.expired())
                finishLoad(revision, zoomMode, std::move(*result));
        });
    });
}

void OspraModel::finishLoad(int revision, std::optional<ZoomMode> zoomMode, LoadResult result)
{
    if (revision != m_loadRevision)
        return;
    if (result.tracks.empty())
        publishFailedLoad(std::move(result.errorMessage));
    else
        publishLoad(zoomMode, std::move(result));
}

void OspraModel::publishLoad(std::optional<ZoomMode> zoomMode, LoadResult result)
{
    setTracks(std::move(result.tracks));
    setChartData(std::move(result.chartData));
    m_distanceData = std::move(result.distanceData);
    m_horizontalDistanceData = std::move(result.horizontalDistanceData);
    m_mapPaths = std::move(result.mapPaths);
    emit distanceDataChanged();
    setErrorMessage(std::nullopt);
    storeHoveredSeconds(std::nullopt);
    setHiddenTrackIDs({});
    setLoading(false);
    if (zoomMode)
        applyZoomMode(*zoomMode);
    else
        setZoomRange(std::nullopt);
    advanceCameraUpdateTrigger();
}

void OspraModel::publishFailedLoad(std::string message)
{
    setTracks({});
    setChartData({});
    m_distanceData.clear();
    m_horizontalDistanceData.clear();
    m_mapPaths.clear();
    emit distanceDataChanged();
    clearVisibleData();
    setErrorMessage(std::move(message));
    setLoading(false);
}

void OspraModel::setTracks(std::vector<JumpTrack> tracks)
{
    if (tracks.empty() && m_tracks.empty())
        return;
    m_tracks = std::move(tracks);
    emit tracksChanged();
}

} // namespace ospra
