#include "tools/make-sample-jumps/JumpFlight.h"
#include "tools/make-sample-jumps/TextBuilder.h"
#include "tools/make-sample-jumps/logText.h"
#include "tools/make-sample-jumps/makeSamples.h"

namespace ospra {

namespace {

constexpr std::int64_t firstExit = 1'780'309'331'200; // ms since 1970: a day in June 2026

/// The slowest rate at which the rows do not reach back far beyond the take-off.
int chooseRate(int rows)
{
    constexpr int longest = 1500; // s
    for (const int rate : {5, 10, 20})
        if (rows <= longest * rate)
            return rate;
    return 25;
}

std::vector<Fix> makeFixes(int rows, std::int64_t exitInstant, const Random& random)
{
    const Place& place = allPlaces().front();
    const Load load = flyLoad({.place = place, .people = makePeople(0, random.fork(1))}, random.fork(2));
    const JumpFlight& flight = load.flights.front();

    RecordOrder order{.place = place, .exitInstant = exitInstant, .rate = chooseRate(rows), .dropOuts = false};
    const double span = static_cast<double>(rows + 1) / order.rate;
    const double end = flight.outside.end();
    // A long log ends with the jump's end and reaches back as far as it must; a short one has the exit in it.
    order.from = span < end ? -0.3 * span : end - span;
    order.to = order.from + span;
    std::vector<Fix> fixes = recordLog(order, load, &flight, random.fork(3));
    fixes.resize(static_cast<std::size_t>(rows));
    return fixes;
}

} // namespace

void makeBenchmarkLogs(const Options& options, OutputFolder& output)
{
    const Random random(options.seed);
    for (int i = 0; i < options.files; ++i) {
        const std::int64_t exitInstant = firstExit + std::int64_t{7'200'000} * i;
        const std::vector<Fix> fixes = makeFixes(options.rows, exitInstant, random.fork(static_cast<std::uint64_t>(i)));
        TextBuilder name;
        output.write(name.add("jump-").padded(i + 1, 5).add(".CSV").take(), logTextOne(fixes, LineEnd::lf));
    }
}

} // namespace ospra
