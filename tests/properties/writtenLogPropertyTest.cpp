#include "logs/FlySightFile.h"
#include "logs/FlySightParseError.h"
#include "logs/probeLogDates.h"
#include "tests/logs/NaiveLogs.h"
#include "tests/properties/Flights.h"
#include "tests/properties/print.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace ospra::properties {

namespace {

using namespace std::string_view_literals;

constexpr std::array requiredColumns{"time"sv, "lat"sv, "lon"sv, "hMSL"sv, "velN"sv, "velE"sv, "velD"sv};
constexpr std::array otherColumns{"gpsFix"sv, "numSV"sv, "hAcc"sv, "vAcc"sv, "sAcc"sv, "heading"sv, "headAcc"sv};

/// Where a sample keeps what stands in a column of plain numbers.
double& numberIn(FlySightDataPoint& sample, std::string_view column)
{
    constexpr std::array members{std::pair{"hMSL"sv, &FlySightDataPoint::altitudeMSL},
                                 std::pair{"velN"sv, &FlySightDataPoint::velocityNorth},
                                 std::pair{"velE"sv, &FlySightDataPoint::velocityEast},
                                 std::pair{"velD"sv, &FlySightDataPoint::velocityDown},
                                 std::pair{"hAcc"sv, &FlySightDataPoint::horizontalAccuracy},
                                 std::pair{"vAcc"sv, &FlySightDataPoint::verticalAccuracy},
                                 std::pair{"sAcc"sv, &FlySightDataPoint::speedAccuracy},
                                 std::pair{"heading"sv, &FlySightDataPoint::heading},
                                 std::pair{"headAcc"sv, &FlySightDataPoint::headingAccuracy}};
    for (const auto& [name, member] : members)
        if (name == column)
            return sample.*member;
    return column == "lat" ? sample.coordinate.latitude : sample.coordinate.longitude;
}

/// A log being written, with what a reader must find in it.
struct WrittenLog {
    std::string text{};
    Samples samples{};
    bool isVersion2 = false;
};

class LogWriter {
public:
    explicit LogWriter(Dice& dice) : m_dice(dice) {}

    WrittenLog write(const Samples& flight)
    {
        m_log.isVersion2 = m_dice.oneIn(2);
        if (m_dice.oneIn(6))
            m_log.text = "\xEF\xBB\xBF";
        writeHead();
        for (const FlySightDataPoint& sample : flight)
            writeRow(sample);
        if (m_dice.oneIn(4)) // the logger was switched off while it wrote
            m_log.text += m_log.isVersion2 ? "$GNSS,2024-06-01T14:0" : "2024-06-01T14:0";
        return std::move(m_log);
    }

private:
    void writeLine(std::string_view line)
    {
        constexpr std::array ends{"\n"sv, "\r\n"sv, "\r"sv, "\n\n"sv, "\v"sv, "\xE2\x80\xA8"sv, "\xC2\x85"sv};
        m_log.text.append(line).append(m_usesOneEnd ? m_end : m_dice.oneOf(ends));
    }

    std::string nameInAnyForm(std::string_view name)
    {
        std::string form(name);
        for (char& letter : form)
            if (m_dice.oneIn(4) && letter >= 'a' && letter <= 'z')
                letter = static_cast<char>(letter - 'a' + 'A');
        constexpr std::array blanks{""sv, ""sv, " "sv, "\t "sv, "\xC2\xA0"sv};
        return std::string(m_dice.oneOf(blanks)) + form + std::string(m_dice.oneOf(blanks));
    }

    void writeHead()
    {
        m_usesOneEnd = !m_dice.oneIn(4);
        m_end = m_dice.oneIn(2) ? "\n" : "\r\n";
        m_columns.assign(requiredColumns.begin(), requiredColumns.end());
        for (const std::string_view name : otherColumns)
            if (!m_dice.oneIn(3))
                m_columns.push_back(name);
        for (std::ptrdiff_t unknown = m_dice.oneIn(10) ? 60 : m_dice.below(3); unknown > 0; --unknown)
            m_columns.push_back("temperature");
        m_dice.shuffle(m_columns);
        std::string names;
        for (const std::string_view column : m_columns)
            names.append(names.empty() ? "" : ",").append(nameInAnyForm(column));
        if (!m_log.isVersion2) {
            writeLine(names);
            writeLine("(ISO8601),(deg),(deg)");
            return;
        }
        writeLine("$FLYS,1");
        if (m_dice.oneIn(3)) // columns that later ones replace
            writeLine("$COL,GNSS,velD,time,lat,lon");
        writeLine("$VAR,FIRMWARE_VER,v2023.09.22");
        writeLine("$COL,BARO,time,pressure,temperature");
        writeLine("$COL,GNSS," + names);
        writeLine("$DATA");
    }

    /// A number so that it is read back to the last bit, or as something that is none.
    std::string numberText(double value, bool isGood)
    {
        if (!isGood) {
            constexpr std::array bad{""sv, " 5"sv, "5 "sv, "abc"sv, "1e"sv, "0x"sv, "1\0002"sv, "--5"sv, "5;"sv, "."sv};
            return std::string(m_dice.oneOf(bad));
        }
        switch (m_dice.below(5)) {
        case 0: return print("%a", value);
        case 1: return std::signbit(value) || std::isnan(value) ? print("%.17g", value) : print("+%.17g", value);
        case 2: return print("%.20E", value);
        default: return print("%.17g", value);
        }
    }

    std::string timeText(double seconds, std::int64_t milliseconds)
    {
        using namespace std::chrono;
        const std::ptrdiff_t zone = m_dice.oneIn(5) ? m_dice.between(-23, 23) * 1'800 : 0;
        const sys_seconds local{std::chrono::seconds(static_cast<std::int64_t>(seconds) + zone)};
        const sys_days day = floor<days>(local);
        const year_month_day date(day);
        const hh_mm_ss clock(local - day);
        std::string text =
            print("%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
        if (milliseconds != 0 || m_dice.oneIn(2)) {
            text += print(".%03d", static_cast<int>(milliseconds));
            while (text.ends_with('0') && text[text.size() - 2] != '.' && m_dice.oneIn(2))
                text.pop_back();
        }
        if (zone == 0)
            return text + (m_dice.oneIn(9) ? "+00:00" : "Z");
        const int minutes = static_cast<int>(std::abs(zone) / 60);
        return text + print("%c%02d:%02d", zone < 0 ? '-' : '+', minutes / 60, minutes % 60);
    }

    /// An integer for the sample, or something that is none and leaves the sample as it is.
    std::string integerText(std::int64_t& value)
    {
        if (m_dice.oneIn(6)) {
            constexpr std::array bad{""sv, "3.0"sv, " 7"sv, "-"sv, "9223372036854775808"sv, "0x2"sv};
            return std::string(m_dice.oneOf(bad));
        }
        constexpr std::array<std::int64_t, 5> values{0, 2, 14, -1, 9'223'372'036'854'775'807};
        value = m_dice.oneOf(values);
        return print(value > 0 && m_dice.oneIn(4) ? "+%lld" : "%lld", static_cast<long long>(value));
    }

    /// One cell of the row of a flown sample. What a reader finds in it goes into the other sample.
    std::string cellText(std::string_view column, FlySightDataPoint flown, FlySightDataPoint& found, bool isGood)
    {
        if (column == "temperature")
            return "";
        if (column == "gpsFix")
            return integerText(found.gpsFix);
        if (column == "numSV")
            return integerText(found.numSatellites);
        if (column == "time") {
            const double whole = std::floor(flown.time.seconds);
            const auto milliseconds = static_cast<std::int64_t>(std::floor((flown.time.seconds - whole) * 1000.0));
            found.time = {whole + static_cast<double>(milliseconds) / 1000.0};
            return isGood ? timeText(whole, milliseconds) : "2024-06-01 14:02:11Z";
        }
        if (isGood)
            numberIn(found, column) = numberIn(flown, column);
        return numberText(numberIn(flown, column), isGood);
    }

    void writeRow(const FlySightDataPoint& flown)
    {
        if (m_log.isVersion2 && m_dice.oneIn(5))
            writeLine("$IMU,59970.376,-0.427,1.089");
        FlySightDataPoint found; // keeps its defaults where the row tells nothing
        std::ptrdiff_t missing = std::ssize(requiredColumns);
        std::string row = m_log.isVersion2 ? "$GNSS" : "";
        const std::ptrdiff_t count = std::ssize(m_columns);
        const std::ptrdiff_t cells = m_dice.oneIn(25) ? m_dice.between(1, count) : count;
        for (std::ptrdiff_t i = 0; i < cells; ++i) {
            const std::string_view column = m_columns[static_cast<std::size_t>(i)];
            const bool isGood = !m_dice.oneIn(200);
            row.append(row.empty() && i == 0 ? "" : ",").append(cellText(column, flown, found, isGood));
            missing -= isGood ? std::ranges::count(requiredColumns, column) : 0;
        }
        if (m_dice.oneIn(10) && cells == count)
            row += ",more,fields,than,names";
        writeLine(row);
        if (missing == 0)
            m_log.samples.push_back(found);
    }

    Dice& m_dice;
    WrittenLog m_log{};
    std::vector<std::string_view> m_columns{};
    std::string_view m_end = "\n";
    bool m_usesOneEnd = true;
};

/// Compares by the second reader's measure, which takes all NaNs for one.
TEST(WrittenLogs, areReadBackToTheLastBit)
{
    std::size_t samples = 0;
    int empty = 0;
    forSeeds(600, [&](Dice& dice) {
        Samples flight = makeFlight(dice, dice.oneIn(3) ? Damage::values : Damage::clock);
        flight.resize(std::min<std::size_t>(flight.size(), 150));
        const WrittenLog log = LogWriter(dice).write(flight);
        // The exact size, so that a sanitizer sees a read behind the end.
        const auto bytes = std::make_unique<char[]>(log.text.size());
        log.text.copy(bytes.get(), log.text.size());
        const std::string_view text(bytes.get(), log.text.size());

        const naive::ParseResult found = naive::parseFast(text);
        if (log.samples.empty()) {
            ++empty;
            ASSERT_TRUE(std::holds_alternative<FlySightParseError::Case>(found));
            return;
        }
        samples += log.samples.size();
        ASSERT_EQ(naive::difference(found, log.samples), "");
        ASSERT_EQ(naive::difference(naive::parse(text), log.samples), "");
        ASSERT_EQ(probeLogDates(text), naive::probe(text));
    });
    EXPECT_GT(samples, 25'000u);
    EXPECT_LT(empty, 40);
}

} // namespace

} // namespace ospra::properties
