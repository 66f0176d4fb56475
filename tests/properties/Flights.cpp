#include "tests/properties/Flights.h"

#include "analysis/detectPhases.h"
#include "tests/support/JumpBuilder.h"

#include <array>
#include <cmath>

namespace ospra::properties {

namespace {

constexpr double newYear2024 = 1'704'067'200.0; // s since 1970; 2024-01-01T00:00:00Z

/// A little before or after midnight, at the turn of a year, or at any moment of forty years.
double makeStart(Dice& dice)
{
    switch (dice.below(3)) {
    case 0: return newYear2024 - static_cast<double>(dice.below(400));
    case 1: return newYear2024 + 86'400.0 * static_cast<double>(dice.below(300)) - static_cast<double>(dice.below(600));
    default: return static_cast<double>(dice.between(600'000'000, 1'900'000'000)) + dice.real(0.0, 1.0);
    }
}

Samples flyJump(Dice& dice)
{
    constexpr std::array rates{1.0, 2.0, 4.0, 5.0, 5.0, 10.0, 25.0};
    const double rate = dice.oneOf(rates);
    const double opening = dice.real(60.0, rate > 5.0 ? 250.0 : 900.0); // high rates fly low, to keep logs small
    const bool isHopAndPop = dice.oneIn(5);
    constexpr std::array styles{FlightStyle::belly, FlightStyle::freefly, FlightStyle::wingsuit};
    return makeJump({.rate = rate,
                     .climbSeconds = dice.real(10.0, rate > 5.0 ? 30.0 : 150.0),
                     .exitAltitude = opening + (isHopAndPop ? dice.real(20.0, 300.0) : dice.real(300.0, 3000.0)),
                     .openingAltitude = opening,
                     .groundElevation = dice.real(-20.0, 900.0),
                     .groundSeconds = dice.real(0.0, 60.0 / rate + 5.0),
                     .style = dice.oneOf(styles),
                     .start = {.latitude = dice.real(-70.0, 70.0), .longitude = dice.real(-179.0, 179.0)},
                     .startSeconds = makeStart(dice)});
}

/// A stretch of even flight.
struct Leg {
    double sink = 0.0;
    double forward = 0.0;
    std::ptrdiff_t count = 1;
};

/// Flies the legs, one second a sample. Forward speeds of 3:4 north and east give whole total speeds too.
Samples flyAlong(Dice& dice, std::span<const Leg> legs)
{
    constexpr std::array accuracies{0.0, 0.5, 9.99, 10.0, 10.5, 3.0, 3.0, 3.0};
    const bool isDiagonal = dice.oneIn(2);
    const double accuracy = dice.oneOf(accuracies);
    Samples samples;
    double altitude = dice.real(0.0, 4000.0);
    double time = makeStart(dice);
    for (const Leg& leg : legs) {
        const bool isFlat = dice.oneIn(6); // of equal altitudes the earliest counts
        for (std::ptrdiff_t i = leg.count; i > 0; --i) {
            samples.push_back(
                {.id = makeUuid(),
                 .time = {time},
                 .coordinate = {.latitude = 46.0 + leg.forward * 1e-6, .longitude = 8.0 + altitude * 1e-6},
                 .altitudeMSL = altitude,
                 .velocityNorth = isDiagonal ? leg.forward * 0.6 : leg.forward,
                 .velocityEast = isDiagonal ? leg.forward * 0.8 : 0.0,
                 .velocityDown = leg.sink,
                 .horizontalAccuracy = 2.0,
                 .verticalAccuracy = samples.size() < 15 ? dice.oneOf(accuracies) : accuracy});
            altitude -= isFlat ? 0.0 : leg.sink;
            time += 1.0;
        }
    }
    return samples;
}

/// Even flight at speeds that lie on the thresholds or beside them.
Samples flyLegs(Dice& dice)
{
    constexpr std::array sinks{-5.0,  0.0,  0.0,  0.0,  0.5,    0.50390625, 3.0,  5.0,  8.0,  10.0,   12.0,
                               12.03, 14.9, 15.0, 19.5, 19.984, 20.0,       20.1, 20.5, 28.0, 40.625, 50.0};
    constexpr std::array forwards{0.0, 0.0, 0.25, 3.0, 5.0, 10.0, 25.0, 30.0, 31.0, 36.0, 40.0, 49.0, 49.3, 60.0, 75.0};
    std::vector<Leg> legs(static_cast<std::size_t>(dice.between(1, 9)));
    for (Leg& leg : legs)
        leg = {.sink = dice.oneOf(sinks), .forward = dice.oneOf(forwards), .count = dice.between(1, 45)};
    return flyAlong(dice, legs);
}

/// A straight fall and an opening that takes just as much speed as the detection asks for, or a little more or less.
Samples flyOpening(Dice& dice)
{
    constexpr std::array falls{25.0, 36.0, 40.0, 50.0, 75.0};
    constexpr std::array drops{6.0, 8.0, 9.0, 8.99, 9.01, 10.0, 10.01, 12.0, 11.99, 14.0};
    const double fall = dice.oneOf(falls);
    const auto slower = [&](double share) { return fall - (dice.oneIn(4) ? share * fall : dice.oneOf(drops)); };
    std::vector<Leg> legs{{.sink = -5.0, .forward = 40.0, .count = dice.between(0, 30)},
                          {.sink = fall, .count = dice.between(0, 60)}};
    for (std::ptrdiff_t steps = dice.between(1, 3); steps > 0; --steps) {
        const bool isLevel = !dice.oneIn(4);
        legs.push_back({.sink = isLevel ? 0.0 : slower(0.28),
                        .forward = isLevel ? slower(0.18) : 0.0,
                        .count = dice.between(1, 25)});
    }
    legs.push_back({.sink = legs.back().sink, .forward = legs.back().forward - 6.0, .count = dice.between(0, 12)});
    return flyAlong(dice, legs);
}

/// Standing about, or riding up and down again in the aircraft.
Samples ride(Dice& dice, double climb, double descent)
{
    const double forward = climb > 0.0 ? 45.0 : 0.0;
    const std::array legs{Leg{.sink = -climb, .forward = forward, .count = dice.between(1, 250)},
                          Leg{.sink = descent, .forward = forward, .count = dice.between(1, 250)}};
    Samples samples = flyAlong(dice, legs);
    for (FlySightDataPoint& sample : samples) {
        sample.velocityEast += dice.real(-0.3, 0.3);
        sample.velocityDown += dice.real(-0.2, 0.2);
    }
    return samples;
}

Samples flySeveralJumps(Dice& dice)
{
    Samples all;
    double start = makeStart(dice);
    for (std::ptrdiff_t jumps = dice.between(2, 3); jumps > 0; --jumps) {
        Samples jump = makeJump({.rate = 2.0,
                                 .climbSeconds = 60.0,
                                 .exitAltitude = dice.real(1500.0, 2500.0),
                                 .openingAltitude = 600.0,
                                 .startSeconds = start});
        start = jump.back().time.seconds + dice.real(1.0, 4000.0);
        all.insert(all.end(), jump.begin(), jump.end());
    }
    return all;
}

/// What the sensor adds, in the digits that loggers write.
void addNoise(Dice& dice, Samples& samples)
{
    const double strength = dice.real(0.0, 3.0);
    const auto written = [](double value, double digits) { return std::round(value * digits) / digits; };
    for (FlySightDataPoint& sample : samples) {
        sample.velocityNorth = written(sample.velocityNorth + dice.real(-strength, strength), 100.0);
        sample.velocityEast = written(sample.velocityEast + dice.real(-strength, strength), 100.0);
        sample.velocityDown = written(sample.velocityDown + dice.real(-strength, strength), 100.0);
        sample.altitudeMSL = written(sample.altitudeMSL + dice.real(-strength, strength), 1000.0);
        sample.coordinate.latitude = written(sample.coordinate.latitude, 1e7);
        sample.coordinate.longitude = written(sample.coordinate.longitude, 1e7);
    }
}

/// A fix that comes late or goes, at the values where it begins to count and ends.
void worsenFix(Dice& dice, Samples& samples)
{
    constexpr std::array accuracies{0.0, 9.999, 10.0, 49.999, 50.0, 120.0};
    const std::ptrdiff_t first = dice.oneIn(2) ? 0 : dice.below(std::ssize(samples));
    const std::ptrdiff_t last = std::min(first + dice.below(120), std::ssize(samples) - 1);
    for (std::ptrdiff_t i = first; i <= last; ++i) {
        samples[static_cast<std::size_t>(i)].verticalAccuracy = dice.oneOf(accuracies);
        samples[static_cast<std::size_t>(i)].horizontalAccuracy = dice.oneOf(accuracies);
    }
}

void damageClock(Dice& dice, Samples& samples)
{
    if (dice.oneIn(30)) // it stood still
        for (FlySightDataPoint& sample : samples)
            sample.time = samples.front().time;
    for (std::ptrdiff_t times = dice.between(1, 3); times > 0; --times) {
        const auto from = static_cast<std::size_t>(dice.below(std::ssize(samples)));
        constexpr std::array shifts{-3600.0, -2.0, -0.2, 0.5, 1.5, 4.0, 60.0, 86'400.0};
        const double shift = dice.oneOf(shifts);
        const bool staysShifted = dice.oneIn(2);
        for (std::size_t i = from; i < (staysShifted ? samples.size() : from + 1); ++i)
            samples[i].time.seconds += shift;
        if (from > 0 && dice.oneIn(2))
            samples[from].time = samples[from - 1].time;
    }
}

void damageValues(Dice& dice, Samples& samples)
{
    constexpr std::array values{noNumber, -noNumber, infinity, -infinity, greatest, -greatest, -0.0, 1e18};
    constexpr std::array fields{&FlySightDataPoint::altitudeMSL,        &FlySightDataPoint::velocityNorth,
                                &FlySightDataPoint::velocityEast,       &FlySightDataPoint::velocityDown,
                                &FlySightDataPoint::horizontalAccuracy, &FlySightDataPoint::verticalAccuracy};
    for (std::ptrdiff_t times = dice.between(1, 20); times > 0; --times) {
        FlySightDataPoint& sample = samples[static_cast<std::size_t>(dice.below(std::ssize(samples)))];
        if (dice.oneIn(5))
            (dice.oneIn(2) ? sample.coordinate.latitude : sample.coordinate.longitude) = dice.oneOf(values);
        else
            sample.*dice.oneOf(fields) = dice.oneOf(values);
    }
    if (dice.oneIn(8))
        for (FlySightDataPoint& sample : samples)
            sample.*dice.oneOf(fields) = dice.oneOf(values);
}

Samples flyAnything(Dice& dice)
{
    switch (dice.below(11)) {
    case 0: return flySeveralJumps(dice);
    case 1: return ride(dice, 0.0, 0.0);
    case 2: return ride(dice, 5.0, dice.real(2.0, 8.0));
    case 3: {
        Samples samples = flyJump(dice);
        samples.resize(static_cast<std::size_t>(dice.between(1, std::min<std::ptrdiff_t>(40, std::ssize(samples)))));
        return samples;
    }
    case 4:
    case 5:
    case 6: return flyLegs(dice);
    case 7: return flyOpening(dice);
    default: return flyJump(dice);
    }
}

} // namespace

Samples makeFlight(Dice& dice, Damage damage)
{
    Samples samples = flyAnything(dice);
    if (samples.empty()) // all its legs had no length
        samples.resize(1);
    if (dice.oneIn(3))
        addNoise(dice, samples);
    if (dice.oneIn(3))
        worsenFix(dice, samples);
    if (dice.oneIn(6)) // a log that was cut off
        samples.resize(static_cast<std::size_t>(dice.between(1, std::ssize(samples))));
    if (damage != Damage::none && dice.oneIn(2))
        damageClock(dice, samples);
    if (damage == Damage::values)
        damageValues(dice, samples);
    return samples;
}

} // namespace ospra::properties
