#include "logs/FlySightFile.h"

#include "tests/logs/NaiveLogs.h"
#include "tests/support/LogText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <string>

namespace ospra {

namespace {

using namespace std::string_view_literals;
using Case = FlySightParseError::Case;

const std::string row = "2024-06-01T14:02:11.20Z,46.9481200,7.4474400,4012.337,-31.25,12.40,2.18";

std::vector<FlySightDataPoint> samplesOf(std::string_view text)
{
    return FlySightFile::parse(text, "jump.csv").dataPoints;
}

/// The altitudes of all samples, by which the tests tell rows apart; none if the text cannot be read.
std::vector<double> altitudesOf(std::string_view text)
{
    std::vector<double> altitudes;
    const naive::ParseResult result = naive::parseFast(text);
    if (const auto* const samples = std::get_if<std::vector<FlySightDataPoint>>(&result))
        std::ranges::transform(*samples, std::back_inserter(altitudes), &FlySightDataPoint::altitudeMSL);
    return altitudes;
}

std::optional<Case> errorOf(std::string_view text)
{
    const naive::ParseResult result = naive::parseFast(text);
    const auto* const error = std::get_if<Case>(&result);
    return error ? std::optional(*error) : std::nullopt;
}

std::string rowAt(int altitude)
{
    return "2024-06-01T14:02:11Z,1,2," + std::to_string(altitude) + ",3,4,5";
}

TEST(FlySightFile, readsThePlainTable)
{
    const FlySightFile file = FlySightFile::parse(
        "time,lat,lon,hMSL,velN,velE,velD,hAcc,vAcc,sAcc,gpsFix,numSV\n"
        "(ISO8601),(deg),(deg),(m),(m/s),(m/s),(m/s),(m),(m),(m/s),,\n"
        "2024-06-01T14:02:11.20Z,46.9481200,7.4474400,4012.337,-31.25,12.40,2.18,3.112,4.870,0.52,3,14\n",
        "14-02-11.CSV");
    EXPECT_EQ(file.fileName, "14-02-11.CSV");
    ASSERT_EQ(file.dataPoints.size(), 1u);
    const FlySightDataPoint& sample = file.dataPoints[0];
    EXPECT_EQ(sample.time, Instant{1717250531.2});
    EXPECT_EQ(sample.coordinate, (Coordinate{46.94812, 7.44744}));
    EXPECT_EQ(sample.altitudeMSL, 4012.337);
    EXPECT_EQ(sample.velocityNorth, -31.25);
    EXPECT_EQ(sample.velocityEast, 12.40);
    EXPECT_EQ(sample.velocityDown, 2.18);
    EXPECT_EQ(sample.horizontalAccuracy, 3.112);
    EXPECT_EQ(sample.verticalAccuracy, 4.870);
    EXPECT_EQ(sample.speedAccuracy, 0.52);
    EXPECT_EQ(sample.gpsFix, 3);
    EXPECT_EQ(sample.numSatellites, 14);
    EXPECT_EQ(sample.heading, 0.0);
    EXPECT_EQ(sample.headingAccuracy, 0.0);
    EXPECT_EQ(horizontalSpeed(sample), std::sqrt(31.25 * 31.25 + 12.40 * 12.40));
    EXPECT_EQ(totalSpeed({.velocityNorth = 2.0, .velocityEast = -3.0, .velocityDown = -6.0}), 7.0);
}

TEST(FlySightFile, readsTaggedRecords)
{
    const std::string head = "$FLYS,1\n$VAR,FIRMWARE_VER,v2023\n"
                             "$COL,GNSS,time,lat,lon,hMSL,velN,velE,velD,heading,headAcc,hAcc,vAcc,sAcc,numSV\n";
    const std::string body =
        "$DATA\n$IMU,1,2,3\n"
        "$GNSS,2024-06-01T16:02:11.200+02:00,46.94812,7.44744,4012.337,-31.25,12.40,-2.18,301,8,1,2,3,9\n"
        "$GNSS\n$gnss," +
        row + "\n$GNSS,\n$TIME,5\n $GNSS," + row + "\n";
    const std::vector<FlySightDataPoint> samples = samplesOf(head + body);
    ASSERT_EQ(samples.size(), 1u);
    EXPECT_EQ(samples[0].time, Instant{1717250531.2});
    EXPECT_EQ(samples[0].velocityDown, -2.18);
    EXPECT_EQ(samples[0].heading, 301.0);
    EXPECT_EQ(samples[0].headingAccuracy, 8.0);
    EXPECT_EQ(samples[0].speedAccuracy, 3.0);
    EXPECT_EQ(samples[0].gpsFix, 3) << "there is no such column";
    EXPECT_EQ(samples[0].numSatellites, 9);

    const std::string other = "$COL,GNSS,hMSL,time,lat,lon,velN,velE,velD\n";
    EXPECT_EQ(errorOf(head + other + body), Case::noData) << "the later columns count";
    EXPECT_EQ(altitudesOf(head + "$COL,GNSS,hMSL\n" + head + body), std::vector{4012.337}) << "whatever came before";
    EXPECT_EQ(altitudesOf(head + "$DATA\n" + other + "$GNSS," + row), std::vector{4012.337});
    EXPECT_EQ(errorOf(head + "$COL,GNSS,time\n" + body), Case::invalidFormat);
    EXPECT_EQ(errorOf(head + "$DATA \n$GNSS," + row + "\n"), Case::invalidFormat);
    EXPECT_EQ(errorOf(head + "$DATA\n"), Case::noData);
    EXPECT_EQ(errorOf("$FLYS,1\n" + body), Case::invalidFormat);
}

TEST(FlySightFile, wantsThreeLinesAndTheColumns)
{
    const std::string header = "time,lat,lon,hMSL,velN,velE,velD\n";
    EXPECT_EQ(errorOf(""), Case::invalidFormat);
    EXPECT_EQ(errorOf("\n\r\n\v"), Case::invalidFormat);
    EXPECT_EQ(errorOf(header + row), Case::invalidFormat);
    EXPECT_EQ(errorOf(header + "units\n" + "x"), Case::noData);
    EXPECT_EQ(altitudesOf(header + rowAt(1) + "\n" + rowAt(2)), std::vector{2.0}) << "the units line is never read";
    EXPECT_EQ(errorOf("time,lat,lon,hMSL,velN,velE\nu\n" + row), Case::invalidFormat);
    EXPECT_EQ(errorOf("time,lat,lon,hMSL,velD\nu\n" + row), Case::noData) << "each row must have velN and velE";
    EXPECT_STREQ(FlySightParseError(Case::invalidFormat).what(), "Invalid FlySight CSV format");
    EXPECT_STREQ(FlySightParseError(Case::noData).what(), "No data points found");
}

TEST(FlySightFile, normalisesTheNamesOfColumns)
{
    for (const std::string_view header :
         {"TIME,Lat,lOn,HMSL,VELN,vele,veld", " time,lat , lon ,\thMSL\t,velN,velE,velD ",
          "\xC2\xA0time\xE2\x80\x83,\xE3\x80\x80lat,lon\xE1\x9A\x80,hMSL\xE2\x80\xAF,velN\xE2\x81\x9F,velE,velD",
          "\xEF\xBB\xBFtime,lat,lon,hMSL,velN,velE,velD", "time,lat,lon,hMSL,velN,velE,velD,,unknown,headings",
          "hMSL,lat,lon,hMSL,velN,velE,velD,time,time"}) {
        const std::string late = header.ends_with("time") ? ",x,2024-06-01T14:02:11Z" : "";
        EXPECT_EQ(altitudesOf(std::string(header) + "\nunits\n" + row + late), std::vector{4012.337}) << header;
    }
    for (const std::string_view header :
         {"\0time,lat,lon,hMSL,velN,velE,velD"sv, "ti me,lat,lon,hMSL,velN,velE,velD"sv,
          "\"time\",lat,lon,hMSL,velN,velE,velD"sv, "time,lat,lon,hMSL,velN,velE,velD\xE2\x80\x8B"sv,
          "\xEF\xBB\xBF\xEF\xBB\xBFtime,lat,lon,hMSL,velN,velE,velD"sv}) {
        EXPECT_EQ(errorOf(std::string(header) + "\nunits\n" + row), Case::invalidFormat) << header;
    }
}

TEST(FlySightFile, endsLinesAtEveryNewline)
{
    const std::string header = "time,lat,lon,hMSL,velN,velE,velD";
    for (const std::string_view end :
         {"\n", "\r", "\r\n", "\v", "\f", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9", "\n\n\r"}) {
        std::string text;
        for (const std::string& line : {std::string(), header, std::string(" "), rowAt(1), std::string(), rowAt(2)})
            text.append(line).append(end);
        EXPECT_EQ(altitudesOf(text), (std::vector{1.0, 2.0})) << testing::PrintToString(end);
        text.resize(text.size() - end.size());
        EXPECT_EQ(altitudesOf(text), (std::vector{1.0, 2.0})) << "no end behind the last line";
    }
    for (const std::string_view noEnd :
         {"\xC2\x86", "\xE2\x80\xAA", "\xE2\x81\xA8", "\xC2", "\xE2\x80", "\x1C", "\b"}) {
        const std::string text = std::string(header).append(noEnd).append("u").append(noEnd).append(row);
        EXPECT_EQ(errorOf(text), Case::invalidFormat) << testing::PrintToString(noEnd);
    }
}

TEST(FlySightFile, dropsRowsThatLackWhatASampleNeeds)
{
    const auto samplesWith = [](const std::string& fields) {
        const LogText log{.columns = "time,lat,lon,hMSL,velN,velE,velD,hAcc", .rows = {rowAt(1), fields, rowAt(2)}};
        return altitudesOf(log.text()).size();
    };
    const std::string time = "2024-06-01T14:02:11Z";
    for (const char* const kept : {",1,2,3,4,5,6", ",1,2,3,4,5,6,,,,,,,,,,", ",nan,inf,-0x1p3,1e5,+5,.6"})
        EXPECT_EQ(samplesWith(time + kept), 3u) << kept;
    for (const char* const dropped :
         {",1,2,3,4,5", ",1,2,3,4,5,", ",1,2,3,,5,6", ", 1,2,3,4,5,6", ",1,2,3,4,x,6", "x,1,2,3,4,5,6"})
        EXPECT_EQ(samplesWith(time + dropped), 2u) << dropped;
    for (const char* const withoutTime : {"2024-06-01T14:02:11,1,2,3,4,5,6", ",1,2,3,4,5,6", ",,,,,,,,,,,,,,",
                                          "\"2024-06-01T14:02:11Z\",1,2,3,4,5,6", "2024-06-01T14:02:61Z,1,2,3,4,5,6"})
        EXPECT_EQ(samplesWith(withoutTime), 2u) << withoutTime;
}

TEST(FlySightFile, readsEveryTimeAnewThoughItRemembersTheMinute)
{
    const std::vector<std::string> times{
        "2024-06-01T14:02:59.99Z",  "2024-06-01T14:02:00Z",         "2024-06-01T14:02:07.1234567891Z",
        "2024-06-01T14:02:07.5Z",   "2024-06-01T14:02:07.12+00:00", "2024-06-01T14:02:60.00Z",
        "2024-06-01T14:02:07.Z",    "2024-06-01T14:02:7Z",          "2024-06-01T14:02:07.1xZ",
        "2024-06-01T14:03:07.25Z",  "2024-06-01T15:03:08-01:00",    "2024-06-01T15:03:09Z",
        "2024-06-01T14:02:09.250Z", "1969-12-31T23:59:58.5Z",       "1969-12-31T23:59:59.5Z",
        "1970-01-01T00:00:01.5Z"};
    LogText log;
    std::vector<Instant> expected;
    for (const std::string& time : times) {
        log.rows.push_back(time + ",1,2,3,4,5,6");
        if (const std::optional<Instant> date = naive::date(time))
            expected.push_back(*date);
    }
    std::vector<Instant> found;
    for (const FlySightDataPoint& sample : samplesOf(log.text()))
        found.push_back(sample.time);
    EXPECT_EQ(found, expected);
    EXPECT_EQ(found.size(), 11u);
}

TEST(FlySightFile, findsColumnsAtAnyPosition)
{
    // The last column lies at 8 and more, with the places around 47, from which on rows are cut in another way.
    for (const std::size_t spacing : {0u, 1u, 7u, 8u, 30u, 38u, 39u, 40u, 100u, 1000u}) {
        const std::string gap(spacing + 1, ',');
        const LogText log{
            .columns = "time" + gap + "lat,lon,hMSL,velN,velE,velD,numSV,sAcc",
            .rows = {"2024-06-01T14:02:11Z" + gap + "1,2,3,4,5,6,7,8", "2024-06-01T14:02:11Z" + gap + "1,2,3,4,5"}};
        const std::vector<FlySightDataPoint> samples = samplesOf(log.text());
        ASSERT_EQ(samples.size(), 1u) << spacing;
        EXPECT_EQ(samples[0].altitudeMSL, 3.0);
        EXPECT_EQ(samples[0].velocityDown, 6.0);
        EXPECT_EQ(samples[0].numSatellites, 7);
        EXPECT_EQ(samples[0].speedAccuracy, 8.0);
    }
}

TEST(FlySightFile, givesFreshIds)
{
    const std::string text = LogText{.rows = {rowAt(1), rowAt(2)}}.text();
    std::set<Uuid> ids;
    for (int i = 0; i < 2; ++i) {
        const FlySightFile file = FlySightFile::parse(text, "");
        ids.insert(file.id);
        for (const FlySightDataPoint& sample : file.dataPoints)
            ids.insert(sample.id);
    }
    EXPECT_EQ(ids.size(), 6u);
    EXPECT_FALSE(ids.contains(Uuid{}));
}

} // namespace

} // namespace ospra
