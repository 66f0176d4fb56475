#include "tests/support/LogText.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <random>

namespace ospra {

namespace {

constexpr std::string_view flightColumns = "time,lat,lon,hMSL,velN,velE,velD,hAcc,vAcc,sAcc,heading,cAcc,gpsFix,numSV";

void appendHead(std::string& text, LogVersion version, std::string_view columns, std::string_view lineEnd)
{
    const auto append = [&](std::string_view start, std::string_view rest) {
        text.append(start).append(rest).append(lineEnd);
    };
    if (version == LogVersion::version1) {
        append(columns, "");
        append("(ISO8601),(deg),(deg),(m),(m/s),(m/s),(m/s),", "");
        return;
    }
    append("$FLYS,1", "");
    append("$VAR,DEVICE_ID,", "003f0038484e501420353131");
    append("$COL,BARO,", "time,pressure,temperature");
    append("$COL,GNSS,", columns);
    append("$UNIT,GNSS,", "(ISO8601),(deg),(deg),(m),(m/s),(m/s),(m/s),");
    append("$DATA", "");
}

std::string_view tagOf(LogVersion version)
{
    return version == LogVersion::version2 ? "$GNSS," : "";
}

/// A part of the flight: how it sinks and how fast it goes over the ground.
struct Leg {
    double sinkRate;    // m/s
    double groundSpeed; // m/s
};

Leg legAt(double part, double exitAt)
{
    constexpr double fallPart = 0.1; // of the whole log
    if (part < exitAt)
        return {.sinkRate = -4.0, .groundSpeed = 45.0};
    if (part < exitAt + fallPart)
        return {.sinkRate = 54.0, .groundSpeed = 8.0};
    return {.sinkRate = 5.0, .groundSpeed = 11.0};
}

} // namespace

std::string LogText::text() const
{
    std::string text;
    appendHead(text, version, columns, lineEnd);
    for (const std::string& row : rows)
        text.append(tagOf(version)).append(row).append(lineEnd);
    return text;
}

std::string makeFlightLog(const FlightLogOptions& options)
{
    using namespace std::chrono;
    constexpr milliseconds step{200};
    sys_time<milliseconds> time = sys_days(2024y / June / 1) + 14h + 2min + 11s;
    double altitude = 500.0;
    double latitude = 46.94812;
    double longitude = -7.44744;
    std::minstd_rand random(options.seed);
    const auto noise = [&random](double size) { return size * (static_cast<double>(random() % 2001) / 1000.0 - 1.0); };

    std::string text;
    appendHead(text, options.version, flightColumns, options.lineEnd);
    for (std::ptrdiff_t row = 0; row < options.rows; ++row, time += step) {
        const Leg leg = legAt(static_cast<double>(row) / static_cast<double>(options.rows), options.exitAt);
        const double north = leg.groundSpeed * 0.8 + noise(3.0);
        const double east = -leg.groundSpeed * 0.6 + noise(3.0);
        const double down = leg.sinkRate + noise(2.0);
        altitude -= down * 0.2;
        latitude += north * 0.2 / 111'000.0;
        longitude += east * 0.2 / 76'000.0;
        const year_month_day day = floor<days>(time);
        const hh_mm_ss clock(time - floor<days>(time));
        std::array<char, 256> line{};
        const int length = std::snprintf(
            line.data(), line.size(),
            "%04d-%02u-%02uT%02d:%02d:%02d.%02dZ,%.7f,%.7f,%.3f,%.2f,%.2f,%.2f,%.3f,%.3f,%.2f,%.5f,%.5f,3,%d",
            static_cast<int>(day.year()), static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
            static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count() / 10), latitude,
            longitude, altitude, north, east, down, 1.5 + noise(0.4), 2.5 + noise(0.8), 0.4 + noise(0.2),
            180.0 + noise(170.0), 0.5 + noise(0.3), 14 + static_cast<int>(noise(5.0)));
        text.append(tagOf(options.version)).append(line.data(), static_cast<std::size_t>(length));
        text.append(options.lineEnd);
        for (int other = 0; options.version == LogVersion::version2 && other < options.otherRecords; ++other)
            text.append("$BARO,57073.224,95443.10,26.91").append(options.lineEnd);
    }
    return text;
}

} // namespace ospra
