#include "logs/FlySightFile.h"
#include "logs/FlySightParseError.h"
#include "logs/probeLogDates.h"
#include "tests/logs/NaiveLogs.h"
#include "tests/properties/Flights.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace ospra::properties {

namespace {

using namespace std::string_view_literals;

template <typename... Values>
std::string print(const char* format, Values... values)
{
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

/// A column as it stands in a log: what it is called and what it fills.
struct WrittenColumn {
    std::string_view name{};
    double FlySightDataPoint::* number = nullptr;
    bool isRequired = false;
};

/// Latitude and longitude have no member of their own in a sample, and the rest are no doubles.
constexpr std::array otherNames{"time"sv, "lat"sv, "lon"sv, "gpsFix"sv, "numSV"sv};
constexpr std::array numberColumns{WrittenColumn{"hMSL", &FlySightDataPoint::altitudeMSL, true},
                                   WrittenColumn{"velN", &FlySightDataPoint::velocityNorth, true},
                                   WrittenColumn{"velE", &FlySightDataPoint::velocityEast, true},
                                   WrittenColumn{"velD", &FlySightDataPoint::velocityDown, true},
                                   WrittenColumn{"hAcc", &FlySightDataPoint::horizontalAccuracy},
                                   WrittenColumn{"vAcc", &FlySightDataPoint::verticalAccuracy},
                                   WrittenColumn{"sAcc", &FlySightDataPoint::speedAccuracy},
                                   WrittenColumn{"heading", &FlySightDataPoint::heading},
                                   WrittenColumn{"headAcc", &FlySightDataPoint::headingAccuracy}};

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
        if (m_dice.oneIn(4)) { // the logger was switched off while it wrote
            m_log.text += m_log.isVersion2 ? "$GNSS,2024-06-01T14:0" : "2024-06-01T14:0";
        }
        return std::move(m_log);
    }

private:
    void endLine()
    {
        constexpr std::array ends{"\n"sv, "\r\n"sv, "\r"sv, "\n\n"sv, "\v"sv, "\xE2\x80\xA8"sv, "\xC2\x85"sv};
        m_log.text += m_usesOneEnd ? m_end : m_dice.oneOf(ends);
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
        for (const std::string_view name : otherNames)
            if (name.size() <= 4 || !m_dice.oneIn(3))
                m_columns.push_back(name);
        for (const WrittenColumn& column : numberColumns)
            if (column.isRequired || !m_dice.oneIn(3))
                m_columns.push_back(column.name);
        for (std::ptrdiff_t unknown = m_dice.oneIn(10) ? 60 : m_dice.below(3); unknown > 0; --unknown)
            m_columns.push_back("temperature");
        m_dice.shuffle(m_columns);
        std::string names;
        for (const std::string_view column : m_columns) {
            if (!names.empty())
                names += ',';
            names += nameInAnyForm(column);
        }
        if (!m_log.isVersion2) {
            m_log.text += names;
            endLine();
            m_log.text += "(ISO8601),(deg),(deg)";
            endLine();
            return;
        }
        m_log.text += "$FLYS,1";
        endLine();
        if (m_dice.oneIn(3)) { // a head that a later one replaces
            m_log.text += "$COL,GNSS,velD,time,lat,lon";
            endLine();
        }
        for (const std::string_view line :
             {"$VAR,FIRMWARE_VER,v2023.09.22"sv, "$COL,BARO,time,pressure,temperature"sv}) {
            m_log.text += line;
            endLine();
        }
        m_log.text += "$COL,GNSS," + names;
        endLine();
        m_log.text += "$DATA";
        endLine();
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

    std::string integerText(std::int64_t& value, std::int64_t valueIfBad)
    {
        if (m_dice.oneIn(6)) {
            value = valueIfBad;
            constexpr std::array bad{""sv, "3.0"sv, " 7"sv, "-"sv, "9223372036854775808"sv, "0x2"sv};
            return std::string(m_dice.oneOf(bad));
        }
        constexpr std::array<std::int64_t, 5> values{0, 2, 14, -1, 9'223'372'036'854'775'807};
        value = m_dice.oneOf(values);
        return print(value > 0 && m_dice.oneIn(4) ? "+%lld" : "%lld", static_cast<long long>(value));
    }

    /// One cell of the row, which makes the sample what a reader finds in it.
    /// @return false if no sample can come of the row
    bool writeCell(std::string& row, std::string_view column, FlySightDataPoint& sample, bool isGood)
    {
        if (column == "time") {
            const double whole = std::floor(sample.time.seconds);
            const auto milliseconds = static_cast<std::int64_t>(std::floor((sample.time.seconds - whole) * 1000.0));
            sample.time = {whole + static_cast<double>(milliseconds) / 1000.0};
            row += isGood ? timeText(whole, milliseconds) : "2024-06-01 14:02:11Z";
            return isGood;
        }
        if (column == "lat" || column == "lon") {
            row += numberText(column == "lat" ? sample.coordinate.latitude : sample.coordinate.longitude, isGood);
            return isGood;
        }
        if (column == "gpsFix")
            row += integerText(sample.gpsFix, 3);
        if (column == "numSV")
            row += integerText(sample.numSatellites, 0);
        for (const WrittenColumn& known : numberColumns) {
            if (known.name != column)
                continue;
            row += numberText(sample.*known.number, isGood);
            if (!isGood)
                sample.*known.number = 0.0;
            return isGood || !known.isRequired;
        }
        return true;
    }

    /// What the sample is without this column.
    static bool leaveOut(std::string_view column, FlySightDataPoint& sample)
    {
        if (column == "gpsFix")
            sample.gpsFix = 3;
        if (column == "numSV")
            sample.numSatellites = 0;
        for (const WrittenColumn& known : numberColumns) {
            if (known.name == column)
                sample.*known.number = 0.0;
            if (known.name == column && known.isRequired)
                return false;
        }
        return column != "time" && column != "lat" && column != "lon";
    }

    void writeRow(FlySightDataPoint sample)
    {
        std::string row;
        bool isWhole = true;
        for (const std::string_view column : otherNames)
            if (std::ranges::find(m_columns, column) == m_columns.end())
                leaveOut(column, sample);
        for (const WrittenColumn& column : numberColumns)
            if (std::ranges::find(m_columns, column.name) == m_columns.end())
                leaveOut(column.name, sample);
        const std::ptrdiff_t count = std::ssize(m_columns);
        const std::ptrdiff_t cells = m_dice.oneIn(25) ? m_dice.between(1, count) : count;
        for (std::ptrdiff_t i = 0; i < count; ++i) {
            const std::string_view column = m_columns[static_cast<std::size_t>(i)];
            if (i >= cells) {
                isWhole &= leaveOut(column, sample);
                continue;
            }
            if (i > 0)
                row += ',';
            isWhole &= writeCell(row, column, sample, !m_dice.oneIn(200));
        }
        if (m_dice.oneIn(10) && cells == count)
            row += ",more,fields,than,names";
        if (m_log.isVersion2 && m_dice.oneIn(5)) {
            m_log.text += "$IMU,59970.376,-0.427,1.089";
            endLine();
        }
        if (m_log.isVersion2)
            row.insert(0, "$GNSS,");
        m_log.text += row;
        if (!row.empty()) // in a log of one end the last line may lack it
            endLine();
        if (isWhole)
            m_log.samples.push_back(sample);
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
    std::size_t empty = 0;
    for (std::uint64_t seed = 0; seed < 600; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        Samples flight = makeFlight(dice, dice.oneIn(3) ? Damage::values : Damage::clock);
        flight.resize(std::min<std::size_t>(flight.size(), 150));
        const WrittenLog log = LogWriter(dice).write(flight);
        // The exact size, so that a sanitizer sees a read behind the end.
        const auto bytes = std::make_unique<char[]>(log.text.size());
        log.text.copy(bytes.get(), log.text.size());
        const std::string_view text(bytes.get(), log.text.size());

        const naive::ParseResult found = naive::parseFast(text);
        naive::ParseResult expected = log.samples;
        if (log.samples.empty()) {
            ++empty;
            ASSERT_TRUE(std::holds_alternative<FlySightParseError::Case>(found));
            continue;
        }
        samples += log.samples.size();
        ASSERT_EQ(naive::difference(found, expected), "");
        ASSERT_EQ(naive::difference(naive::parse(text), expected), "");
        ASSERT_EQ(probeLogDates(text), naive::probe(text));
    }
    EXPECT_GT(samples, 25'000u);
    EXPECT_LT(empty, 40u);
}

} // namespace

} // namespace ospra::properties
