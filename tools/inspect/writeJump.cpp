#include "tools/inspect/writeJump.h"

#include "display/statsBar.h"

#include <algorithm>
#include <span>
#include <vector>

namespace ospra {

namespace {

void writeColor(JsonWriter& json, Color color)
{
    json.member("color", colorName(color));
}

/// A list whose elements `write` writes, one call each.
template <typename Range, typename Write>
void writeList(JsonWriter& json, std::string_view key, const Range& range, Write write)
{
    json.key(key).beginList();
    for (const auto& element : range)
        write(element);
    json.endList();
}

template <typename Numbers>
void writeNumbers(JsonWriter& json, std::string_view key, const Numbers& numbers)
{
    writeList(json, key, numbers, [&](const auto& number) { json.value(number); });
}

void writePoints(JsonWriter& json, std::string_view key, const ChartPoints& points)
{
    json.key(key).beginObject();
    writeList(json, "id", points, [&](const ChartPoint& point) { json.value(point.id); });
    writeList(json, "seconds", points, [&](const ChartPoint& point) { json.value(point.seconds); });
    writeList(json, "value", points, [&](const ChartPoint& point) { json.value(point.value); });
    json.endObject();
}

void writeSeries(JsonWriter& json, const SeriesData& data)
{
    json.beginObject();
    for (const DataSeries series : allDataSeries)
        writePoints(json, displayName(series), data[series]);
    json.endObject();
}

void writeStatistics(JsonWriter& json, const std::optional<JumpStatistics>& statistics)
{
    if (!statistics) {
        json.null();
        return;
    }
    json.beginObject();
    json.member("exitAltitude", statistics->exitAltitude);
    json.member("pitchAltitude", statistics->pitchAltitude);
    json.member("deploymentAltitude", statistics->deploymentAltitude);
    json.member("landingAltitude", statistics->landingAltitude);
    json.member("maxFreefallSpeed", statistics->maxFreefallSpeed);
    json.member("avgFreefallSpeed", statistics->avgFreefallSpeed);
    json.member("maxHorizontalSpeed", statistics->maxHorizontalSpeed);
    json.member("deploymentSpeed", statistics->deploymentSpeed);
    json.member("freefallDuration", statistics->freefallDuration);
    json.member("canopyDuration", statistics->canopyDuration);
    json.member("totalDuration", statistics->totalDuration);
    json.member("maxGlideRatio", statistics->maxGlideRatio);
    json.member("groundElevation", statistics->groundElevation);
    json.member("pitchIndex", statistics->pitchIndex);
    json.endObject();
}

void writeStatsBar(JsonWriter& json, const std::optional<JumpStatistics>& statistics, UnitSystem system)
{
    json.beginObject();
    if (statistics)
        for (const StatsItem& item : statsBarItems(*statistics, system))
            json.member(item.label, std::string_view(item.value));
    json.endObject();
}

void writeTrack(JsonWriter& json, const JumpTrack& track, UnitSystem system)
{
    json.beginObject();
    json.member("fileName", std::string_view(track.file.fileName));
    json.member("jumperName", std::string_view(track.jumperName));
    json.member("jumperColor", colorName(track.jumperColor));
    json.member("sampleCount", std::ssize(track.file.dataPoints));
    writeList(json, "phases", track.phases, [&](const JumpPhaseRange& range) {
        json.beginObject();
        std::string phase(displayName(range.phase));
        phase.front() = static_cast<char>(phase.front() - 'A' + 'a');
        json.member("phase", std::string_view(phase));
        json.member("startIndex", range.startIndex);
        json.member("endIndex", range.endIndex);
        json.endObject();
    });
    json.key("statistics");
    writeStatistics(json, track.statistics);
    writeNumbers(json, "elapsed", track.elapsed);
    json.key("statsBar");
    writeStatsBar(json, track.statistics, system);
    json.endObject();
}

void writeDistances(JsonWriter& json, std::string_view key, std::span<const CompanionDistanceData> distances,
                    const OspraModel& model)
{
    writeList(json, key, distances, [&](const CompanionDistanceData& companion) {
        const auto track = std::ranges::find(model.tracks(), companion.id, &JumpTrack::id);
        json.beginObject();
        json.member("trackIndex", track - model.tracks().begin());
        json.member("companionName", std::string_view(companion.companionName));
        json.member("companionColor", colorName(companion.companionColor));
        json.key("data").beginObject();
        for (const DistanceSeries series : allDistanceSeries)
            writePoints(json, displayName(series), companion.data[series]);
        json.endObject();
        json.endObject();
    });
}

/// What the visible records of the chart views begin with.
template <typename VisibleTrack>
void writeVisibleTrack(JsonWriter& json, const VisibleTrack& track)
{
    json.member("trackIndex", track.trackIndex);
    json.member("jumperName", std::string_view(track.jumperName));
    json.member("jumperColor", colorName(track.jumperColor));
    json.member("isPrimary", track.isPrimary);
}

void writeFullData(JsonWriter& json, const OspraModel& model)
{
    json.key("units").beginObject();
    for (const DataSeries series : allDataSeries)
        json.member(displayName(series), std::string_view(seriesUnit(series, model.units())));
    json.endObject();
    writeList(json, "chartData", model.chartData(), [&](const SeriesData& data) { writeSeries(json, data); });
    writeList(json, "horizontalDistanceData", model.tracks(), [&](const JumpTrack& track) {
        const HorizontalDistanceSeriesData& data = model.horizontalDistanceData().at(track.id);
        json.beginObject();
        writePoints(json, "traveled", data.traveled);
        writePoints(json, "fromExit", data.fromExit);
        json.endObject();
    });
    writeDistances(json, "distanceData", model.distanceData(), model);
}

void writeRange(JsonWriter& json, std::string_view key, const std::optional<TimeRange>& range)
{
    json.key(key);
    if (!range) {
        json.null();
        return;
    }
    json.beginList();
    json.value(range->lo);
    json.value(range->hi);
    json.endList();
}

void writeZoom(JsonWriter& json, const OspraModel& model)
{
    json.key("activeZoomMode");
    if (!model.activeZoomMode())
        json.null();
    else
        switch (*model.activeZoomMode()) {
        case ZoomMode::freefall: json.value("freefall"); break;
        case ZoomMode::canopy: json.value("canopy"); break;
        case ZoomMode::freefallAndCanopy: json.value("freefallAndCanopy"); break;
        }
    writeRange(json, "zoomRange", model.zoomRange());
    writeRange(json, "displayRange", model.displayRange());
}

void writeVisibleData(JsonWriter& json, const OspraModel& model)
{
    writeList(json, "visibleTracks", model.visibleTracks(),
              [&](const JumpTrack* track) { json.value(std::int64_t{track - model.tracks().data()}); });
    writeList(json, "visibleChartTracks", model.visibleChartTracks(), [&](const VisibleTrackData& track) {
        json.beginObject();
        writeVisibleTrack(json, track);
        json.key("seriesData");
        writeSeries(json, track.seriesData);
        json.endObject();
    });
    writeList(json, "visibleHorizontalDistanceTracks", model.visibleHorizontalDistanceTracks(),
              [&](const VisibleHorizontalDistanceTrackData& track) {
                  json.beginObject();
                  writeVisibleTrack(json, track);
                  writePoints(json, "traveled", track.traveled);
                  writePoints(json, "fromExit", track.fromExit);
                  json.endObject();
              });
    writeDistances(json, "visibleDistanceDataCache", model.visibleDistanceDataCache(), model);
}

void writeCoordinate(JsonWriter& json, Coordinate coordinate)
{
    json.beginList();
    json.value(coordinate.latitude);
    json.value(coordinate.longitude);
    json.endList();
}

void writeSegment(JsonWriter& json, const VisibleMapSegment& segment, const OspraModel& model)
{
    const std::size_t uuidLength = uuidString({}).size();
    const auto track = std::ranges::find(model.tracks(), segment.id.substr(0, uuidLength),
                                         [](const JumpTrack& candidate) { return uuidString(candidate.id); });
    std::string phase(displayName(segment.phase));
    phase.front() = static_cast<char>(phase.front() - 'A' + 'a');
    json.beginObject();
    json.member("trackIndex", track - model.tracks().begin());
    json.member("idSuffix", std::string_view(segment.id).substr(uuidLength + 1));
    json.member("phase", std::string_view(phase));
    json.member("isPrimary", segment.isPrimary);
    writeColor(json, segment.color);
    json.member("opacity", segment.opacity);
    writeList(json, "coordinates", *segment.coordinates,
              [&](Coordinate coordinate) { writeCoordinate(json, coordinate); });
    json.endObject();
}

void writeMap(JsonWriter& json, const OspraModel& model)
{
    writeList(json, "visibleMapSegments", model.visibleMapSegments(),
              [&](const VisibleMapSegment& segment) { writeSegment(json, segment, model); });
    json.key("visibleMapRegion");
    if (const std::optional<MapRegion>& region = model.visibleMapRegionCache()) {
        json.beginObject();
        json.key("center");
        writeCoordinate(json, region->center);
        json.key("span");
        writeCoordinate(json, {region->latitudeDelta, region->longitudeDelta});
        json.endObject();
    } else {
        json.null();
    }
    json.key("jumpRunLine");
    if (const std::optional<JumpRunLine> line = jumpRunLine(model.tracks())) {
        json.beginObject();
        json.key("start");
        writeCoordinate(json, line->start);
        json.key("end");
        writeCoordinate(json, line->end);
        json.endObject();
    } else {
        json.null();
    }
}

void writeMarkers(JsonWriter& json, std::string_view key, const std::vector<ChartMarker>& markers)
{
    writeList(json, key, markers, [&](const ChartMarker& marker) {
        json.beginObject();
        json.member("seconds", marker.seconds);
        writeColor(json, marker.color);
        json.endObject();
    });
}

void writeRows(JsonWriter& json, std::string_view key, const std::vector<HoverRow>& rows)
{
    writeList(json, key, rows, [&](const HoverRow& row) {
        json.beginObject();
        json.member("name", std::string_view(row.name));
        writeColor(json, row.color);
        json.member("value", std::string_view(row.value));
        json.endObject();
    });
}

void writeHover(JsonWriter& json, const OspraModel& model)
{
    const std::optional<double> seconds = model.hoveredSeconds();
    const DisplayUnits units = model.units();
    json.member("hoveredSeconds", seconds);
    json.member("hoveredTimeLabel", hoveredTimeLabel(model.tracks(), seconds));
    json.key("hoveredValues").beginObject();
    for (const DataSeries series : allDataSeries)
        writeRows(json, displayName(series), hoveredValues(model.visibleChartTracks(), series, seconds, units));
    json.endObject();
    json.key("hoveredDistanceValues").beginObject();
    for (const DistanceSeries series : allDistanceSeries)
        writeRows(json, displayName(series),
                  hoveredDistanceValues(model.visibleDistanceDataCache(), series, seconds, units.system));
    json.endObject();
    writeRows(json, "hoveredHorizontalValues",
              hoveredHorizontalValues(model.visibleHorizontalDistanceTracks(), seconds, units.system));
    writeNumbers(json, "hoveredPoints", hoveredPoints(model.tracks(), model.hiddenTrackIDs(), seconds));
}

} // namespace

void writeJump(JsonWriter& json, const OspraModel& model)
{
    json.beginObject();
    writeList(json, "tracks", model.tracks(),
              [&](const JumpTrack& track) { writeTrack(json, track, model.units().system); });
    writeFullData(json, model);
    writeZoom(json, model);
    writeVisibleData(json, model);
    writeMap(json, model);
    writeMarkers(json, "pitchMarkers", pitchMarkers(model.tracks(), model.hiddenTrackIDs()));
    writeMarkers(json, "saddleMarkers", saddleMarkers(model.tracks(), model.hiddenTrackIDs()));
    writeHover(json, model);
    json.endObject();
}

} // namespace ospra
