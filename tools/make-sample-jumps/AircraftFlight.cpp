#include "tools/make-sample-jumps/AircraftFlight.h"

namespace ospra {

namespace {

constexpr double timeStep = 0.1;          // s
constexpr double climbAirspeed = 48.0;    // m/s
constexpr double turnRate = 3.0 * degree; // per s, the rate of all turns that pilots are taught
constexpr double circuitHeight = 280.0;   // m, where the circling begins and the approach ends
constexpr double runIn = 3000.0;          // m of straight flight before the exit point

enum class Stage { standing, takeOff, climb, toRunIn, jumpRun, descent, toFinal, final, rollOut, parked };

/// One flight in the making.
class Pilot {
public:
    Pilot(const AircraftOrder& order, Random random)
        : m_order(order), m_standing(random.between(60.0, 150.0)), m_climbRate(random.between(6.5, 8.5)),
          m_circle(random.between(1500.0, 2300.0)), m_side(random.chance(0.5) ? 1.0 : -1.0),
          m_bumps(4.0, random.fork(1))
    {
        m_runway = directionTo(order.place.runwayBearing * degree);
        if (dot(m_runway, order.wind.upwind()) < 0.0)
            m_runway = m_runway * -1.0;
        m_threshold = Vector3{.east = 350.0} - m_runway * 500.0;
        m_run = unit(order.wind.at(order.exitHeight) * -1.0);
        m_motion.position = m_threshold;
        m_heading = m_runway;
    }

    Trajectory fly()
    {
        Trajectory path{.step = timeStep};
        double time = 0.0;
        double exitTime = 0.0;
        constexpr double longest = 7200.0; // s
        for (; m_stage != Stage::parked && time < longest; time += timeStep) {
            path.motions.push_back(m_motion);
            const Stage before = m_stage;
            m_stage = nextStage(time);
            if (before == Stage::jumpRun && m_stage == Stage::descent)
                exitTime = time;
            m_stageTime = m_stage == before ? m_stageTime + timeStep : 0.0;
            move();
        }
        path.start = -exitTime;
        return path;
    }

private:
    [[nodiscard]] double height() const { return -m_motion.position.down; }

    /// How far along a direction the aircraft is, seen from a point.
    [[nodiscard]] double progress(const Vector3& from, const Vector3& direction) const
    {
        return dot(horizontal(m_motion.position - from), direction);
    }

    [[nodiscard]] Vector3 finalPoint() const { return m_threshold - m_runway * 2600.0; }

    [[nodiscard]] Stage nextStage(double time) const
    {
        switch (m_stage) {
        case Stage::standing: return time < m_standing ? m_stage : Stage::takeOff;
        case Stage::takeOff: return height() < circuitHeight ? m_stage : Stage::climb;
        case Stage::climb: return height() < 0.92 * m_order.exitHeight ? m_stage : Stage::toRunIn;
        case Stage::toRunIn:
            return length(horizontal(m_order.exitPoint - m_run * runIn - m_motion.position)) > 400.0 ? m_stage
                                                                                                     : Stage::jumpRun;
        case Stage::jumpRun: return progress(m_order.exitPoint, m_run) < 0.0 ? m_stage : Stage::descent;
        case Stage::descent: return height() > 450.0 ? m_stage : Stage::toFinal;
        case Stage::toFinal:
            return length(horizontal(finalPoint() - m_motion.position)) > 400.0 ? m_stage : Stage::final;
        case Stage::final: return height() > 0.0 ? m_stage : Stage::rollOut;
        case Stage::rollOut: return m_airspeed > 0.5 ? m_stage : Stage::parked;
        case Stage::parked: break;
        }
        return Stage::parked;
    }

    /// The direction over ground that leads round the drop zone.
    [[nodiscard]] Vector3 circling() const
    {
        const Vector3 outward = unit(horizontal(m_motion.position));
        const double excess = (length(horizontal(m_motion.position)) - m_circle) / 600.0;
        return unit(turned(outward, m_side * pi / 2.0) - outward * std::clamp(excess, -1.5, 1.5));
    }

    /// The direction over ground that leads onto a line and along it.
    [[nodiscard]] Vector3 alongLine(const Vector3& through, const Vector3& direction) const
    {
        const Vector3 offset = horizontal(m_motion.position - through);
        const Vector3 aside = offset - direction * dot(offset, direction);
        return unit(direction - aside * (1.0 / 700.0));
    }

    [[nodiscard]] Vector3 wantedTrack() const
    {
        switch (m_stage) {
        case Stage::climb: return circling();
        case Stage::toRunIn: return unit(horizontal(m_order.exitPoint - m_run * runIn - m_motion.position));
        case Stage::jumpRun: return alongLine(m_order.exitPoint, m_run);
        case Stage::descent: return m_stageTime < 45.0 ? m_run : circling();
        case Stage::toFinal: return unit(horizontal(finalPoint() - m_motion.position));
        case Stage::standing:
        case Stage::takeOff:
        case Stage::final:
        case Stage::rollOut:
        case Stage::parked: break;
        }
        return alongLine(m_threshold, m_runway);
    }

    [[nodiscard]] double wantedAirspeed() const
    {
        switch (m_stage) {
        case Stage::standing:
        case Stage::rollOut:
        case Stage::parked: return 0.0;
        case Stage::jumpRun: return jumpRunAirspeed;
        case Stage::descent: return m_stageTime < 45.0 ? jumpRunAirspeed : 62.0;
        case Stage::final: return 38.0;
        case Stage::takeOff:
        case Stage::climb:
        case Stage::toRunIn:
        case Stage::toFinal: break;
        }
        return climbAirspeed;
    }

    [[nodiscard]] double wantedClimb() const
    {
        const double able = m_climbRate * (1.0 - height() / 9000.0);
        switch (m_stage) {
        case Stage::standing:
        case Stage::rollOut:
        case Stage::parked: return 0.0;
        case Stage::takeOff: return m_airspeed > 36.0 ? able : 0.0;
        case Stage::climb:
        case Stage::toRunIn:
        case Stage::jumpRun: return std::min(able, (m_order.exitHeight - height()) / 8.0);
        case Stage::descent: return m_stageTime < 45.0 ? 0.0 : -14.0;
        case Stage::toFinal: return std::clamp((circuitHeight - height()) / 8.0, -8.0, 3.0);
        case Stage::final: break;
        }
        const double ahead = -progress(m_threshold + m_runway * 150.0, m_runway);
        return std::clamp((circuitHeight * ahead / 2600.0 - height()) / 4.0 - 4.0, -6.0, -0.7);
    }

    void move()
    {
        const Vector3 wind = m_order.wind.at(height());
        const bool rolling = height() <= 0.0;
        const Vector3 wantedHeading = rolling ? m_runway : unit(wantedTrack() * climbAirspeed - horizontal(wind));
        const double turn =
            std::clamp(angleBetween(m_heading, wantedHeading), -turnRate * timeStep, turnRate * timeStep);
        m_heading = turned(m_heading, turn);

        const double speedChange = rolling ? 2.2 : 1.2; // m/s²
        m_airspeed += std::clamp(wantedAirspeed() - m_airspeed, -speedChange * timeStep, speedChange * timeStep);
        m_climb += (wantedClimb() - m_climb) * timeStep / 2.5;

        const double bump = m_bumps.step(timeStep) * 0.35;
        m_motion.velocity = rolling ? m_heading * m_airspeed : m_heading * m_airspeed + wind;
        m_motion.velocity.down = rolling && m_climb <= 0.0 ? 0.0 : -m_climb + (height() > 30.0 ? bump : 0.0);
        m_motion.position = m_motion.position + m_motion.velocity * timeStep;
        m_motion.position.down = std::min(m_motion.position.down, 0.0);
    }

    const AircraftOrder& m_order;
    double m_standing;  // s before the take-off
    double m_climbRate; // m/s near the ground
    double m_circle;    // m, radius of the climb
    double m_side;      // 1 for clockwise circles, -1 for the others
    Wander m_bumps;
    Vector3 m_runway{};
    Vector3 m_threshold{};
    Vector3 m_run{};
    Motion m_motion{};
    Vector3 m_heading{};
    double m_airspeed = 0.0;
    double m_climb = 0.0;
    Stage m_stage = Stage::standing;
    double m_stageTime = 0.0;
};

} // namespace

Trajectory flyAircraft(const AircraftOrder& order, Random random)
{
    return Pilot(order, random).fly();
}

} // namespace ospra
