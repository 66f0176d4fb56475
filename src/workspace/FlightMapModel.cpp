#include "workspace/FlightMapModel.h"

#include "core/replaceSource.h"
#include "core/text.h"
#include "workspace/flightPaths.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace ospra {

namespace {

MapPlace placeOf(Coordinate coordinate)
{
    return {.latitude = coordinate.latitude, .longitude = coordinate.longitude};
}

/// Where a sample was taken; no place if there is no such sample.
MapPlace placeOfSample(const JumpTrack& track, std::ptrdiff_t index)
{
    const std::vector<FlySightDataPoint>& samples = track.file.dataPoints;
    return index >= 0 && index < std::ssize(samples) ? placeOf(samples[static_cast<std::size_t>(index)].coordinate)
                                                     : MapPlace{};
}

MapPlace exitOf(const JumpTrack& track)
{
    const JumpPhaseRange* const freefall = findPhase(track.phases, JumpPhase::freefall);
    return freefall ? placeOfSample(track, freefall->startIndex) : MapPlace{};
}

} // namespace

void FlightMapModel::setSource(OspraModel* source)
{
    if (!replaceSource(m_source, source, this))
        return;
    if (m_source) {
        connect(m_source, &OspraModel::visibleDataChanged, this, &FlightMapModel::updateContent);
        connect(m_source, &OspraModel::hoveredSecondsChanged, this, &FlightMapModel::updateHover);
        connect(m_source, &OspraModel::visibleMapRegionChanged, this, &FlightMapModel::regionChanged);
        connect(m_source, &OspraModel::visibleMapRegionChanged, this, &FlightMapModel::cameraCalled);
        connect(m_source, &OspraModel::cameraUpdateTriggerChanged, this, &FlightMapModel::cameraCalled);
    }
    updateContent();
    emit sourceChanged();
    emit regionChanged();
}

void FlightMapModel::setPalette(const QList<QColor>& colors)
{
    if (m_palette == colors)
        return;
    m_palette = colors;
    emit paletteChanged();
    updateContent();
    if (!m_markers.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {ColorRole});
}

std::uint32_t FlightMapModel::rgb(Color color) const
{
    const qsizetype index = static_cast<qsizetype>(color);
    return index < m_palette.size() ? m_palette[index].rgb() & 0xffffffU : 0xffffffU;
}

void FlightMapModel::updateContent()
{
    const auto jumpRun = m_source ? jumpRunLine(m_source->tracks()) : std::nullopt;
    updatePlaces(jumpRun);
    MapContent content{.places = {m_exit.coordinate(), m_landing.coordinate()}};
    if (m_source)
        for (const VisibleMapSegment& segment : m_source->visibleMapSegments())
            content.paths.push_back(segmentPath(segment, rgb(segment.color)));
    if (jumpRun)
        content.paths.push_back(jumpRunPath(*jumpRun, rgb(Color::yellow)));
    m_content = std::move(content);
    emit contentChanged();
    updateMarkers();
}

void FlightMapModel::updatePlaces(const std::optional<JumpRunLine>& jumpRun)
{
    m_exit = m_landing = m_jumpRunStart = m_jumpRunEnd = MapPlace{};
    if (!m_source)
        return;
    const std::vector<const JumpTrack*> visible = m_source->visibleTracks();
    if (!visible.empty()) {
        m_exit = exitOf(*visible.front());
        m_landing = placeOfSample(*visible.front(), std::ssize(visible.front()->file.dataPoints) - 1);
    }
    if (jumpRun) {
        m_jumpRunStart = placeOf(jumpRun->start);
        m_jumpRunEnd = placeOf(jumpRun->end);
        m_jumpRunBearing = bearingBetween(jumpRun->start, jumpRun->end);
    }
}

void FlightMapModel::updateMarkers()
{
    std::vector<Marker> markers;
    if (m_source) {
        for (const JumpTrack* const track : m_source->visibleTracks()) {
            const QString name = markers.empty() ? QStringLiteral("Me") : toQString(track->jumperName);
            markers.push_back({.name = name, .color = track->jumperColor});
        }
    }
    // A zoom leaves the jumpers as they are, and their markers need not be made anew.
    const auto looksAlike = [](const Marker& a, const Marker& b) { return a.name == b.name && a.color == b.color; };
    if (!std::ranges::equal(markers, m_markers, looksAlike)) {
        beginResetModel();
        m_markers = std::move(markers);
        endResetModel();
    }
    updateHover();
}

void FlightMapModel::updateHover()
{
    if (m_markers.empty())
        return;
    const std::vector<const JumpTrack*> visible = m_source->visibleTracks();
    const auto points = hoveredPoints(m_source->tracks(), m_source->hiddenTrackIDs(), m_source->hoveredSeconds());
    for (std::size_t i = 0; i < m_markers.size(); ++i) {
        const bool isThere = i < points.size() && i < visible.size() && points[i];
        m_markers[i].place = isThere ? placeOfSample(*visible[i], *points[i]) : MapPlace{};
    }
    emit dataChanged(index(0), index(rowCount() - 1), {PlaceRole});
}

bool FlightMapModel::hasRegion() const
{
    return m_source && m_source->visibleMapRegionCache().has_value();
}

MapPlace FlightMapModel::regionCenter() const
{
    return hasRegion() ? placeOf(m_source->visibleMapRegionCache()->center) : MapPlace{};
}

MapPlace FlightMapModel::regionSpans() const
{
    if (!hasRegion())
        return {};
    const MapRegion& region = *m_source->visibleMapRegionCache();
    return {.latitude = region.latitudeDelta, .longitude = region.longitudeDelta};
}

int FlightMapModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_markers.size());
}

QVariant FlightMapModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Marker& marker = m_markers[static_cast<std::size_t>(index.row())];
    switch (role) {
    case NameRole: return marker.name;
    case ColorRole: return QColor::fromRgb(rgb(marker.color));
    case PlaceRole: return QVariant::fromValue(marker.place);
    default: return {};
    }
}

QHash<int, QByteArray> FlightMapModel::roleNames() const
{
    return {{NameRole, "name"}, {ColorRole, "markerColor"}, {PlaceRole, "markerPlace"}};
}

} // namespace ospra
