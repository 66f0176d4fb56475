#include "display/hover.h"
#include "tests/properties/NaiveNearest.h"
#include "tests/properties/Scene.h"
#include "tests/properties/print.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

namespace ospra::properties {

namespace {

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

std::string textOf(std::optional<double> value, const std::string& format)
{
    return value ? print(format.c_str(), *value) : "-";
}

std::string formatOf(DataSeries series, bool isMetric)
{
    if (series == DataSeries::diveAngle)
        return "%.1f deg";
    if (series == DataSeries::glideRatio)
        return "%.2f";
    if (series == DataSeries::elevation)
        return isMetric ? "%.0f m MSL" : "%.0f ft MSL";
    return isMetric ? "%.0f km/h" : "%.0f mph";
}

/// The row of a jumper, which is called by name and has a colour of its own unless it is the first.
template <typename Track>
HoverRow rowOf(const Track& track, std::string value)
{
    if (track.trackIndex == 0)
        return {.name = "Me", .color = Color::primaryTrack, .value = std::move(value)};
    return {.name = track.jumperName, .color = track.jumperColor, .value = std::move(value)};
}

TEST(HoverOverAnyTracks, readsTheNearestPoints)
{
    int tooFar = 0;
    forSeeds(1'000, [&](Dice& dice) {
        const auto [tracks, hidden, visible] = makeScene(dice);
        const bool isMetric = dice.oneIn(2);
        const DisplayUnits units{.system = isMetric ? UnitSystem::metric : UnitSystem::imperial,
                                 .altitude = AltitudeReference::aboveSeaLevel};
        const std::string distance = isMetric ? "%.0f m" : "%.0f ft";
        const TimeRange range = dice.oneIn(3) ? fullRange(tracks) : makeRange(dice, tracks);
        const double moment = makeMoment(dice, tracks);

        const std::vector<double>& own = tracks.front().elapsed;
        ASSERT_EQ(snappedSeconds(tracks, moment), own[naive::nearest(own, moment, false)]);

        const auto charts = cutChartData(tracks, buildChartData(tracks, units), hidden, range);
        for (const DataSeries series : allDataSeries) {
            std::vector<HoverRow> expected;
            for (const VisibleTrackData& track : charts) {
                if (track.seriesData[series].empty())
                    continue;
                const auto value = readingOf(track.seriesData[series], moment);
                tooFar += value ? 0 : 1;
                expected.push_back(rowOf(track, textOf(value, formatOf(series, isMetric))));
            }
            ASSERT_EQ(hoveredValues(charts, series, moment, units), expected) << displayName(series);
        }

        const auto companions = cutDistanceData(tracks, buildDistanceData(tracks, units.system), hidden, range);
        for (const DistanceSeries series : allDistanceSeries) {
            std::vector<HoverRow> expected;
            for (const CompanionDistanceData& companion : companions)
                if (!companion.data[series].empty())
                    expected.push_back({.name = companion.companionName,
                                        .color = companion.companionColor,
                                        .value = textOf(readingOf(companion.data[series], moment), distance)});
            ASSERT_EQ(hoveredDistanceValues(companions, series, moment, units.system), expected);
        }

        const auto paths =
            cutHorizontalDistances(tracks, buildHorizontalDistances(tracks, units.system), hidden, range);
        std::vector<HoverRow> expected;
        for (const VisibleHorizontalDistanceTrackData& track : paths) {
            if (track.traveled.empty())
                continue;
            const auto traveled = readingOf(track.traveled, moment);
            const auto fromExit = readingOf(track.fromExit, moment);
            expected.push_back(rowOf(
                track, traveled ? textOf(traveled, "Trv " + distance) + textOf(fromExit, "  Exit " + distance) : "-"));
        }
        ASSERT_EQ(hoveredHorizontalValues(paths, moment, units.system), expected);
    });
    EXPECT_GT(tooFar, 500);
}

TEST(HoverOverAnyTracks, findsSamplesMarkersAndTimeSinceExit)
{
    int labels = 0;
    forSeeds(1'500, [&](Dice& dice) {
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
            const int n = static_cast<int>(t);
            label = n < 60 ? print("T+%ds", n) : print("T+%d:%02d", n / 60, n % 60);
        }
        labels += label ? 1 : 0;
        ASSERT_EQ(hoveredTimeLabel(scene.tracks, moment), label);
    });
    EXPECT_GT(labels, 300);
}

} // namespace

} // namespace ospra::properties
