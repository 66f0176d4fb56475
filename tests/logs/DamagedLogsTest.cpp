#include "tests/logs/NaiveLogs.h"
#include "tests/support/LogText.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <random>
#include <string>

namespace ospra {

namespace {

using namespace std::string_view_literals;

/// What logs are damaged with: all that has a meaning somewhere in a log.
constexpr std::array pieces{","sv,
                            ",,"sv,
                            "\n"sv,
                            "\r\n"sv,
                            "\r"sv,
                            "\v"sv,
                            "\f"sv,
                            "\xC2\x85"sv,
                            "\xE2\x80\xA8"sv,
                            "\xE2\x80\xA9"sv,
                            "\xC2"sv,
                            "\xE2\x80"sv,
                            "\xC2\xA0"sv,
                            "\xE2\x80\x83"sv,
                            "\xEF\xBB\xBF"sv,
                            " "sv,
                            "\t"sv,
                            "\0"sv,
                            "-"sv,
                            "+"sv,
                            "."sv,
                            ".5"sv,
                            "0"sv,
                            "9"sv,
                            "e5"sv,
                            "1e400"sv,
                            "1e-400"sv,
                            "0x1.8p3"sv,
                            "nan"sv,
                            "-inf"sv,
                            "99999999"sv,
                            "123456789012"sv,
                            "Z"sv,
                            "+02:00"sv,
                            ":"sv,
                            "T"sv,
                            "$FLYS,1\n"sv,
                            "$DATA\n"sv,
                            "$GNSS,"sv,
                            "$COL,GNSS,"sv,
                            "time"sv,
                            "velD"sv,
                            "velN,"sv,
                            "numSV"sv,
                            "\n$DATA"sv,
                            ".1234567890"sv,
                            "\xD9\xA3"sv,
                            "2024-06-01T14:02:11.20Z,"sv,
                            ",1,2,3,4"sv,
                            "\n2024-02-30T24:00:60Z,"sv};

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
        case 2: text.replace(at, count, pieces[upTo(pieces.size() - 1)]); break;
        case 3: text.resize(at < text.size() / 2 ? text.size() : at); break;
        case 4:
            if (at < text.size())
                text[at] = static_cast<char>(m_random());
            break;
        default: text.insert(at, pieces[upTo(pieces.size() - 1)]); break;
        }
    }

private:
    std::mt19937 m_random;
};

/// Small logs of both versions with many line ends, with wide rows, and with values that no logger writes.
std::string soundLog(Damage& damage)
{
    constexpr std::array lineEnds{"\n"sv, "\r\n"sv, "\xE2\x80\xA8"sv};
    const LogVersion version = damage.upTo(1) == 0 ? LogVersion::version1 : LogVersion::version2;
    const std::string_view lineEnd = lineEnds[damage.upTo(lineEnds.size() - 1)];
    if (damage.upTo(3) != 0)
        return makeFlightLog({.version = version,
                              .rows = std::ssize(lineEnds) * static_cast<std::ptrdiff_t>(damage.upTo(3)),
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

TEST(DamagedLogs, areReadAndProbedAsThePlainWayDoes)
{
    constexpr unsigned logs = 6'000;
    unsigned readable = 0;
    unsigned dated = 0;
    for (unsigned seed = 0; seed < logs; ++seed) {
        Damage damage(seed);
        std::string text = soundLog(damage);
        for (std::size_t change = damage.upTo(12); change > 0; --change)
            damage.change(text);
        // The exact size, so that a sanitizer sees a read behind the end.
        const auto bytes = std::make_unique<char[]>(text.size());
        text.copy(bytes.get(), text.size());
        const std::string_view exact(bytes.get(), text.size());

        const naive::ParseResult result = naive::parseFast(exact);
        ASSERT_EQ(naive::difference(result, naive::parse(exact)), "") << "seed " << seed;
        const LogDates dates = probeLogDates(exact);
        ASSERT_EQ(dates, naive::probe(exact)) << "seed " << seed;
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
    for (std::size_t size = 0; size <= text.size(); ++size) {
        const auto bytes = std::make_unique<char[]>(size);
        text.copy(bytes.get(), size);
        const std::string_view exact(bytes.get(), size);
        ASSERT_EQ(naive::difference(naive::parseFast(exact), naive::parse(exact)), "") << size;
        ASSERT_EQ(probeLogDates(exact), naive::probe(exact)) << size;
    }
}

} // namespace

} // namespace ospra
