#include "display/hover.h"
#include "display/mapData.h"
#include "display/zoom.h"
#include "tests/properties/Flights.h"
#include "tests/properties/NaiveNearest.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>

namespace ospra::properties {

namespace {

constexpr std::array allZoomModes{ZoomMode::freefall, ZoomMode::canopy, ZoomMode::freefallAndCanopy};

const std::vector<Coordinate>& pathOf(const VisibleMapSegment& segment)
{
    return *segment.coordinates;
}

bool belongsTo(ZoomMode mode, JumpPhase phase)
{
    const std::string letters = mode == ZoomMode::freefall ? "FD" : mode == ZoomMode::canopy ? "C" : "FDC";
    return letters.find(displayName(phase).front()) != std::string::npos;
}

/// Some tracks, of which some are hidden, as the views meet them.
struct Scene {
    std::vector<JumpTrack> tracks{};
    TrackIDs hidden{};
    std::vector<const JumpTrack*> visible{};
};

Scene makeScene(Dice& dice)
{
    Scene scene{.tracks = makeTracks(dice, Damage::clock)};
    for (const JumpTrack& track : scene.tracks) {
        if (dice.oneIn(4))
            scene.hidden.insert(track.id);
        else
            scene.visible.push_back(&track);
    }
    return scene;
}

double at(const std::vector<double>& values, std::ptrdiff_t i)
{
    return values.at(static_cast<std::size_t>(i));
}

std::optional<TimeRange> rangeOf(ZoomMode mode, const Scene& scene)
{
    double lo = 1.7976931348623157e308;
    double hi = -lo;
    for (const JumpTrack* track : scene.visible) {
        for (const JumpPhaseRange& range : track->phases) {
            if (!belongsTo(mode, range.phase))
                continue;
            if (at(track->elapsed, range.startIndex) < lo)
                lo = at(track->elapsed, range.startIndex);
            if (at(track->elapsed, range.endIndex) > hi)
                hi = at(track->elapsed, range.endIndex);
        }
    }
    return lo < hi ? std::optional(TimeRange{.lo = lo, .hi = hi}) : std::nullopt;
}

Zoom makeZoom(Dice& dice, const Scene& scene)
{
    if (dice.oneIn(4))
        return {};
    if (dice.oneIn(2)) {
        const ZoomMode mode = dice.oneOf(allZoomModes);
        return {.mode = mode, .range = rangeOf(mode, scene)};
    }
    const JumpTrack& track = dice.oneOf(scene.tracks);
    if (!track.phases.empty() && dice.oneIn(3)) { // just the share of a phase that keeps it in focus
        const JumpPhaseRange& phase = dice.oneOf(track.phases);
        const double s = at(track.elapsed, phase.startIndex);
        const double quarter = (at(track.elapsed, phase.endIndex) - s) / 4.0;
        return {.range = TimeRange{.lo = s - 1.0, .hi = s + std::fmax(quarter, 0.0)}};
    }
    const double a = makeMoment(dice, scene.tracks);
    const double b = makeMoment(dice, scene.tracks);
    return {.range = TimeRange{.lo = std::fmin(a, b), .hi = std::fmax(a, b)}};
}

TEST(ZoomOfAnyTracks, spansTheFramedPhases)
{
    for (std::uint64_t seed = 0; seed < 1'500; ++seed) {
        Dice dice(seed);
        const Scene scene = makeScene(dice);
        for (const ZoomMode mode : allZoomModes)
            ASSERT_EQ(zoomRangeFor(mode, scene.tracks, scene.hidden), rangeOf(mode, scene)) << "seed " << seed;
    }
}

TEST(DragOfAnyLength, zoomsAboveHalfASecond)
{
    Dice dice(7);
    for (int round = 0; round < 2'000; ++round) {
        const double a = static_cast<double>(dice.between(-40, 40)) / 8.0;
        const double b = a + (dice.oneIn(2) ? 1.0 : -1.0) * static_cast<double>(dice.between(0, 1'100)) / 1'024.0;
        const std::optional<TimeRange> range = zoomRangeForDrag(a, b);
        ASSERT_EQ(range.has_value(), (a > b ? a - b : b - a) > 0.5);
        if (range) {
            ASSERT_EQ(range->lo, a < b ? a : b);
            ASSERT_EQ(range->hi, a < b ? b : a);
        }
    }
}

double opacityOf(const JumpTrack& track, const JumpPhaseRange& range, const Zoom& zoom)
{
    constexpr std::array table{0.4, 1.0, 0.9, 0.7, 0.3};
    const double full = table.at(static_cast<std::size_t>(range.phase));
    if (zoom.mode)
        return belongsTo(*zoom.mode, range.phase) ? full : 0.2;
    if (!zoom.range)
        return full;
    const double s = at(track.elapsed, range.startIndex);
    const double e = at(track.elapsed, range.endIndex);
    if (e - s <= 0)
        return full;
    double overlap = (zoom.range->hi < e ? zoom.range->hi : e) - (zoom.range->lo > s ? zoom.range->lo : s);
    if (overlap < 0)
        overlap = 0;
    return overlap / (e - s) < 0.25 ? 0.2 : full;
}

TEST(MapOfAnyTracks, showsEachPhaseWhole)
{
    for (std::uint64_t seed = 0; seed < 1'500; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        const Scene scene = makeScene(dice);
        const Zoom zoom = makeZoom(dice, scene);
        const std::vector<VisibleMapSegment> segments =
            visibleMapSegments(scene.tracks, buildMapPaths(scene.tracks), scene.hidden, zoom);
        std::size_t count = 0;
        for (const JumpTrack* track : scene.visible) {
            for (const JumpPhaseRange& range : track->phases) {
                ASSERT_LT(count, segments.size());
                const VisibleMapSegment& segment = segments[count++];
                EXPECT_EQ(segment.id, uuidString(track->id) + "-" + std::string(displayName(range.phase)) + "-" +
                                          std::to_string(range.startIndex) + "-" + std::to_string(range.endIndex));
                EXPECT_EQ(segment.phase, range.phase);
                EXPECT_EQ(segment.isPrimary, track == scene.visible[0]);
                EXPECT_EQ(segment.color, track->jumperColor);
                EXPECT_EQ(segment.opacity, opacityOf(*track, range, zoom));
                ASSERT_EQ(std::ssize(pathOf(segment)), range.endIndex - range.startIndex + 1);
                for (std::size_t i = 0; i < pathOf(segment).size(); ++i)
                    ASSERT_EQ(pathOf(segment)[i],
                              track->file.dataPoints[static_cast<std::size_t>(range.startIndex) + i].coordinate);
            }
        }
        ASSERT_EQ(segments.size(), count);
    }
}

TEST(MapRegionOfAnyTracks, holdsWhatTheRangeShows)
{
    int empty = 0;
    for (std::uint64_t seed = 0; seed < 1'500; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        const Scene scene = makeScene(dice);
        const std::optional<TimeRange> range = makeZoom(dice, scene).range;
        std::vector<double> latitudes;
        std::vector<double> longitudes;
        for (const JumpTrack* track : scene.visible) {
            for (std::size_t i = 0; range && i < track->elapsed.size(); ++i) {
                if (track->elapsed[i] < range->lo || track->elapsed[i] > range->hi)
                    continue;
                latitudes.push_back(track->file.dataPoints[i].coordinate.latitude);
                longitudes.push_back(track->file.dataPoints[i].coordinate.longitude);
            }
        }
        const std::optional<MapRegion> region =
            visibleMapRegion(scene.tracks, buildMapPaths(scene.tracks), scene.hidden, range);
        ASSERT_EQ(region.has_value(), !latitudes.empty());
        if (!region) {
            ++empty;
            continue;
        }
        std::sort(latitudes.begin(), latitudes.end());
        std::sort(longitudes.begin(), longitudes.end());
        const auto span = [](const std::vector<double>& sorted) {
            const double padded = (sorted.back() - sorted.front()) * 1.3;
            return padded > 0.002 ? padded : 0.002;
        };
        EXPECT_EQ(region->center.latitude, (latitudes.front() + latitudes.back()) / 2);
        EXPECT_EQ(region->center.longitude, (longitudes.front() + longitudes.back()) / 2);
        EXPECT_EQ(region->latitudeDelta, span(latitudes));
        EXPECT_EQ(region->longitudeDelta, span(longitudes));
    }
    EXPECT_GT(empty, 50);
}

/// The jump run by directions in space instead of angles: the anchor turned towards the flight.
TEST(JumpRunOfAnyTracks, runsThroughTheExitAlongTheFlight)
{
    using Vector = std::array<double, 3>;
    const auto direction = [](Coordinate place) {
        const double phi = place.latitude * std::numbers::pi / 180;
        const double lambda = place.longitude * std::numbers::pi / 180;
        return Vector{std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)};
    };
    int lines = 0;
    for (std::uint64_t seed = 0; seed < 1'500; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        const Scene scene = makeScene(dice);
        const std::optional<JumpRunLine> line = jumpRunLine(scene.tracks);
        const JumpTrack& primary = scene.tracks.front();
        if (primary.phases.empty() || primary.phases.front().phase != JumpPhase::aircraft) {
            ASSERT_FALSE(line);
            continue;
        }
        ASSERT_TRUE(line);
        const std::ptrdiff_t b = primary.phases.front().endIndex;
        const std::ptrdiff_t a = b - 10 > primary.phases.front().startIndex ? b - 10 : primary.phases[0].startIndex;
        const Vector from = direction(primary.file.dataPoints[static_cast<std::size_t>(a)].coordinate);
        const Coordinate place = primary.file.dataPoints[static_cast<std::size_t>(b)].coordinate;
        const Vector anchor = direction(place);
        // The flight at sample a towards b, as east and north there; its bearing is used at the anchor.
        const double phi = std::asin(from[2]);
        const double lambda = std::atan2(from[1], from[0]);
        const Vector east{-std::sin(lambda), std::cos(lambda), 0};
        const Vector north{-std::sin(phi) * std::cos(lambda), -std::sin(phi) * std::sin(lambda), std::cos(phi)};
        const auto dot = [](const Vector& u, const Vector& v) { return u[0] * v[0] + u[1] * v[1] + u[2] * v[2]; };
        const double goesEast = dot(anchor, east);
        const double goesNorth = dot(anchor, north);
        const double length = std::hypot(goesEast, goesNorth);
        if (length * 6371000.0 < 1.0)
            continue; // hardly moved: the bearing is that of rounding
        ++lines;
        const double anchorPhi = place.latitude * std::numbers::pi / 180;
        const double anchorLambda = place.longitude * std::numbers::pi / 180;
        for (const double side : {1.0, -1.0}) {
            const double angle = 2000.0 / 6371000.0;
            const double e = side * goesEast / length * std::sin(angle);
            const double n = side * goesNorth / length * std::sin(angle);
            const Vector end{anchor[0] * std::cos(angle) - std::sin(anchorLambda) * e -
                                 std::sin(anchorPhi) * std::cos(anchorLambda) * n,
                             anchor[1] * std::cos(angle) + std::cos(anchorLambda) * e -
                                 std::sin(anchorPhi) * std::sin(anchorLambda) * n,
                             anchor[2] * std::cos(angle) + std::cos(anchorPhi) * n};
            const Coordinate shown = side > 0 ? line->end : line->start;
            const Vector drawn = direction(shown);
            ASSERT_NEAR(std::hypot(drawn[0] - end[0], drawn[1] - end[1], drawn[2] - end[2]) * 6371000.0, 0.0, 0.01);
            ASSERT_LT(std::fabs(shown.longitude - place.longitude), 180.0); // a line of plain numbers, never wrapped
        }
    }
    EXPECT_GT(lines, 500);
}

std::string printed(const char* format, double value)
{
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

/// What the point nearest to the moment reads, the earlier of two; absent 2 s away.
std::optional<double> readingOf(const ChartPoints& points, double seconds)
{
    std::vector<double> times;
    for (const ChartPoint& point : points)
        times.push_back(point.seconds);
    const ChartPoint& found = points[naive::nearest(times, seconds, true)];
    if (std::fabs(found.seconds - seconds) < 2)
        return found.value;
    return std::nullopt;
}

TEST(HoverOverAnyTracks, readsTheNearestPoints)
{
    int tooFar = 0;
    for (std::uint64_t seed = 0; seed < 1'000; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        const Scene scene = makeScene(dice);
        const bool isMetric = dice.oneIn(2);
        const DisplayUnits units{.system = isMetric ? UnitSystem::metric : UnitSystem::imperial,
                                 .altitude = AltitudeReference::aboveSeaLevel};
        const TimeRange range = makeZoom(dice, scene).range.value_or(fullRange(scene.tracks));
        const auto visible = cutChartData(scene.tracks, buildChartData(scene.tracks, units), scene.hidden, range);
        const auto paths = cutHorizontalDistances(scene.tracks, buildHorizontalDistances(scene.tracks, units.system),
                                                  scene.hidden, range);
        const auto companions =
            cutDistanceData(scene.tracks, buildDistanceData(scene.tracks, units.system), scene.hidden, range);
        const double moment = makeMoment(dice, scene.tracks);
        const std::string metres = isMetric ? " m" : " ft";

        const std::vector<double>& own = scene.tracks.front().elapsed;
        ASSERT_EQ(snappedSeconds(scene.tracks, moment), own[naive::nearest(own, moment, false)]);

        for (const DataSeries series : allDataSeries) {
            const bool isAngle = series == DataSeries::diveAngle;
            const bool isRatio = series == DataSeries::glideRatio;
            const std::string unit = series == DataSeries::elevation ? metres + " MSL"
                                     : isAngle                       ? " deg"
                                     : isRatio                       ? ""
                                     : isMetric                      ? " km/h"
                                                                     : " mph";
            std::vector<HoverRow> expected;
            for (const VisibleTrackData& track : visible) {
                if (track.seriesData[series].empty())
                    continue;
                const auto value = readingOf(track.seriesData[series], moment);
                tooFar += value ? 0 : 1;
                expected.push_back({.name = track.trackIndex == 0 ? "Me" : track.jumperName,
                                    .color = track.trackIndex == 0 ? Color::primaryTrack : track.jumperColor,
                                    .value = value ? printed(isAngle   ? "%.1f"
                                                             : isRatio ? "%.2f"
                                                                       : "%.0f",
                                                             *value) +
                                                         unit
                                                   : "-"});
            }
            ASSERT_EQ(hoveredValues(visible, series, moment, units), expected) << displayName(series);
        }
        for (const DistanceSeries series : allDistanceSeries) {
            std::vector<HoverRow> expected;
            for (const CompanionDistanceData& companion : companions) {
                if (companion.data[series].empty())
                    continue;
                const auto value = readingOf(companion.data[series], moment);
                expected.push_back({.name = companion.companionName,
                                    .color = companion.companionColor,
                                    .value = value ? printed("%.0f", *value) + metres : "-"});
            }
            ASSERT_EQ(hoveredDistanceValues(companions, series, moment, units.system), expected);
        }
        std::vector<HoverRow> expected;
        for (const VisibleHorizontalDistanceTrackData& track : paths) {
            if (track.traveled.empty())
                continue;
            const auto traveled = readingOf(track.traveled, moment);
            const auto fromExit = readingOf(track.fromExit, moment);
            expected.push_back({.name = track.trackIndex == 0 ? "Me" : track.jumperName,
                                .color = track.trackIndex == 0 ? Color::primaryTrack : track.jumperColor,
                                .value = traveled ? "Trv " + printed("%.0f", *traveled) + metres + "  Exit " +
                                                        printed("%.0f", *fromExit) + metres
                                                  : "-"});
        }
        ASSERT_EQ(hoveredHorizontalValues(paths, moment, units.system), expected);
    }
    EXPECT_GT(tooFar, 500);
}

TEST(HoverOverAnyTracks, findsSamplesMarkersAndTimeSinceExit)
{
    int labels = 0;
    for (std::uint64_t seed = 0; seed < 1'500; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        const Scene scene = makeScene(dice);
        const double moment = makeMoment(dice, scene.tracks);

        std::vector<std::optional<std::ptrdiff_t>> points;
        std::vector<ChartMarker> pitches;
        std::vector<ChartMarker> saddles;
        for (const JumpTrack* track : scene.visible) {
            const std::size_t i = naive::nearest(track->elapsed, moment, false);
            points.emplace_back();
            if (std::fabs(track->elapsed[i] - moment) < 2)
                points.back() = static_cast<std::ptrdiff_t>(i);
            const Color color = track == scene.visible[0] ? Color::primaryTrack : track->jumperColor;
            for (const JumpPhaseRange& range : track->phases) {
                if (range.phase == JumpPhase::deployment)
                    pitches.push_back({.seconds = at(track->elapsed, range.startIndex), .color = color});
                if (range.phase == JumpPhase::canopy)
                    saddles.push_back({.seconds = at(track->elapsed, range.startIndex), .color = color});
            }
        }
        ASSERT_EQ(hoveredPoints(scene.tracks, scene.hidden, moment), points);
        ASSERT_EQ(pitchMarkers(scene.tracks, scene.hidden), pitches);
        ASSERT_EQ(saddleMarkers(scene.tracks, scene.hidden), saddles);

        std::optional<std::string> label;
        for (const JumpPhaseRange& range : scene.tracks.front().phases) {
            const double t = moment - at(scene.tracks.front().elapsed, range.startIndex);
            if (range.phase != JumpPhase::freefall || t < 0)
                continue;
            std::array<char, 40> text{};
            const int n = static_cast<int>(t);
            if (n < 60)
                std::snprintf(text.data(), text.size(), "T+%ds", n);
            else
                std::snprintf(text.data(), text.size(), "T+%d:%02d", n / 60, n % 60);
            label = text.data();
        }
        labels += label ? 1 : 0;
        ASSERT_EQ(hoveredTimeLabel(scene.tracks, moment), label);
    }
    EXPECT_GT(labels, 300);
}

} // namespace

} // namespace ospra::properties
