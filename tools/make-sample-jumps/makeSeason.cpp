#include "tools/make-sample-jumps/JumpFlight.h"
#include "tools/make-sample-jumps/Season.h"
#include "tools/make-sample-jumps/logText.h"
#include "tools/make-sample-jumps/makeSamples.h"

#include <cstddef>
#include <cstdint>

namespace ospra {

namespace {

constexpr std::string_view notes = R"(Things to remember
packed by Tom until June; line check due
reserve repack: before the season opens
new logger since last autumn, the old one has gone to Jonas
)";

/// How one person's logger was set on one jump.
struct LoggerUse {
    LogVersion version = LogVersion::two;
    LineEnd lineEnd = LineEnd::lf;
    RecordOrder record{};
};

/// The accuracy of the first fix: mostly the receiver is warm, sometimes it has just been carried out of a hangar.
double chooseStartError(Random& random)
{
    const double roll = random.uniform();
    if (roll < 0.7)
        return random.between(6.0, 40.0);
    return roll < 0.95 ? random.between(60.0, 400.0) : random.between(800.0, 3000.0);
}

/// Mostly the usual rate. Nobody asks for more on the long flights in wingsuits, where a faster log tells nothing new.
int chooseRate(const Person& person, JumpStyle style, Random& random)
{
    const double roll = random.uniform();
    if (roll < 0.92 || style == JumpStyle::wingsuit)
        return person.rate;
    return roll < 0.96 ? 10 : roll < 0.98 ? 20 : 25;
}

class SeasonWriter {
public:
    SeasonWriter(const Options& options, OutputFolder& output)
        : m_random(options.seed), m_output(output), m_people(makePeople(options.companions, m_random.fork(1))),
          m_loads(planSeason(
              {.seed = options.seed, .jumps = options.jumps, .companions = options.companions, .end = options.end}))
    {}

    void write()
    {
        for (std::size_t i = 0; i < m_loads.size(); ++i)
            writeLoad(i);
        m_output.write(m_people.front().name + "/01 packing list.csv", notes);
    }

private:
    void writeLoad(std::size_t loadIndex)
    {
        const PlannedLoad& planned = m_loads[loadIndex];
        const Random random = m_random.fork(1000 + loadIndex);
        LoadOrder order{.place = allPlaces()[planned.placeIndex], .style = planned.style};
        for (const std::size_t person : planned.people)
            order.people.push_back(m_people[person]);
        const Load load = flyLoad(order, random);
        for (std::size_t i = 0; i < planned.people.size(); ++i)
            writeLog(loadIndex, load, i, random.fork(50 + planned.people[i]));
    }

    void writeLog(std::size_t loadIndex, const Load& load, std::size_t seat, const Random& random)
    {
        const PlannedLoad& planned = m_loads[loadIndex];
        const std::size_t personIndex = planned.people[seat];
        const LoggerUse use = chooseUse(loadIndex, load, seat, random.fork(1));
        const JumpFlight* flight = planned.oddity == Oddity::ridesDown ? nullptr : &load.flights[seat];
        const std::vector<Fix> fixes = recordLog(use.record, load, flight, random.fork(2));
        if (fixes.empty())
            return;

        const std::string start = dayText(fixes.front().time);
        const std::string clock = clockText(fixes.front().time);
        const std::string& owner = m_people[personIndex].name;
        if (use.version == LogVersion::one) {
            m_output.write(owner + "/" + start + " " + clock + ".CSV", logTextOne(fixes, use.lineEnd));
            return;
        }
        const auto device = static_cast<std::uint32_t>(310'200 + 37 * personIndex);
        const std::string folder = owner + "/" + start + "/" + clock;
        m_output.write(folder + "/TRACK.CSV", logTextTwo(fixes, device));
        m_output.write(folder + "/SENSOR.CSV", sensorText(fixes, device, random.fork(3)));
    }

    [[nodiscard]] LoggerUse chooseUse(std::size_t loadIndex, const Load& load, std::size_t seat, Random random) const
    {
        const PlannedLoad& planned = m_loads[loadIndex];
        const std::size_t personIndex = planned.people[seat];
        const Person& person = m_people[personIndex];
        LoggerUse use{.version = person.version};
        // The owner of the logbook had an older logger at first, one that ends its lines in the other way.
        if (personIndex == 0 && loadIndex < m_loads.size() / 4)
            use = {.version = LogVersion::one, .lineEnd = LineEnd::crLf};

        const bool isLastLoad = loadIndex + 1 == m_loads.size();
        RecordOrder& record = use.record;
        record.place = allPlaces()[planned.placeIndex];
        record.exitInstant = planned.exitInstant;
        record.rate = isLastLoad ? 5 : chooseRate(person, planned.style, random);
        record.startError = isLastLoad ? 15.0 : chooseStartError(random);
        const double before = random.between(150.0, 215.0);
        record.from = planned.wholeClimb ? load.aircraft.start + random.between(5.0, 50.0) : -before;
        record.to = load.flights[seat].outside.end();
        applyOddity(planned.oddity, load, record);
        return use;
    }

    static void applyOddity(Oddity oddity, const Load& load, RecordOrder& record)
    {
        switch (oddity) {
        case Oddity::none: return;
        case Oddity::startsInFreefall:
            record.from = load.flights.front().exitTime + 9.0;
            record.startError = 60.0;
            return;
        case Oddity::ridesDown:
            record.from = -240.0;
            record.to = load.aircraft.end();
            return;
        case Oddity::fewSamples:
            record.to = record.from + 1.0;
            record.dropOuts = false;
            return;
        }
    }

    Random m_random;
    OutputFolder& m_output;
    std::vector<Person> m_people;
    std::vector<PlannedLoad> m_loads;
};

} // namespace

void makeSeason(const Options& options, OutputFolder& output)
{
    SeasonWriter(options, output).write();
}

} // namespace ospra
