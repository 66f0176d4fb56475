#include "tools/make-sample-jumps/Freefall.h"

#include <algorithm>

namespace ospra {

namespace {

constexpr double gravity = 9.81;           // m/s²
constexpr double breakOffAbovePitch = 420; // m, where a group falling together separates
constexpr double waveOffAbovePitch = 70;   // m, where the body lies flat again before the pull
constexpr double pilotChuteTime = 0.7;     // s from the throw to the first pull of the canopy
constexpr double openSpeed = 8.0;          // m/s, of a canopy just filled

/// How the air takes hold of a body: acceleration per squared airspeed, in the air at 2,500 m.
struct Grip {
    double drag = 0.0; // 1/m
    double lift = 0.0; // 1/m
};

/// The grip that makes a body glide steadily at these speeds.
Grip gripFor(double sink, double forward)
{
    const double speed = std::sqrt(sink * sink + forward * forward);
    const double perSpeed = gravity / (speed * speed * speed);
    return {.drag = sink * perSpeed, .lift = forward * perSpeed};
}

double densityRatio(double altitudeMSL)
{
    return exponential((2500.0 - altitudeMSL) / 9500.0);
}

class Body {
public:
    Body(const FreefallPlan& plan, const Place& place, const Wind& wind, const Motion& exit, double exitTime,
         Random random)
        : m_plan(plan), m_place(place), m_wind(wind), m_motion(exit), m_exitHeight(-exit.position.down),
          m_time(exitTime), m_exitTime(exitTime), m_grip(gripFor(plan.fallRate, 0.0)), m_wobble(2.5, random.fork(1)),
          m_swerveNorth(3.0, random.fork(2)), m_swerveEast(3.0, random.fork(3))
    {}

    Freefall fall()
    {
        Freefall result{.path = {.start = m_exitTime, .step = flightStep}};
        while (height() > m_plan.pitchHeight && height() > 0.0) {
            result.path.motions.push_back(m_motion);
            step(bodyAcceleration());
        }
        result.pitchTime = m_time;
        while (m_time < result.pitchTime + pilotChuteTime) {
            result.path.motions.push_back(m_motion);
            step(draggedAcceleration(m_time - result.pitchTime));
        }
        const double pullTime = m_time;
        const double pullSpeed = length(m_motion.velocity - m_wind.at(height()));
        while (m_time < pullTime + m_plan.inflation) {
            result.path.motions.push_back(m_motion);
            step(inflationAcceleration(std::min((m_time - pullTime) / m_plan.inflation, 1.0), pullSpeed));
        }
        result.path.motions.push_back(m_motion);
        return result;
    }

private:
    [[nodiscard]] double height() const { return -m_motion.position.down; }
    [[nodiscard]] double sinceExit() const { return m_time - m_exitTime; }

    [[nodiscard]] bool inFormation() const
    {
        return m_plan.leader != nullptr && height() > m_plan.pitchHeight + breakOffAbovePitch && sinceExit() > 2.5;
    }

    [[nodiscard]] bool breaksOff() const
    {
        return m_plan.style == JumpStyle::belly && dot(m_plan.breakOff, m_plan.breakOff) > 0.0 &&
               height() < m_plan.pitchHeight + breakOffAbovePitch;
    }

    [[nodiscard]] Grip wantedGrip() const
    {
        const double rate = m_plan.fallRate / 53.0; // heavy people are faster in every position
        if (height() < m_plan.pitchHeight + waveOffAbovePitch && m_plan.style != JumpStyle::wingsuit)
            return gripFor(m_plan.fallRate, 0.0);
        if (breaksOff())
            return gripFor(50.0 * rate, 22.0 * rate);
        if (m_plan.style == JumpStyle::tracking && sinceExit() > 4.0)
            return gripFor(46.5 * rate, 33.0 * rate);
        if (m_plan.style == JumpStyle::wingsuit && sinceExit() > 1.0)
            return gripFor(22.0 * rate, 45.5 * rate);
        return gripFor(m_plan.fallRate, 0.0);
    }

    /// Where the body flies to; matters only while it has lift.
    [[nodiscard]] Vector3 wantedDirection() const
    {
        if (breaksOff())
            return m_plan.breakOff;
        const double left = (height() - m_plan.pitchHeight) / (m_exitHeight - m_plan.pitchHeight);
        if (left > 0.55)
            return m_plan.sideways;
        const Vector3 home = horizontal(m_plan.openingPoint - m_motion.position);
        return unit(home + m_plan.sideways * (left * 600.0), m_plan.sideways);
    }

    /// The push that flying relative to somebody needs, within what a body can do.
    [[nodiscard]] Vector3 towardsSlot() const
    {
        const Motion leader = m_plan.leader->at(m_time);
        const Vector3 gap = leader.position + m_plan.slot - m_motion.position;
        const double distance = length(gap);
        // The closing speed shrinks with the gap, so that the approach ends gently.
        const Vector3 closing = unit(gap) * std::min(0.35 * distance, 8.0);
        const Vector3 push = (closing + leader.velocity - m_motion.velocity) * 0.9;
        return push * (std::min(length(push), 4.5) / std::max(length(push), 1e-6));
    }

    Vector3 bodyAcceleration()
    {
        const double easing = flightStep / 1.3;
        const Grip wanted = wantedGrip();
        m_grip.drag += (wanted.drag - m_grip.drag) * easing;
        m_grip.lift += (wanted.lift - m_grip.lift) * easing;
        const double steering = std::clamp(angleBetween(m_direction, wantedDirection()), -0.11, 0.11);
        m_direction = turned(m_direction, steering * flightStep);

        const Vector3 air = m_motion.velocity - m_wind.at(height());
        const double speed = length(air);
        const double density = densityRatio(m_place.elevation + height());
        const Vector3 path = unit(air);
        const Vector3 across = acrossPath(path);
        const double wobble = 1.0 + 0.03 * m_wobble.step(flightStep);

        Vector3 acceleration = path * (-m_grip.drag * wobble * density * speed * speed) +
                               across * (m_grip.lift * density * speed * speed) + Vector3{.down = gravity};
        acceleration.north += 0.35 * m_swerveNorth.step(flightStep);
        acceleration.east += 0.35 * m_swerveEast.step(flightStep);
        if (inFormation())
            acceleration = acceleration + towardsSlot();
        return acceleration;
    }

    /// The pilot chute out, the body still flying but losing its lift.
    [[nodiscard]] Vector3 draggedAcceleration(double sincePitch) const
    {
        const Vector3 air = m_motion.velocity - m_wind.at(height());
        const double pressure = densityRatio(m_place.elevation + height()) * dot(air, air);
        const double lift = m_grip.lift * (1.0 - 0.5 * sincePitch / pilotChuteTime);
        return unit(air) * (-1.1 * m_grip.drag * pressure) + acrossPath(unit(air)) * (lift * pressure) +
               Vector3{.down = gravity};
    }

    /// A slider holds the canopy back so that the airspeed falls evenly, gently at both ends.
    /// @param share of the inflation's time that has gone, 0 to 1
    [[nodiscard]] Vector3 inflationAcceleration(double share, double pullSpeed) const
    {
        const Vector3 path = unit(m_motion.velocity - m_wind.at(height()));
        const double braking = (pullSpeed - openSpeed) * 6.0 * share * (1.0 - share) / m_plan.inflation;
        return path * (-braking - gravity * path.down) + Vector3{.down = gravity};
    }

    /// The direction of lift: across the path, up and towards where the body faces.
    [[nodiscard]] Vector3 acrossPath(const Vector3& path) const
    {
        const Vector3 facing = m_direction + Vector3{.down = -0.6};
        return unit(facing - path * dot(facing, path));
    }

    void step(const Vector3& acceleration)
    {
        m_motion.velocity = m_motion.velocity + acceleration * flightStep;
        m_motion.position = m_motion.position + m_motion.velocity * flightStep;
        m_time += flightStep;
    }

    const FreefallPlan& m_plan;
    const Place& m_place;
    const Wind& m_wind;
    Motion m_motion;
    double m_exitHeight;
    double m_time;
    double m_exitTime;
    Grip m_grip;
    Vector3 m_direction = unit(horizontal(m_motion.velocity));
    Wander m_wobble;
    Wander m_swerveNorth;
    Wander m_swerveEast;
};

} // namespace

Freefall fall(const FreefallPlan& plan, const Place& place, const Wind& wind, const Motion& exit, double exitTime,
              Random random)
{
    return Body(plan, place, wind, exit, exitTime, random).fall();
}

} // namespace ospra
