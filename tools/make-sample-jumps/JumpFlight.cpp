#include "tools/make-sample-jumps/JumpFlight.h"

#include <iterator>

namespace ospra {

namespace {

/// Choices that all of a load share.
struct Setting {
    const LoadOrder& order;
    Wind wind;
    double exitHeight = 0.0; // m
    Vector3 openingPoint{};
    double pitchHeight = 0.0; // m, of the leader
    double pattern = 1.0;
    Vector3 sideways{}; // across the jump run
};

double chooseExitHeight(const LoadOrder& order, Random& random)
{
    if (order.style == JumpStyle::hopAndPop)
        return random.between(1450.0, 1750.0);
    return order.place.exitHeight + random.between(-90.0, 70.0);
}

/// Seconds from one exit to the next of the group. Those who want to meet in the air leave close together.
double chooseExitGap(JumpStyle style, Random& random)
{
    switch (style) {
    case JumpStyle::belly: return random.between(0.4, 1.6);
    case JumpStyle::tracking:
    case JumpStyle::wingsuit: return random.between(0.8, 2.6);
    case JumpStyle::hopAndPop: break;
    }
    return random.between(4.0, 7.0);
}

Setting makeSetting(const LoadOrder& order, const Random& random)
{
    Random own = random.fork(1);
    Setting setting{.order = order, .wind = Wind(random.fork(2))};
    setting.exitHeight = chooseExitHeight(order, own);
    setting.pitchHeight = order.style == JumpStyle::hopAndPop  ? setting.exitHeight - own.between(220.0, 330.0)
                          : order.style == JumpStyle::wingsuit ? own.between(1350.0, 1500.0)
                                                               : own.between(1300.0, 1430.0);
    // Upwind by what the canopy will drift, less what it flies by itself.
    setting.openingPoint = setting.wind.meanBelow(setting.pitchHeight) * -150.0;
    setting.pattern = own.chance(0.3) ? 1.0 : -1.0;
    const Vector3 run = unit(setting.wind.at(setting.exitHeight) * -1.0);
    setting.sideways = turned(run, own.chance(0.5) ? pi / 2.0 : -pi / 2.0);
    return setting;
}

FreefallPlan leaderPlan(const Setting& setting)
{
    return {.style = setting.order.style,
            .fallRate = setting.order.people.front().fallRate,
            .pitchHeight = setting.pitchHeight,
            .sideways = setting.sideways,
            .openingPoint = setting.openingPoint};
}

/// Over which point to leave the aircraft so that a plain fall ends over the opening point.
Vector3 spot(const Setting& setting, const Random& random)
{
    FreefallPlan plan = leaderPlan(setting);
    plan.style = plan.style == JumpStyle::hopAndPop ? plan.style : JumpStyle::belly;
    const Vector3 wind = setting.wind.at(setting.exitHeight);
    Motion exit{.position = {.down = -setting.exitHeight}, .velocity = wind + unit(wind) * -jumpRunAirspeed};
    const Freefall trial = fall(plan, setting.order.place, setting.wind, exit, 0.0, random.fork(3));
    return setting.openingPoint - horizontal(trial.path.motions.back().position);
}

/// Where each of a group flies in it: the first in the middle, the others around at arm's length or, when all move
/// across the sky, some metres to the side and behind.
Vector3 slotOf(const Setting& setting, std::size_t index)
{
    const double around = static_cast<double>(index - 1) * 2.1 + 0.6;
    const double distance = setting.order.style == JumpStyle::belly ? 2.2 : 9.0;
    return directionTo(around) * distance + Vector3{.down = setting.order.style == JumpStyle::belly ? 0.0 : -2.0};
}

JumpFlight flyJump(const Setting& setting, const Person& person, FreefallPlan plan, const Trajectory& aircraft,
                   double exitTime, const Random& random)
{
    Random own = random.fork(4);
    plan.fallRate = person.fallRate * own.between(0.985, 1.02);
    plan.inflation = own.between(3.9, 4.8);
    Freefall freefall = fall(plan, setting.order.place, setting.wind, aircraft.at(exitTime), exitTime, random.fork(5));

    const CanopyPlan canopyPlan{.drive = person.canopyDrive * own.between(0.97, 1.03),
                                .sink = person.canopySink * own.between(0.95, 1.03),
                                .pattern = setting.pattern,
                                .landingPoint = {.north = 14.0 * own.bell(), .east = 14.0 * own.bell()},
                                .timeOnGround = own.between(60.0, 130.0)};
    const double openTime = freefall.path.end();
    CanopyFlight canopy = flyCanopy(canopyPlan, setting.wind, freefall.path.motions.back(), openTime, random.fork(6));

    JumpFlight flight{.exitTime = exitTime,
                      .pitchTime = freefall.pitchTime,
                      .openTime = openTime,
                      .landingTime = canopy.landingTime,
                      .outside = std::move(freefall.path)};
    flight.outside.motions.pop_back(); // the canopy's flight begins with the same motion
    flight.outside.motions.insert(flight.outside.motions.end(), canopy.path.motions.begin(), canopy.path.motions.end());
    return flight;
}

} // namespace

Load flyLoad(const LoadOrder& order, const Random& random)
{
    const Setting setting = makeSetting(order, random);
    Load load;
    load.aircraft = flyAircraft({.place = order.place,
                                 .wind = setting.wind,
                                 .exitPoint = spot(setting, random),
                                 .exitHeight = setting.exitHeight},
                                random.fork(7));

    Random own = random.fork(8);
    const std::size_t count = order.people.size();
    double exitTime = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        FreefallPlan plan = leaderPlan(setting);
        if (i > 0) {
            plan.leader = &load.flights.front().outside;
            plan.slot = slotOf(setting, i);
            exitTime += chooseExitGap(order.style, own);
            // Those who open last have the most room above them.
            plan.pitchHeight += (i % 2 == 1 ? -1.0 : 1.0) * (50.0 + 35.0 * static_cast<double>(i));
        }
        if (count > 1)
            plan.breakOff = i == 0 ? slotOf(setting, 1) * -1.0 - slotOf(setting, 2) : plan.slot;
        plan.breakOff = dot(plan.breakOff, plan.breakOff) > 0.0 ? unit(horizontal(plan.breakOff)) : Vector3{};
        load.flights.push_back(flyJump(setting, order.people[i], plan, load.aircraft, exitTime, random.fork(20 + i)));
    }
    return load;
}

Motion motionAt(const Load& load, const JumpFlight& flight, double time)
{
    return time < flight.exitTime ? load.aircraft.at(time) : flight.outside.at(time);
}

} // namespace ospra
