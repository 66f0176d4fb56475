#pragma once

#include "analysis/JumpTrack.h"
#include "display/chartSeries.h"
#include "display/zoom.h"
#include "platform/Color.h"
#include "platform/Coordinate.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ospra {

/// Every sample of a phase, in order. Shared, as a zoom changes the opacity of a path and never its places.
using PhasePath = std::shared_ptr<const std::vector<Coordinate>>;

/// What the map keeps of a track from its load on.
struct TrackPaths {
    std::vector<PhasePath> phases{}; ///< one for each phase of the track
    bool timeAscends = false;        ///< whether the log's clock never stepped back, so that a time can be searched for
};

/// The path of one phase of one track.
struct VisibleMapSegment {
    std::string id{}; ///< the track's UUID, the phase's name, first and last index, with dashes; stable across zooms
    JumpPhase phase = JumpPhase::aircraft;
    bool isPrimary = false; ///< whether the track is the first of those that are not hidden
    Color color = Color::white;
    double opacity = 1.0;    ///< 0.2 to 1
    PhasePath coordinates{}; ///< at least two; the same array from one rebuild to the next

    /// Paths are equal if their places are; a shared one is not looked at.
    friend bool operator==(const VisibleMapSegment& a, const VisibleMapSegment& b);
};

/// A part of the map, degrees.
struct MapRegion {
    Coordinate center{};
    double latitudeDelta = 0.0;
    double longitudeDelta = 0.0;

    friend bool operator==(const MapRegion&, const MapRegion&) = default;
};

/// The aircraft's line of flight around the exit, 4 km long.
struct JumpRunLine {
    Coordinate start{}; ///< behind the aircraft
    Coordinate end{};   ///< ahead of it

    friend bool operator==(const JumpRunLine&, const JumpRunLine&) = default;
};

/// How strongly a zoom lets a phase show: 1 in focus, 0.2 out of it. A phase is in focus if the mode frames it or if
/// a range drawn by hand covers at least a quarter of it; everything is without a zoom.
[[nodiscard]] double focusFactor(const JumpTrack& track, const JumpPhaseRange& phase, const Zoom& zoom);

/// The paths of all tracks, in their order. Computed once per load.
[[nodiscard]] std::vector<TrackPaths> buildMapPaths(std::span<const JumpTrack> tracks);

/// The paths of the tracks that are not hidden, in order, each whole: a zoom only dims what lies outside.
/// @param paths of `tracks`, element by element
[[nodiscard]] std::vector<VisibleMapSegment> visibleMapSegments(std::span<const JumpTrack> tracks,
                                                                std::span<const TrackPaths> paths,
                                                                const TrackIDs& hidden, const Zoom& zoom);

/// The region that holds all samples of the visible tracks within the range, with some room around. NaN and infinite
/// coordinates are left out, each axis by itself. The antimeridian is not looked at: longitudes are plain numbers.
/// @param paths of `tracks`, element by element
/// @return absent without a range and where it holds no sample
[[nodiscard]] std::optional<MapRegion> visibleMapRegion(std::span<const JumpTrack> tracks,
                                                        std::span<const TrackPaths> paths, const TrackIDs& hidden,
                                                        const std::optional<TimeRange>& range);

/// The line through the place of the exit in the direction of the aircraft's last ten samples, from the first track
/// even while it is hidden; absent without an aircraft phase.
[[nodiscard]] std::optional<JumpRunLine> jumpRunLine(std::span<const JumpTrack> tracks);

} // namespace ospra
