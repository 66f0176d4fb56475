#include "display/hover.h"

#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {

void PrintTo(const HoverRow& row, std::ostream* out)
{
    *out << row.name << " (" << colorName(row.color) << ") " << row.value;
}

namespace {

using enum DataSeries;
using Rows = std::vector<HoverRow>;

constexpr DisplayUnits metricAGL{.system = UnitSystem::metric, .altitude = AltitudeReference::aboveGround};

/// Two jumpers with a sample every four seconds; the companion's log ends earlier.
std::vector<JumpTrack> twoTracks()
{
    std::vector<JumpTrack> tracks{makeBareTrack({0, 4, 8, 12, 16}, {}, "Ada"),
                                  makeBareTrack({0, 4, 8}, {}, "Bo", Color::mint)};
    for (JumpTrack& track : tracks)
        for (std::size_t i = 0; i < track.elapsed.size(); ++i)
            track.file.dataPoints[i].altitudeMSL = 100.0 * static_cast<double>(i);
    return tracks;
}

TEST(HoveredValues, readPointsLessThanTwoSecondsAway)
{
    const auto tracks = twoTracks();
    const auto data = buildChartData(tracks, metricAGL);
    const auto rows = [&](const TrackIDs& hidden, TimeRange range, std::optional<double> seconds) {
        return hoveredValues(cutChartData(tracks, data, hidden, range), elevation, seconds, metricAGL);
    };
    const TimeRange all{.lo = 0.0, .hi = 99.0};
    EXPECT_EQ(rows({}, all, 4.0), (Rows{{"Me", Color::primaryTrack, "100 m AGL"}, {"Bo", Color::mint, "100 m AGL"}}));
    // Both neighbours lie exactly two seconds away, which is too far; a little less is not.
    EXPECT_EQ(rows({}, all, 6.0), (Rows{{"Me", Color::primaryTrack, "-"}, {"Bo", Color::mint, "-"}}));
    EXPECT_EQ(rows({tracks[0].id}, all, 9.999), (Rows{{"Bo", Color::mint, "200 m AGL"}}));
    // A cut that leaves a track without points leaves it without a row.
    EXPECT_EQ(rows({}, {.lo = 11.0, .hi = 99.0}, 12.0), (Rows{{"Me", Color::primaryTrack, "300 m AGL"}}));
    EXPECT_TRUE(rows({}, all, std::nullopt).empty());
}

TEST(HoveredTimeLabel, countsFromThePrimarysExit)
{
    std::vector<JumpTrack> tracks{
        makeBareTrack({0, 100, 200}, {{.phase = JumpPhase::freefall, .startIndex = 1, .endIndex = 2}})};
    using Label = std::optional<std::string>;
    EXPECT_EQ(hoveredTimeLabel(tracks, 100.0), Label("T+0s"));
    EXPECT_EQ(hoveredTimeLabel(tracks, 160.0), Label("T+1:00"));
    for (const double none : {99.9, std::nan(""), HUGE_VAL})
        EXPECT_EQ(hoveredTimeLabel(tracks, none), Label());
    EXPECT_EQ(hoveredTimeLabel(tracks, std::nullopt), Label());
}

TEST(PitchMarkers, leaveThePrimaryColourToAFirstTrackWithoutOne)
{
    auto tracks = twoTracks();
    tracks[0].statistics = JumpStatistics{.pitchIndex = 99};
    tracks[1].statistics = JumpStatistics{.pitchIndex = 2};
    EXPECT_EQ(pitchMarkers(tracks, {}), (std::vector<ChartMarker>{{8.0, Color::mint}}));
    tracks[1].statistics.reset();
    EXPECT_TRUE(pitchMarkers(tracks, {}).empty());
}

} // namespace
} // namespace ospra
