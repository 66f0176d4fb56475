#include "tests/properties/Scene.h"

#include "tests/support/JumpBuilder.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace ospra::properties {

std::vector<JumpTrack> makeTracks(Dice& dice, Damage damage)
{
    constexpr std::array colors{Color::white, Color::yellow, Color::cyan, Color::pink};
    std::vector<JumpTrack> tracks;
    for (std::ptrdiff_t count = dice.between(1, 4); count > 0; --count) {
        Samples samples = makeFlight(dice, damage);
        if (!tracks.empty() && dice.oneIn(2)) { // the same jump, seen from beside and by another clock
            samples = tracks.front().file.dataPoints;
            for (FlySightDataPoint& sample : samples) {
                sample.time.seconds += dice.oneIn(3) ? 0.5 : 0.25;
                sample.coordinate.latitude += 1e-4;
                sample.altitudeMSL += 3.0;
            }
        } else if (!tracks.empty()) { // another jump at about the same time
            const double shift = tracks.front().file.dataPoints.front().time.seconds - samples.front().time.seconds +
                                 static_cast<double>(dice.between(-80, 80)) / 2.0;
            for (FlySightDataPoint& sample : samples)
                sample.time.seconds += shift;
        }
        JumpTrack track =
            makeTrack(std::move(samples), "Jumper " + std::to_string(tracks.size()), colors[tracks.size()]);
        const Instant zero =
            tracks.empty() ? track.file.dataPoints.front().time : tracks.front().file.dataPoints.front().time;
        for (std::size_t i = 0; i < track.elapsed.size(); ++i)
            track.elapsed[i] = track.file.dataPoints[i].time.seconds - zero.seconds;
        tracks.push_back(std::move(track));
    }
    return tracks;
}

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

double makeMoment(Dice& dice, std::span<const JumpTrack> tracks)
{
    const std::vector<double>& elapsed = dice.oneOf(tracks).elapsed;
    const std::ptrdiff_t i = dice.below(std::ssize(elapsed));
    const double at = elapsed[static_cast<std::size_t>(i)];
    const double next = elapsed[static_cast<std::size_t>(std::min(i + 1, std::ssize(elapsed) - 1))];
    switch (dice.below(5)) {
    case 0: return at;
    case 1: return (at + next) / 2.0;
    case 2: return at + dice.oneOf(std::array{2.0, -2.0, 1.99, -1.99});
    case 3: return dice.oneIn(2) ? elapsed.front() - 1.0 : elapsed.back() + 1.75;
    default: return dice.real(elapsed.front() - 10.0, elapsed.back() + 10.0);
    }
}

TimeRange makeRange(Dice& dice, std::span<const JumpTrack> tracks)
{
    const auto [lo, hi] = std::minmax({makeMoment(dice, tracks), makeMoment(dice, tracks)});
    return {.lo = lo, .hi = hi};
}

DisplayUnits makeUnits(Dice& dice)
{
    return {.system = dice.oneIn(2) ? UnitSystem::metric : UnitSystem::imperial,
            .altitude = dice.oneIn(2) ? AltitudeReference::aboveGround : AltitudeReference::aboveSeaLevel};
}

} // namespace ospra::properties
