#include "display/mapData.h"
#include "display/zoom.h"
#include "tests/properties/Frame.h"
#include "tests/properties/Scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
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

std::optional<TimeRange> rangeOf(ZoomMode mode, const Scene& scene)
{
    double lo = greatest;
    double hi = -greatest;
    for (const JumpTrack* track : scene.visible) {
        for (const JumpPhaseRange& range : track->phases) {
            if (!belongsTo(mode, range.phase))
                continue;
            lo = std::fmin(lo, at(track->elapsed, range.startIndex));
            hi = std::fmax(hi, at(track->elapsed, range.endIndex));
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
    return {.range = makeRange(dice, scene.tracks)};
}

TEST(ZoomOfAnyTracks, spansTheFramedPhases)
{
    forSeeds(1'500, [&](Dice& dice) {
        const Scene scene = makeScene(dice);
        for (const ZoomMode mode : allZoomModes)
            ASSERT_EQ(zoomRangeFor(mode, scene.tracks, scene.hidden), rangeOf(mode, scene));
    });
}

TEST(DragOfAnyLength, zoomsAboveHalfASecond)
{
    Dice dice(7);
    for (int round = 0; round < 2'000; ++round) {
        const double a = static_cast<double>(dice.between(-40, 40)) / 8.0;
        const double b = a + (dice.oneIn(2) ? 1.0 : -1.0) * static_cast<double>(dice.between(0, 1'100)) / 1'024.0;
        const std::optional<TimeRange> range = zoomRangeForDrag(a, b);
        const TimeRange dragged{.lo = std::fmin(a, b), .hi = std::fmax(a, b)};
        ASSERT_EQ(range, dragged.hi - dragged.lo > 0.5 ? std::optional(dragged) : std::nullopt);
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
    const double overlap = std::fmin(zoom.range->hi, e) - std::fmax(zoom.range->lo, s);
    return std::fmax(overlap, 0.0) / (e - s) < 0.25 ? 0.2 : full;
}

TEST(MapOfAnyTracks, showsEachPhaseWhole)
{
    forSeeds(1'500, [&](Dice& dice) {
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
    });
}

TEST(MapRegionOfAnyTracks, holdsWhatTheRangeShows)
{
    int empty = 0;
    forSeeds(1'500, [&](Dice& dice) {
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
            return;
        }
        const auto expectSide = [](double center, double delta, const std::vector<double>& places) {
            const auto [least, most] = std::ranges::minmax(places);
            EXPECT_EQ(center, (least + most) / 2);
            EXPECT_EQ(delta, std::fmax((most - least) * 1.3, 0.002));
        };
        expectSide(region->center.latitude, region->latitudeDelta, latitudes);
        expectSide(region->center.longitude, region->longitudeDelta, longitudes);
    });
    EXPECT_GT(empty, 50);
}

/// The jump run by directions in space instead of angles: the anchor turned towards the flight.
TEST(JumpRunOfAnyTracks, runsThroughTheExitAlongTheFlight)
{
    constexpr double radius = 6371000.0; // m
    int lines = 0;
    forSeeds(1'500, [&](Dice& dice) {
        const Scene scene = makeScene(dice);
        const std::optional<JumpRunLine> line = jumpRunLine(scene.tracks);
        const JumpTrack& primary = scene.tracks.front();
        if (primary.phases.empty() || primary.phases.front().phase != JumpPhase::aircraft) {
            ASSERT_FALSE(line);
            return;
        }
        ASSERT_TRUE(line);
        const std::ptrdiff_t exit = primary.phases.front().endIndex;
        const std::ptrdiff_t before = std::max(exit - 10, primary.phases.front().startIndex);
        const Coordinate place = primary.file.dataPoints[static_cast<std::size_t>(exit)].coordinate;
        const Frame from = frameAt(primary.file.dataPoints[static_cast<std::size_t>(before)].coordinate);
        const Frame anchor = frameAt(place);
        // The flight as east and north where it begins; its bearing is used at the anchor.
        const double goesEast = dot(anchor.up, from.east);
        const double goesNorth = dot(anchor.up, from.north);
        const double moved = std::hypot(goesEast, goesNorth);
        if (moved * radius < 1.0)
            return; // the bearing is that of rounding
        ++lines;
        const Vector heading = (goesEast * anchor.east + goesNorth * anchor.north) / moved;
        for (const double side : {1.0, -1.0}) {
            const double angle = side * 2000.0 / radius;
            const Vector end = std::cos(angle) * anchor.up + std::sin(angle) * heading;
            const Coordinate shown = side > 0 ? line->end : line->start;
            ASSERT_NEAR(length(frameAt(shown).up - end) * radius, 0.0, 0.01);
            ASSERT_LT(std::fabs(shown.longitude - place.longitude), 180.0); // a line of plain numbers, never wrapped
        }
    });
    EXPECT_GT(lines, 500);
}

} // namespace

} // namespace ospra::properties
