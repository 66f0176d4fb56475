#include "tests/logs/NaiveLogs.h"
#include "tests/support/LogText.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <utility>

namespace ospra {

namespace {

using namespace std::string_view_literals;

// What logs are damaged with: all that has a meaning somewhere in a log, and bytes that only begin to have one.
constexpr std::array lineEnds{"\n"sv, "\r\n"sv, "\r"sv, "\v"sv, "\f"sv, "\xC2\x85"sv, "\xE2\x80\xA8"sv};
constexpr std::array blanks{" "sv, "\t"sv, "\xC2\xA0"sv, "\xE2\x80\x83"sv, "\xEF\xBB\xBF"sv, "\0"sv};
constexpr std::array halves{"\xC2"sv, "\xE2\x80"sv, "\xE2\x80\xA9"sv, "\xD9\xA3"sv, "T"sv, ":"sv, "Z"sv, "+02:00"sv};
constexpr std::array digits{"-"sv, "+"sv, "."sv, ".5"sv, "0"sv, "9"sv, "99999999"sv, ".1234567890"sv};
constexpr std::array numbers{"e5"sv, "1e400"sv, "1e-400"sv, "0x1.8p3"sv, "nan"sv, "-inf"sv, "123456789012"sv};
constexpr std::array names{"time"sv, "velD"sv, "velN,"sv, "numSV"sv, "$GNSS,"sv, "$COL,GNSS,"sv};
constexpr std::array lines{"$FLYS,1\n"sv, "$DATA\n"sv, "\n$DATA"sv, "\n2024-02-30T24:00:60Z,"sv};
constexpr std::array fields{","sv, ",,"sv, ",1,2,3,4"sv, "2024-06-01T14:02:11.20Z,"sv};
constexpr std::array<std::span<const std::string_view>, 8> pieces{lineEnds, blanks, halves, digits,
                                                                  numbers,  names,  lines,  fields};

class Damage {
public:
    explicit Damage(unsigned seed) : m_random(seed) {}

    [[nodiscard]] std::size_t upTo(std::size_t most) { return m_random() % (most + 1); }

    void change(std::string& text)
    {
        const std::size_t at = upTo(text.size());
        const std::size_t count = std::min(upTo(upTo(3) == 0 ? 200 : 4), text.size() - at);
        switch (upTo(5)) {
        case 0: text.erase(at, count); break;
        case 1: text.insert(upTo(text.size()), text.substr(at, count)); break;
        case 2: text.replace(at, count, piece()); break;
        case 3: text.resize(at < text.size() / 2 ? text.size() : at); break;
        case 4:
            if (at < text.size())
                text[at] = static_cast<char>(m_random());
            break;
        default: text.insert(at, piece()); break;
        }
    }

private:
    std::string_view piece()
    {
        const std::span<const std::string_view> kind = pieces[upTo(pieces.size() - 1)];
        return kind[upTo(kind.size() - 1)];
    }

    std::mt19937 m_random;
};

/// Small logs of both versions with many line ends, with wide rows, and with values that no logger writes.
std::string soundLog(Damage& damage)
{
    constexpr std::array ends{"\n"sv, "\r\n"sv, "\xE2\x80\xA8"sv};
    const LogVersion version = damage.upTo(1) == 0 ? LogVersion::version1 : LogVersion::version2;
    const std::string_view lineEnd = ends[damage.upTo(ends.size() - 1)];
    if (damage.upTo(3) != 0)
        return makeFlightLog({.version = version,
                              .rows = 3 * static_cast<std::ptrdiff_t>(damage.upTo(3)),
                              .lineEnd = lineEnd,
                              .otherRecords = static_cast<int>(damage.upTo(1)),
                              .seed = static_cast<unsigned>(damage.upTo(1000))});
    LogText log{.version = version, .columns = "velD,velE,velN,hMSL,lon,lat", .lineEnd = std::string(lineEnd)};
    const std::string gap(damage.upTo(1) == 0 ? 1 : 45, ',');
    log.columns += gap + "time,gpsFix";
    for (std::size_t row = damage.upTo(6); row > 0; --row)
        log.rows.push_back(std::to_string(18 + row) + ".5,-4.25,nan,0x1p3,12345678901.5,1e2" + gap +
                           "2024-06-01T23:59:58.123-00:30,2");
    return log.text();
}

/// Lets both readers and both probes read a text, and gives what they agree upon.
std::pair<naive::ParseResult, LogDates> readBothWays(std::string_view text)
{
    // The exact size, so that a sanitizer sees a read behind the end.
    const auto bytes = std::make_unique<char[]>(text.size());
    text.copy(bytes.get(), text.size());
    const std::string_view exact(bytes.get(), text.size());
    std::pair both{naive::parseFast(exact), probeLogDates(exact)};
    EXPECT_EQ(naive::difference(both.first, naive::parse(exact)), "");
    EXPECT_EQ(both.second, naive::probe(exact));
    return both;
}

TEST(DamagedLogs, areReadAndProbedAsThePlainWayDoes)
{
    constexpr unsigned logs = 6'000;
    unsigned readable = 0;
    unsigned dated = 0;
    for (unsigned seed = 0; seed < logs && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Damage damage(seed);
        std::string text = soundLog(damage);
        for (std::size_t change = damage.upTo(12); change > 0; --change)
            damage.change(text);
        const auto [result, dates] = readBothWays(text);
        readable += std::holds_alternative<std::vector<FlySightDataPoint>>(result) ? 1 : 0;
        dated += dates.freefallDate ? 1 : 0;
    }
    EXPECT_GT(readable, logs / 4) << "too much damage tests nothing";
    EXPECT_LT(readable, logs * 3 / 4);
    EXPECT_GT(dated, logs / 10);
}

TEST(DamagedLogs, mayEndAnywhere)
{
    const std::string text = makeFlightLog({.version = LogVersion::version2, .rows = 6, .lineEnd = "\xE2\x80\xA9"});
    for (std::size_t size = 0; size <= text.size() && !HasFailure(); ++size) {
        SCOPED_TRACE(size);
        readBothWays(std::string_view(text).substr(0, size));
    }
}

/// Large enough for all that is set aside for the usual size of a log, and with the exit far from its start.
TEST(WholeFlights, areReadToTheirEnd)
{
    for (const LogVersion version : {LogVersion::version1, LogVersion::version2}) {
        const auto [result, dates] = readBothWays(
            makeFlightLog({.version = version, .rows = 3000, .lineEnd = "\r\n", .exitAt = 0.5, .otherRecords = 2}));
        EXPECT_EQ(std::get<std::vector<FlySightDataPoint>>(result).size(), 3000u);
        EXPECT_EQ(secondsBetween(dates.jumpDate.value(), dates.freefallDate.value()), 1500 * 0.2);
        const auto landed = readBothWays(makeFlightLog({.version = version, .rows = 2000, .exitAt = 2.0})).second;
        EXPECT_EQ(landed.freefallDate, std::nullopt);
    }
}

} // namespace

} // namespace ospra
