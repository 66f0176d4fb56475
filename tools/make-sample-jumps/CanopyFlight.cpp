#include "tools/make-sample-jumps/CanopyFlight.h"

#include "tools/make-sample-jumps/Freefall.h"

namespace ospra {

namespace {

constexpr double patternHeight = 300.0; // m, where the landing pattern begins
constexpr double patternWidth = 160.0;  // m between the downwind leg and the final approach
constexpr double flareHeight = 3.6;     // m
constexpr double gentleTurn = 0.45;     // rad/s, the fastest turn of ordinary flight

enum class Leg { settle, play, downwind, base, final };

/// What the hands do: both are wanted values that the canopy takes on in its own time.
struct Input {
    double turn = 0.0;  // rad/s, clockwise
    double brake = 0.0; // 0 for full flight, 1 for the slowest
    double sinkFactor = 1.0;
};

class CanopyPilot {
public:
    CanopyPilot(const CanopyPlan& plan, const Wind& wind, const Motion& open, double openTime, Random random)
        : m_plan(plan), m_wind(wind), m_motion(open), m_time(openTime), m_upwind(wind.upwind()), m_random(random),
          m_gustNorth(6.0, random.fork(1)), m_gustEast(6.0, random.fork(2)), m_lift(9.0, random.fork(3))
    {
        m_side = turned(m_upwind, -m_plan.pattern * pi / 2.0);
        const Vector3 air = open.velocity - wind.at(height());
        m_heading = unit(horizontal(air), m_upwind);
        m_airspeed = dot(horizontal(air), m_heading);
        m_sink = open.velocity.down;
        m_settled = openTime + m_random.between(6.0, 11.0);
    }

    CanopyFlight fly()
    {
        CanopyFlight result{.path = {.start = m_time, .step = flightStep}};
        while (height() > 0.0) {
            result.path.motions.push_back(m_motion);
            fly(height() > flareHeight ? nextInput() : Input{});
        }
        result.landingTime = m_time;
        walk(result);
        return result;
    }

private:
    [[nodiscard]] double height() const { return -m_motion.position.down; }

    /// The place over ground, seen from the landing point.
    [[nodiscard]] Vector3 place() const { return horizontal(m_motion.position - m_plan.landingPoint); }

    /// Where the landing pattern is entered: beside the landing point, a little upwind.
    [[nodiscard]] Vector3 entry() const { return m_side * patternWidth + m_upwind * 60.0; }

    [[nodiscard]] double headwind() const { return -dot(m_wind.at(50.0), m_upwind); }

    /// The turn that brings the canopy onto a track over ground.
    [[nodiscard]] double turnTo(const Vector3& track) const
    {
        const Vector3 heading = unit(track * m_plan.drive - m_wind.at(height()), track);
        return std::clamp(1.1 * angleBetween(m_heading, heading), -gentleTurn, gentleTurn);
    }

    Input nextInput()
    {
        if (m_time < m_settled)
            return {.brake = 0.45};
        if (height() > patternHeight)
            return playInput();
        if (m_leg < Leg::downwind)
            m_leg = Leg::downwind;
        if (m_leg == Leg::downwind && heightNeededFromBase() >= height() - flareHeight)
            m_leg = Leg::base;
        if (m_leg == Leg::base && dot(place(), m_side) < 28.0)
            m_leg = Leg::final;
        return patternInput();
    }

    /// Height that base leg and final approach would cost if the turn to base came now.
    [[nodiscard]] double heightNeededFromBase() const
    {
        const double across = std::max(dot(place(), m_side), 0.0);
        const double behind = std::max(-dot(place(), m_upwind), 0.0);
        const double turns = 5.0; // s
        const double time = across / m_plan.drive + behind / std::max(m_plan.drive - headwind(), 3.0) + turns;
        return time * m_plan.sink * 1.05;
    }

    [[nodiscard]] Input patternInput() const
    {
        switch (m_leg) {
        case Leg::settle:
        case Leg::play:
        case Leg::downwind: {
            const double aside = dot(place(), m_side) - patternWidth;
            return {.turn = turnTo(unit(m_upwind * -1.0 - m_side * (aside / 60.0)))};
        }
        case Leg::base: return {.turn = turnTo(m_side * -1.0)};
        case Leg::final: break;
        }
        const double aside = dot(place(), m_side);
        const double ahead = std::max(-dot(place(), m_upwind), 1.0);
        const double glideTime = ahead / std::max(m_plan.drive - headwind(), 3.0);
        const double factor = (height() - flareHeight * 0.5) / (glideTime * m_plan.sink);
        return {.turn = turnTo(unit(m_upwind - m_side * (aside / 40.0))),
                .brake = factor > 1.05 ? 0.25 : 0.0,
                .sinkFactor = std::clamp(factor, 0.82, 1.3)};
    }

    /// Free flight above the pattern: home by the straight way, with turns for fun as long as there is height to spare.
    Input playInput()
    {
        const double timeLeft = (height() - patternHeight) / m_plan.sink;
        const Vector3 drift = horizontal(m_wind.meanBelow(height())) * timeLeft;
        const double reach = m_plan.drive * timeLeft;
        const double needed = length(entry() - place() - drift);
        if (m_time >= m_figureEnd)
            chooseFigure(reach - needed);
        if (m_figure.turn != 0.0 || m_figure.brake > 0.0)
            return m_figure;
        const Vector3 away = entry() - place();
        if (length(away) > 110.0)
            return {.turn = turnTo(unit(away))};
        // Circles over the entry, against the sense of the pattern, drift and all.
        const double excess = (length(away) - 70.0) / 50.0;
        const Vector3 outward = unit(away * -1.0);
        return {.turn = turnTo(unit(turned(outward, -m_plan.pattern * pi / 2.0) - outward * excess))};
    }

    /// @param spare m of way over ground that may be wasted
    void chooseFigure(double spare)
    {
        m_figure = {};
        const bool justFlown = m_figureNumber++ % 2 == 1;
        if (justFlown || spare < 350.0 || height() < patternHeight + 150.0) {
            m_figureEnd = m_time + m_random.between(8.0, 16.0);
            return;
        }
        const double side = m_random.chance(0.5) ? 1.0 : -1.0;
        if (m_spirals < 2 && spare > 700.0 && m_random.chance(0.5)) {
            ++m_spirals;
            const double rate = m_random.between(0.8, 1.05);
            m_figure.turn = side * rate;
            m_figureEnd = m_time + 2.0 * pi / rate;
        } else if (m_random.chance(0.5)) {
            m_figure.turn = side * m_random.between(0.3, 0.6);
            m_figureEnd = m_time + m_random.between(2.5, 5.0);
        } else {
            m_figure.brake = m_random.between(0.5, 0.8);
            m_figureEnd = m_time + m_random.between(5.0, 10.0);
        }
    }

    void fly(const Input& input)
    {
        const bool flaring = height() <= flareHeight;
        m_turn += (input.turn - m_turn) * flightStep / 0.6;
        m_heading = turned(m_heading, m_turn * flightStep);

        const double steep = m_turn * m_turn;
        const double airspeed = m_plan.drive * (1.0 - 0.35 * input.brake) * (1.0 + 0.22 * steep);
        const double sink = m_plan.sink * input.sinkFactor * (1.0 - 0.22 * input.brake) * (1.0 + 1.5 * steep);
        m_airspeed += ((flaring ? 3.2 : airspeed) - m_airspeed) * flightStep / (flaring ? 1.5 : 1.6);
        m_sink += ((flaring ? 0.6 : sink) - m_sink) * flightStep / (flaring ? 0.55 : 1.3);

        const double gust = 0.12 + 0.07 * length(m_wind.at(0.0));
        const Vector3 gusts{.north = gust * m_gustNorth.step(flightStep),
                            .east = gust * m_gustEast.step(flightStep),
                            .down = flaring ? 0.0 : 0.25 * m_lift.step(flightStep)};
        m_motion.velocity = m_heading * m_airspeed + m_wind.at(height()) + gusts;
        m_motion.velocity.down += m_sink;
        move();
    }

    void move()
    {
        m_motion.position = m_motion.position + m_motion.velocity * flightStep;
        m_time += flightStep;
    }

    /// Run out the landing, gather the canopy, walk to the hangar, stand there.
    void walk(CanopyFlight& result)
    {
        const Vector3 hangar{.north = m_random.between(-25.0, 25.0), .east = 300.0 + m_random.between(-10.0, 10.0)};
        const double gathered = m_time + m_random.between(22.0, 40.0);
        const double end = m_time + m_plan.timeOnGround;
        const double pace = m_random.between(1.1, 1.5);
        m_motion.position.down = 0.0;
        m_motion.velocity.down = 0.0;
        while (m_time < end) {
            result.path.motions.push_back(m_motion);
            const Vector3 way = hangar - m_motion.position;
            const bool walks = m_time > gathered && length(way) > 2.0;
            const Vector3 wanted = walks ? unit(way) * pace : Vector3{};
            m_motion.velocity = m_motion.velocity + (wanted - m_motion.velocity) * (flightStep / 0.7);
            move();
        }
        result.path.motions.push_back(m_motion);
    }

    const CanopyPlan& m_plan;
    const Wind& m_wind;
    Motion m_motion;
    double m_time;
    Vector3 m_upwind;
    Vector3 m_side{}; // from the final approach to the downwind leg
    Random m_random;
    Wander m_gustNorth;
    Wander m_gustEast;
    Wander m_lift;
    Vector3 m_heading{};
    double m_airspeed = 0.0;
    double m_sink = 0.0;
    double m_turn = 0.0;
    double m_settled = 0.0; // s, when the brakes are released
    Leg m_leg = Leg::settle;
    Input m_figure{};
    double m_figureEnd = 0.0;
    int m_figureNumber = 0;
    int m_spirals = 0;
};

} // namespace

CanopyFlight flyCanopy(const CanopyPlan& plan, const Wind& wind, const Motion& open, double openTime, Random random)
{
    return CanopyPilot(plan, wind, open, openTime, random).fly();
}

} // namespace ospra
