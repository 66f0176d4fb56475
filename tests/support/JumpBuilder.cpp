#include "tests/support/JumpBuilder.h"

#include "analysis/detectPhases.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace ospra {

namespace {

constexpr double gravity = 9.81;          // m/s^2
constexpr double aircraftSpeed = 45.0;    // m/s over the ground
constexpr double canopySinkRate = 5.0;    // m/s
constexpr double canopySpeed = 11.0;      // m/s over the ground
constexpr double openingSeconds = 3.0;    // for the fall to become a glide
constexpr double metresPerDegree = 111e3; // along a meridian, near enough

/// The speeds towards which drag pulls a falling jumper, m/s.
struct Terminal {
    double down = 0.0;
    double forward = 0.0;
};

Terminal terminalOf(FlightStyle style)
{
    switch (style) {
    case FlightStyle::belly: return {.down = 54.0, .forward = 4.0};
    case FlightStyle::freefly: return {.down = 72.0, .forward = 6.0};
    case FlightStyle::wingsuit: return {.down = 26.0, .forward = 46.0};
    }
    return {};
}

/// A jumper on the way, moved on by one sample at a time.
class Flyer {
public:
    explicit Flyer(const JumpPlan& plan) : m_plan(plan), m_terminal(terminalOf(plan.style))
    {
        m_sample = {.time = {plan.startSeconds},
                    .coordinate = plan.start,
                    .altitudeMSL = plan.groundElevation,
                    .horizontalAccuracy = 2.0,
                    .verticalAccuracy = 3.0,
                    .speedAccuracy = 0.3,
                    .numSatellites = 12};
    }

    void flyFor(double seconds, double down, double forward)
    {
        for (long steps = std::lround(seconds * m_plan.rate); steps > 0; --steps)
            step(down, forward);
    }

    /// A sink rate follows v' = g (1 - (v / terminal)^2); forward speed nears its terminal value in five seconds.
    void fall()
    {
        double down = 0.0;
        double forward = aircraftSpeed;
        while (height() > m_plan.openingAltitude) {
            const double share = down / m_terminal.down;
            down += gravity * (1.0 - share * share) / m_plan.rate;
            forward += (m_terminal.forward - forward) / (5.0 * m_plan.rate);
            step(down, forward);
        }
        const Terminal before{.down = down, .forward = forward};
        const long steps = std::lround(openingSeconds * m_plan.rate);
        for (long i = 0; i < steps; ++i) {
            const double share = static_cast<double>(i) / static_cast<double>(steps);
            step(std::lerp(before.down, canopySinkRate, share), std::lerp(before.forward, canopySpeed, share));
        }
    }

    void land()
    {
        while (height() > canopySinkRate / m_plan.rate) {
            m_heading += 0.1 / m_plan.rate;
            step(canopySinkRate, canopySpeed);
        }
        flyFor(m_plan.groundSeconds, 0.0, 0.0);
    }

    [[nodiscard]] std::vector<FlySightDataPoint> takeSamples() { return std::move(m_samples); }

private:
    [[nodiscard]] double height() const { return m_sample.altitudeMSL - m_plan.groundElevation; }

    void step(double down, double forward)
    {
        m_sample.id = makeUuid();
        m_sample.velocityNorth = forward * std::cos(m_heading);
        m_sample.velocityEast = forward * std::sin(m_heading);
        m_sample.velocityDown = down;
        m_samples.push_back(m_sample);

        // Times are multiples of the step, not sums, so that two loggers of one rate agree to the last digit.
        m_sample.time.seconds = m_plan.startSeconds + static_cast<double>(m_samples.size()) / m_plan.rate;
        const double shrink = std::cos(m_sample.coordinate.latitude * std::numbers::pi / 180.0);
        m_sample.coordinate.latitude += m_sample.velocityNorth / m_plan.rate / metresPerDegree;
        m_sample.coordinate.longitude += m_sample.velocityEast / m_plan.rate / metresPerDegree / shrink;
        m_sample.altitudeMSL -= down / m_plan.rate;
    }

    JumpPlan m_plan;
    Terminal m_terminal;
    double m_heading = std::numbers::pi / 2.0; // radians from north, eastwards
    FlySightDataPoint m_sample{};              // the next to be written
    std::vector<FlySightDataPoint> m_samples{};
};

} // namespace

std::vector<FlySightDataPoint> makeJump(const JumpPlan& plan)
{
    Flyer flyer(plan);
    flyer.flyFor(plan.climbSeconds, -plan.exitAltitude / plan.climbSeconds, aircraftSpeed);
    flyer.fall();
    flyer.land();
    return flyer.takeSamples();
}

std::vector<FlySightDataPoint> makeJumpOf(std::int64_t samples, JumpPlan plan)
{
    plan.rate *= static_cast<double>(samples) / static_cast<double>(makeJump(plan).size());
    return makeJump(plan);
}

JumpTrack makeTrack(std::vector<FlySightDataPoint> samples, std::string name, Color color)
{
    JumpTrack track{.id = makeUuid(), .jumperName = std::move(name), .jumperColor = color};
    track.file = {.id = makeUuid(), .fileName = "jump.csv", .dataPoints = std::move(samples)};
    track.phases = detectPhases(track.file.dataPoints);
    track.statistics = computeStatistics(track.file.dataPoints, track.phases);
    for (const FlySightDataPoint& sample : track.file.dataPoints)
        track.elapsed.push_back(secondsBetween({JumpPlan{}.startSeconds}, sample.time));
    return track;
}

JumpTrack makeBareTrack(std::vector<double> elapsed, std::vector<JumpPhaseRange> phases, std::string name, Color color)
{
    JumpTrack track{.id = makeUuid(),
                    .jumperName = std::move(name),
                    .jumperColor = color,
                    .phases = std::move(phases),
                    .elapsed = std::move(elapsed)};
    for (const double seconds : track.elapsed)
        track.file.dataPoints.push_back({.id = makeUuid(), .time = {seconds}});
    return track;
}

} // namespace ospra
