#include "display/mapData.h"

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
    EXPECT_EQ(visibleMapSegments(tracks, buildMapPaths(tracks), {}, {}), before);
    std::vector<JumpTrack> moved = tracks;
    moved[0].file.dataPoints[2].coordinate.longitude += 1e-9;
    const auto elsewhere = visibleMapSegments(moved, buildMapPaths(moved), {}, {});
    EXPECT_EQ(elsewhere[0], before[0]);
    EXPECT_NE(elsewhere[1], before[1]);
    EXPECT_NE(elsewhere[2], before[2]);
}

TEST(VisibleMapRegion, framesPlacesThatAreNumbers)
{
    std::vector<JumpTrack> tracks{shortJump()};
    tracks[0].file.dataPoints[3].coordinate = {.latitude = NAN, .longitude = INFINITY};
    const auto region = [&](TimeRange range) { return visibleMapRegion(tracks, buildMapPaths(tracks), {}, range); };
    EXPECT_EQ(region({20.0, 30.0}), (MapRegion{{49.0, 8.0}, 0.002, 0.002}));
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
