#include "display/mapData.h"

#include "display/distanceSeries.h"
#include "tests/support/JumpBuilder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace ospra {
namespace {

using enum JumpPhase;

JumpTrack shortJump()
{
    JumpTrack track = makeBareTrack({0, 10, 20, 30, 40, 50},
                                    {{.phase = aircraft, .startIndex = 0, .endIndex = 1},
                                     {.phase = freefall, .startIndex = 1, .endIndex = 2},
                                     {.phase = deployment, .startIndex = 2, .endIndex = 3},
                                     {.phase = canopy, .startIndex = 3, .endIndex = 4},
                                     {.phase = ground, .startIndex = 4, .endIndex = 5}},
                                    "Ada", Color::pink);
    for (std::size_t i = 0; i < 6; ++i)
        track.file.dataPoints[i].coordinate = {.latitude = 47.0 + static_cast<double>(i), .longitude = 8.0};
    return track;
}

std::vector<VisibleMapSegment> segmentsOf(std::span<const JumpTrack> tracks, const TrackIDs& hidden = {},
                                          const Zoom& zoom = {})
{
    return visibleMapSegments(tracks, buildMapPaths(tracks), hidden, zoom);
}

std::vector<double> opacities(const JumpTrack& track, const Zoom& zoom)
{
    std::vector<double> result;
    for (const VisibleMapSegment& segment : segmentsOf({&track, 1}, {}, zoom))
        result.push_back(segment.opacity);
    return result;
}

TEST(VisibleMapSegments, shareTheirPathsFromZoomToZoom)
{
    const std::vector<JumpTrack> tracks{shortJump()};
    const auto paths = buildMapPaths(tracks);
    const auto before = visibleMapSegments(tracks, paths, {}, {});
    const auto after = visibleMapSegments(tracks, paths, {}, {.mode = ZoomMode::canopy});
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(before[i].coordinates, after[i].coordinates) << "not the same array";
    EXPECT_NE(before[0], after[0]) << "dimmed";
    EXPECT_EQ(before[3], after[3]);

    // Another array with the same places is the same path, one with another place is not.
    EXPECT_EQ(segmentsOf(tracks), before);
    std::vector<JumpTrack> moved = tracks;
    moved[0].file.dataPoints[2].coordinate.longitude += 1e-9;
    const auto elsewhere = segmentsOf(moved);
    EXPECT_EQ(elsewhere[0], before[0]);
    EXPECT_NE(elsewhere[1], before[1]);
    EXPECT_NE(elsewhere[2], before[2]);
}

TEST(VisibleMapSegments, dimWhatTheZoomLeavesOut)
{
    const JumpTrack track = shortJump();
    const TimeRange range{.lo = 0.0, .hi = 50.0};
    using Values = std::vector<double>;
    EXPECT_EQ(opacities(track, {}), (Values{0.4, 1.0, 0.9, 0.7, 0.3}));
    EXPECT_EQ(opacities(track, {.mode = ZoomMode::freefall, .range = range}), (Values{0.2, 1.0, 0.9, 0.2, 0.2}));
    EXPECT_EQ(opacities(track, {.mode = ZoomMode::canopy}), (Values{0.2, 0.2, 0.2, 0.7, 0.2}));
    EXPECT_EQ(opacities(track, {.mode = ZoomMode::freefallAndCanopy}), (Values{0.2, 1.0, 0.9, 0.7, 0.2}));
    // A quarter of the freefall and just less than a quarter of the deployment.
    EXPECT_EQ(opacities(track, {.range = TimeRange{17.5, 22.499}}), (Values{0.2, 1.0, 0.2, 0.2, 0.2}));
    EXPECT_EQ(opacities(track, {.range = TimeRange{12.0, 14.0}}), (Values{0.2, 0.2, 0.2, 0.2, 0.2}));

    JumpTrack backwards = track;
    backwards.elapsed = {50, 40, 30, 20, 10, 0};
    EXPECT_EQ(opacities(backwards, {.range = TimeRange{12.0, 14.0}}), (Values{0.4, 1.0, 0.9, 0.7, 0.3}));
}

std::optional<MapRegion> regionOf(const JumpTrack& track, const std::optional<TimeRange>& range,
                                  const TrackIDs& hidden = {})
{
    const std::vector<JumpTrack> tracks{track};
    return visibleMapRegion(tracks, buildMapPaths(tracks), hidden, range);
}

TEST(VisibleMapRegion, framesTheSamplesInRange)
{
    JumpTrack track = shortJump();
    track.file.dataPoints[2].coordinate.longitude = 10.0;
    const auto region = [&](TimeRange range) { return regionOf(track, range); };

    const MapRegion framed = region({10.0, 20.0}).value();
    EXPECT_EQ(framed.center, (Coordinate{48.5, 9.0}));
    EXPECT_DOUBLE_EQ(framed.latitudeDelta, 1.3);
    EXPECT_DOUBLE_EQ(framed.longitudeDelta, 2.6);
    EXPECT_EQ(region({50.0, 60.0}), (MapRegion{{52.0, 8.0}, 0.002, 0.002}));
    EXPECT_EQ(region({51.0, 60.0}), std::nullopt);
    EXPECT_EQ(regionOf(track, std::nullopt), std::nullopt);
    EXPECT_EQ(regionOf(track, TimeRange{0.0, 60.0}, {track.id}), std::nullopt);

    // A clock that stepped back: the samples of a time are apart.
    JumpTrack backwards = track;
    backwards.elapsed = {0, 10, 20, 5, 15, 25};
    const MapRegion apart = regionOf(backwards, TimeRange{5.0, 10.0}).value();
    EXPECT_EQ(apart.center, (Coordinate{49.0, 8.0}));
    EXPECT_DOUBLE_EQ(apart.latitudeDelta, 2.6);

    track.file.dataPoints[3].coordinate = {.latitude = NAN, .longitude = INFINITY};
    EXPECT_EQ(region({20.0, 30.0}), (MapRegion{{49.0, 10.0}, 0.002, 0.002}));
    EXPECT_EQ(region({30.0, 30.0}), std::nullopt);
}

TEST(JumpRunLine, needsTwoSamplesInTheAircraft)
{
    JumpTrack track = makeBareTrack({0, 1}, {{.phase = aircraft, .startIndex = 0, .endIndex = 1}});
    track.file.dataPoints[1].coordinate.longitude = 0.001;
    EXPECT_TRUE(jumpRunLine({&track, 1}));
    track.phases.front().startIndex = 1;
    EXPECT_FALSE(jumpRunLine({&track, 1}));
    EXPECT_FALSE(jumpRunLine({}));
}

} // namespace
} // namespace ospra
