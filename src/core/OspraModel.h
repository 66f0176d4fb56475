#pragma once

#include "analysis/JumpTrack.h"
#include "core/SidebarSelection.h"
#include "core/loadJump.h"
#include "display/DataSeries.h"
#include "display/chartSeries.h"
#include "display/distanceSeries.h"
#include "display/hover.h"
#include "display/mapData.h"
#include "display/units.h"
#include "display/zoom.h"
#include "library/JumpGroup.h"
#include "library/Jumper.h"
#include "overview/OverviewMode.h"
#include "overview/OverviewTimeRange.h"
#include "platform/FolderAccess.h"
#include "platform/Mailbox.h"
#include "platform/NaturalOrder.h"
#include "platform/SettingsStore.h"
#include "platform/TaskPool.h"

#include <QObject>

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace ospra {

/// What the model needs of the machine. All of it outlives the model; the pool may outlive it or not.
struct ModelServices {
    std::shared_ptr<SettingsStore> settings{};
    std::shared_ptr<FolderAccess> folders{};
    std::shared_ptr<TaskPool> pool{};
    std::shared_ptr<Mailbox> mailbox{};
    std::shared_ptr<const NaturalOrder> names{};
    bool localeIsMetric = true;
};

/// The one model of the program: the opened folders, the list of jumps, the selection, the loaded tracks with all that
/// is drawn of them, and the settings. Views read it and call its operations; nothing else holds state.
///
/// It lives on the main thread. Background stages get copies of what they need and post one result back; a result of
/// an old revision changes nothing at all. A signal tells of a field only when its value has changed.
class OspraModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)
    Q_PROPERTY(QString errorMessage READ errorText NOTIFY errorMessageChanged)
    Q_PROPERTY(bool hasError READ hasError NOTIFY errorMessageChanged)
    Q_PROPERTY(bool useMetric READ useMetric WRITE setUseMetric NOTIFY useMetricChanged)
    Q_PROPERTY(bool useAGL READ useAGL WRITE setUseAGL NOTIFY useAGLChanged)
    Q_PROPERTY(bool hasJumpers READ hasJumpers NOTIFY jumpersChanged)
    Q_PROPERTY(bool hasJumpGroups READ hasJumpGroups NOTIFY jumpGroupsChanged)
    Q_PROPERTY(bool hasTracks READ hasTracks NOTIFY tracksChanged)
    Q_PROPERTY(int cameraUpdateTrigger READ cameraUpdateTrigger NOTIFY cameraUpdateTriggerChanged)

public:
    using ChartPoint = ospra::ChartPoint;
    using ZoomMode = ospra::ZoomMode;
    using VisibleTrackData = ospra::VisibleTrackData;
    using CompanionDistanceData = ospra::CompanionDistanceData;
    using HorizontalDistanceSeriesData = ospra::HorizontalDistanceSeriesData;
    using VisibleHorizontalDistanceTrackData = ospra::VisibleHorizontalDistanceTrackData;
    using VisibleMapSegment = ospra::VisibleMapSegment;

    explicit OspraModel(ModelServices services, QObject* parent = nullptr);
    ~OspraModel() override;

    [[nodiscard]] const std::vector<Jumper>& jumpers() const { return m_jumpers; }
    [[nodiscard]] const std::unordered_map<Uuid, std::filesystem::path>& jumperAccessingURLs() const
    {
        return m_jumperAccessingURLs;
    }
    [[nodiscard]] const std::vector<JumpGroup>& jumpGroups() const { return m_jumpGroups; }
    [[nodiscard]] const std::optional<JumpGroup>& selectedGroup() const { return m_selectedGroup; }
    [[nodiscard]] const std::optional<SidebarSelection>& sidebarSelection() const { return m_sidebarSelection; }
    [[nodiscard]] OverviewMode overviewMode() const { return m_overviewMode; }
    [[nodiscard]] OverviewTimeRange overviewTimeRange() const { return m_overviewTimeRange; }
    [[nodiscard]] std::optional<Instant> overviewSelectedDay() const { return m_overviewSelectedDay; }
    [[nodiscard]] const std::vector<JumpTrack>& tracks() const { return m_tracks; }
    [[nodiscard]] const std::optional<std::string>& errorMessage() const { return m_errorMessage; }
    [[nodiscard]] bool isLoading() const { return m_isLoading; }
    [[nodiscard]] int cameraUpdateTrigger() const { return m_cameraUpdateTrigger; }
    [[nodiscard]] const TrackIDs& hiddenTrackIDs() const { return m_hiddenTrackIDs; }
    [[nodiscard]] bool useMetric() const { return m_useMetric; }
    [[nodiscard]] bool useAGL() const { return m_useAGL; }
    [[nodiscard]] const std::set<DataSeries>& enabledSeries() const { return m_enabledSeries; }
    [[nodiscard]] const std::set<DistanceSeries>& enabledDistanceSeries() const { return m_enabledDistanceSeries; }
    [[nodiscard]] std::optional<double> hoveredSeconds() const { return m_hoveredSeconds; }
    [[nodiscard]] std::optional<TimeRange> zoomRange() const { return m_zoomRange; }
    [[nodiscard]] std::optional<ZoomMode> activeZoomMode() const { return m_activeZoomMode; }
    [[nodiscard]] const std::vector<SeriesData>& chartData() const { return m_chartData; }
    [[nodiscard]] const std::vector<CompanionDistanceData>& distanceData() const { return m_distanceData; }
    [[nodiscard]] const HorizontalDistances& horizontalDistanceData() const { return m_horizontalDistanceData; }
    [[nodiscard]] const std::vector<VisibleTrackData>& visibleChartTracks() const { return m_visibleChartTracks; }
    [[nodiscard]] const std::vector<VisibleHorizontalDistanceTrackData>& visibleHorizontalDistanceTracks() const
    {
        return m_visibleHorizontalDistanceTracks;
    }
    [[nodiscard]] const std::vector<CompanionDistanceData>& visibleDistanceDataCache() const
    {
        return m_visibleDistanceDataCache;
    }
    [[nodiscard]] const std::vector<VisibleMapSegment>& visibleMapSegments() const { return m_visibleMapSegments; }
    [[nodiscard]] const std::optional<MapRegion>& visibleMapRegionCache() const { return m_visibleMapRegionCache; }
    [[nodiscard]] int jumpGroupsRevision() const { return m_jumpGroupsRevision; }
    [[nodiscard]] int loadRevision() const { return m_loadRevision; }

    [[nodiscard]] bool hasJumpers() const { return !m_jumpers.empty(); }
    [[nodiscard]] bool hasJumpGroups() const { return !m_jumpGroups.empty(); }
    [[nodiscard]] bool hasTracks() const { return !m_tracks.empty(); }
    [[nodiscard]] bool hasError() const { return m_errorMessage.has_value(); }
    [[nodiscard]] QString errorText() const;
    [[nodiscard]] DisplayUnits units() const;
    /// The zoom, or the whole primary track.
    [[nodiscard]] TimeRange displayRange() const;
    /// The series that are on, in the order of the rows.
    [[nodiscard]] std::vector<DataSeries> enabledSeriesList() const;
    [[nodiscard]] std::vector<DistanceSeries> enabledDistanceSeriesList() const;
    /// The tracks that are not hidden, in order; valid until the next load.
    [[nodiscard]] std::vector<const JumpTrack*> visibleTracks() const;

    /// Reopens the folders of the last run, once at start. Silent about whatever cannot be reopened.
    Q_INVOKABLE void restoreFolders();
    /// Makes the folder the only one, its owner the primary jumper.
    void openFolder(const std::filesystem::path& folder);
    /// Adds a companion; does nothing if the folder is open already or access is refused.
    void addCompanion(const std::filesystem::path& folder);
    /// Removes a companion; the primary cannot be removed this way.
    void removeCompanion(const Uuid& jumperID);
    /// Forgets all folders, also for the next start.
    Q_INVOKABLE void closeFolder();
    /// Scans all folders anew in the background and publishes the list of jumps.
    Q_INVOKABLE void rebuildGroups();

    /// Loads the logs of a jump in the background; only the newest load reaches the screen.
    void loadTracks(const JumpGroup& group);
    /// The same for logs of anybody, whether or not their folders are open.
    void loadTracks(LoadRequest request);
    /// What a click in the sidebar does. Nothing selected does nothing: the list cannot clear the selection.
    void selectSidebarItem(const std::optional<SidebarSelection>& selection);
    /// Selects a jump and loads it.
    void openGroup(const JumpGroup& group);
    Q_INVOKABLE void selectNextJump();
    Q_INVOKABLE void selectPreviousJump();
    Q_INVOKABLE void dismissError();

    void setUseMetric(bool useMetric);
    void setUseAGL(bool useAGL);
    void setEnabledSeries(std::set<DataSeries> series);
    void setEnabledDistanceSeries(std::set<DistanceSeries> series);
    void setOverviewMode(OverviewMode mode);
    void setOverviewTimeRange(OverviewTimeRange range);
    void setOverviewSelectedDay(std::optional<Instant> day);
    void toggleTrackVisibility(const Uuid& trackID);

    /// Computes all chart and distance data anew from the tracks and the units, then the visible caches.
    Q_INVOKABLE void rebuildDisplayData();
    /// Cuts the data to the zoom and the visible tracks.
    void rebuildVisibleData();

    /// Sets the range of a named zoom; a jump without its phases shows whole. The mode itself is not changed.
    void applyZoomMode(ZoomMode mode);
    /// What the zoom buttons and commands do: makes the mode the active one and applies it.
    void chooseZoomMode(ZoomMode mode);
    Q_INVOKABLE void clearZoom();
    Q_INVOKABLE void toggleDefaultZoom();
    /// The end of a drag between two moments, in any order; 0.5 s or less is a click and changes nothing.
    Q_INVOKABLE void zoomToDrag(double a, double b);
    /// The moment under the pointer, snapped to a sample of the primary; absent when no chart is under it.
    void setHoveredSeconds(std::optional<double> seconds);

signals:
    void jumpersChanged();
    void jumpGroupsChanged();
    void sidebarSelectionChanged();
    void overviewModeChanged();
    void overviewTimeRangeChanged();
    void overviewSelectedDayChanged();
    void tracksChanged();
    void errorMessageChanged();
    void isLoadingChanged();
    void cameraUpdateTriggerChanged();
    void hiddenTrackIDsChanged();
    void useMetricChanged();
    void useAGLChanged();
    void enabledSeriesChanged();
    void enabledDistanceSeriesChanged();
    void hoveredSecondsChanged();
    void zoomChanged();
    void chartDataChanged();
    void distanceDataChanged();
    void visibleDataChanged();
    void visibleMapRegionChanged();

private:
    void readSettings();
    void settingsChanged();

    Jumper appendJumper(const std::filesystem::path& folder);
    void stopAccess(const Uuid& jumperID);
    void finishRebuild(int revision, std::vector<JumpGroup> groups);
    void adoptRegroupedSelection();
    void finishLoad(int revision, std::optional<ZoomMode> zoomMode, LoadResult result);
    void publishLoad(std::optional<ZoomMode> zoomMode, LoadResult result);
    void publishFailedLoad(std::string message);
    void clearVisibleData();

    void setJumpGroups(std::vector<JumpGroup> groups);
    void setSelection(std::optional<JumpGroup> group, std::optional<SidebarSelection> selection);
    void setErrorMessage(std::optional<std::string> message);
    void setLoading(bool isLoading);
    void setTracks(std::vector<JumpTrack> tracks);
    void setHiddenTrackIDs(TrackIDs hidden);
    void setChartData(std::vector<SeriesData> chartData);
    void setZoomRange(std::optional<TimeRange> range);
    void setActiveZoomMode(std::optional<ZoomMode> mode);
    void setVisibleMapRegion(std::optional<MapRegion> region);
    void storeHoveredSeconds(std::optional<double> seconds);
    void advanceCameraUpdateTrigger();

    ModelServices m_services;
    /// Held weakly by background stages, which thereby know whether the model still exists.
    std::shared_ptr<int> m_alive = std::make_shared<int>();

    std::vector<Jumper> m_jumpers;
    std::unordered_map<Uuid, std::filesystem::path> m_jumperAccessingURLs;
    std::vector<JumpGroup> m_jumpGroups;
    std::optional<JumpGroup> m_selectedGroup;
    std::optional<SidebarSelection> m_sidebarSelection;
    OverviewMode m_overviewMode = OverviewMode::heatmap;
    OverviewTimeRange m_overviewTimeRange = OverviewTimeRange::oneYear;
    std::optional<Instant> m_overviewSelectedDay;
    std::vector<JumpTrack> m_tracks;
    std::optional<std::string> m_errorMessage;
    bool m_isLoading = false;
    int m_cameraUpdateTrigger = 0;
    TrackIDs m_hiddenTrackIDs;
    bool m_useMetric = true;
    bool m_useAGL = true;
    std::set<DataSeries> m_enabledSeries{DataSeries::elevation, DataSeries::verticalSpeed};
    std::optional<double> m_hoveredSeconds;
    std::optional<TimeRange> m_zoomRange;
    std::optional<ZoomMode> m_activeZoomMode = ZoomMode::freefallAndCanopy;
    std::vector<SeriesData> m_chartData;
    std::vector<CompanionDistanceData> m_distanceData;
    std::vector<VisibleTrackData> m_visibleChartTracks;
    HorizontalDistances m_horizontalDistanceData;
    std::vector<VisibleHorizontalDistanceTrackData> m_visibleHorizontalDistanceTracks;
    std::vector<TrackPaths> m_mapPaths;
    std::vector<VisibleMapSegment> m_visibleMapSegments;
    std::vector<CompanionDistanceData> m_visibleDistanceDataCache;
    int m_jumpGroupsRevision = 0;
    int m_loadRevision = 0;
    std::optional<MapRegion> m_visibleMapRegionCache;
    std::set<DistanceSeries> m_enabledDistanceSeries;
};

} // namespace ospra
