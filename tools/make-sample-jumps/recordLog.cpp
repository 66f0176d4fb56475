#include "tools/make-sample-jumps/recordLog.h"

#include <cmath>

namespace ospra {

namespace {

/// How well a receiver does in a surrounding, by its own judgement.
struct Reception {
    double horizontal = 0.0; // m
    double vertical = 0.0;   // m
    double speed = 0.0;      // m/s
    double satellites = 0.0;
};

constexpr Reception inAircraft{.horizontal = 5.2, .vertical = 7.0, .speed = 0.75, .satellites = 8.5};
constexpr Reception inFreefall{.horizontal = 2.4, .vertical = 3.4, .speed = 0.45, .satellites = 13.0};
constexpr Reception underCanopy{.horizontal = 1.6, .vertical = 2.3, .speed = 0.30, .satellites = 16.0};

Reception receptionAt(const JumpFlight* flight, double time)
{
    if (flight == nullptr || time < flight->exitTime)
        return inAircraft;
    return time < flight->openTime ? inFreefall : underCanopy;
}

/// The satellite receiver with its errors, which drift rather than jump about.
class Receiver {
public:
    Receiver(const RecordOrder& order, const Reception& first, const Random& random)
        : m_order(order), m_reception(first), m_north(45.0, random.fork(1)), m_east(45.0, random.fork(2)),
          m_down(45.0, random.fork(3)), m_speedNorth(0.35, random.fork(4)), m_speedEast(0.35, random.fork(5)),
          m_speedDown(0.35, random.fork(6)), m_quality(20.0, random.fork(7)), m_sky(25.0, random.fork(8)),
          m_step(1.0 / static_cast<double>(order.rate))
    {
        // WGS 84: the lengths of a degree at the place.
        constexpr double semiMajor = 6378137.0;
        constexpr double eccentricitySquared = 0.00669437999014;
        const double s = sine(order.place.latitude * degree);
        const double w = std::sqrt(1.0 - eccentricitySquared * s * s);
        m_metresNorth = semiMajor * (1.0 - eccentricitySquared) / (w * w * w) * degree;
        m_metresEast = semiMajor / w * cosine(order.place.latitude * degree) * degree;
    }

    Fix fixOf(const Motion& truth, const Reception& surrounding, std::int64_t time, double sinceStart)
    {
        settleTo(surrounding);
        const double starting = m_order.startError * exponential(-sinceStart / 4.5);
        const double quality = 1.0 + 0.1 * m_quality.step(m_step);

        Fix fix{.time = time,
                .horizontalAccuracy = m_reception.horizontal * quality + starting,
                .verticalAccuracy = m_reception.vertical * quality + 1.3 * starting,
                .speedAccuracy = m_reception.speed * quality + std::fmin(starting / 15.0, 6.0),
                .gpsFix = starting > 400.0 ? 2 : 3};
        const double sky = m_reception.satellites + 1.3 * m_sky.step(m_step) - std::fmin(starting / 8.0, 4.5);
        fix.satellites = static_cast<int>(std::fmax(sky + 0.5, 4.0));

        const double slip = 0.33 * fix.horizontalAccuracy;
        const Vector3 place = truth.position + Vector3{.north = slip * m_north.step(m_step),
                                                       .east = slip * m_east.step(m_step),
                                                       .down = 0.33 * fix.verticalAccuracy * m_down.step(m_step)};
        fix.latitude = m_order.place.latitude + place.north / m_metresNorth;
        fix.longitude = m_order.place.longitude + place.east / m_metresEast;
        fix.altitudeMSL = m_order.place.elevation - place.down;

        const double speedError = 0.18 * fix.speedAccuracy;
        fix.velocity = truth.velocity + Vector3{.north = speedError * m_speedNorth.step(m_step),
                                                .east = speedError * m_speedEast.step(m_step),
                                                .down = speedError * m_speedDown.step(m_step)};
        const double heading = angleOf(fix.velocity.east, fix.velocity.north) / degree;
        fix.heading = heading < 0.0 ? heading + 360.0 : heading;
        const double speed = std::fmax(length(horizontal(fix.velocity)), 0.05);
        fix.headingAccuracy = std::fmin(fix.speedAccuracy / speed / degree, 180.0);
        return fix;
    }

private:
    void settleTo(const Reception& surrounding)
    {
        const double share = m_step / 7.0;
        m_reception.horizontal += (surrounding.horizontal - m_reception.horizontal) * share;
        m_reception.vertical += (surrounding.vertical - m_reception.vertical) * share;
        m_reception.speed += (surrounding.speed - m_reception.speed) * share;
        m_reception.satellites += (surrounding.satellites - m_reception.satellites) * share;
    }

    const RecordOrder& m_order;
    Reception m_reception;
    Wander m_north;
    Wander m_east;
    Wander m_down;
    Wander m_speedNorth;
    Wander m_speedEast;
    Wander m_speedDown;
    Wander m_quality;
    Wander m_sky;
    double m_step; // s
    double m_metresNorth = 0.0;
    double m_metresEast = 0.0;
};

/// Tells when rows go missing: most of all in the aircraft, never around the exit and the opening.
class DropOuts {
public:
    DropOuts(const JumpFlight* flight, double step, Random random) : m_flight(flight), m_step(step), m_random(random) {}

    bool missing(double time)
    {
        const bool aboard = m_flight == nullptr || time < m_flight->exitTime;
        const double perSecond = aboard ? 1.0 / 200.0 : 1.0 / 900.0;
        const double roll = m_random.uniform();
        if (time >= m_until && roll < perSecond * m_step)
            m_until = time + (aboard ? m_random.between(0.6, 7.0) : m_random.between(0.4, 2.2));
        return time < m_until && !precious(time);
    }

private:
    [[nodiscard]] bool precious(double time) const
    {
        if (m_flight == nullptr)
            return false;
        const auto isNear = [time](double event) { return time > event - 8.0 && time < event + 10.0; };
        return isNear(m_flight->exitTime) || isNear(m_flight->pitchTime);
    }

    const JumpFlight* m_flight;
    double m_step; // s
    Random m_random;
    double m_until = -1e9; // s
};

} // namespace

std::vector<Fix> recordLog(const RecordOrder& order, const Load& load, const JumpFlight* flight, const Random& random)
{
    const std::int64_t period = 1000 / order.rate;
    const auto firstTick = static_cast<std::int64_t>(
        std::ceil((static_cast<double>(order.exitInstant) + order.from * 1000.0) / static_cast<double>(period)));
    Receiver receiver(order, receptionAt(flight, order.from), random.fork(1));
    DropOuts dropOuts(flight, 1.0 / static_cast<double>(order.rate), random.fork(2));

    std::vector<Fix> fixes;
    fixes.reserve(static_cast<std::size_t>(std::fmax(order.to - order.from, 0.0) * order.rate) + 1);
    for (std::int64_t tick = firstTick;; ++tick) {
        const double time = static_cast<double>(tick * period - order.exitInstant) / 1000.0;
        if (time >= order.to)
            break;
        const Motion truth = flight != nullptr ? motionAt(load, *flight, time) : load.aircraft.at(time);
        const Fix fix = receiver.fixOf(truth, receptionAt(flight, time), tick * period, time - order.from);
        if (!order.dropOuts || !dropOuts.missing(time))
            fixes.push_back(fix);
    }
    return fixes;
}

} // namespace ospra
