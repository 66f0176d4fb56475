#include "logs/probeLogDates.h"

#include "tests/support/LogText.h"

#include <gtest/gtest.h>

#include <string>

namespace ospra {

namespace {

constexpr double june = 1717250520.0; // 2024-06-01T14:02:00Z

/// A row of time and sink rate at the default columns of a plain table.
std::string rowOf(std::string_view seconds, std::string_view sinkRate)
{
    return "2024-06-01T14:02:" + std::string(seconds) + ",1,2,3,4,5," + std::string(sinkRate);
}

LogDates dates(std::optional<double> jumpSeconds, std::optional<double> freefallSeconds)
{
    LogDates result;
    if (jumpSeconds)
        result.jumpDate = Instant{june + *jumpSeconds};
    if (freefallSeconds)
        result.freefallDate = Instant{june + *freefallSeconds};
    return result;
}

LogDates probe(std::vector<std::string> rows, LogVersion version = LogVersion::version1)
{
    return probeLogDates(LogText{.version = version, .rows = std::move(rows)}.text());
}

TEST(ProbeLogDates, findsTheFirstSampleAndTheFirstFastOne)
{
    for (const LogVersion version : {LogVersion::version1, LogVersion::version2}) {
        EXPECT_EQ(probe({rowOf("01Z", "-3"), rowOf("02Z", "20"), rowOf("03.5Z", "20.01"), rowOf("04Z", "50")}, version),
                  dates(1, 3.5));
        EXPECT_EQ(probe({rowOf("01Z", "20.000")}, version), dates(1, std::nullopt)) << "exactly 20 is not above";
        EXPECT_EQ(probe({rowOf("01Z", "20.000000000000004")}, version), dates(1, 1));
        EXPECT_EQ(
            probe({rowOf("01Z", "nan"), rowOf("02Z", " 30"), rowOf("03Z", "-30"), rowOf("04Z", "0x1p5")}, version),
            dates(1, 4));
        EXPECT_EQ(probe({rowOf("01Z", "2.5e1,x")}, version), dates(1, 1));
        EXPECT_EQ(probe({rowOf("01.1234567891Z", "inf")}, version), dates(1, 1)) << "read without its fraction";
        EXPECT_EQ(probe({rowOf("01Z", "3"), rowOf("0xZ", "30"), rowOf("03Z", "40")}, version), dates(1, std::nullopt))
            << "the first fast row decides, also with a bad time";
    }
}

TEST(ProbeLogDates, triesOnlyTheFirstRowOfATableButEveryRecord)
{
    const std::vector<std::string> rows{rowOf("x", "3"), rowOf("02Z", "3"), rowOf("03Z", "30")};
    EXPECT_EQ(probe(rows), dates(std::nullopt, 3));
    EXPECT_EQ(probe(rows, LogVersion::version2), dates(2, 3));

    const std::vector<std::string> shortFirst{"2024-06-01T14:02:01Z,1", rowOf("02Z", "30")};
    EXPECT_EQ(probe(shortFirst), dates(1, 2)) << "a table needs no sink rate for the first date";
    EXPECT_EQ(probe(shortFirst, LogVersion::version2), dates(2, 2)) << "a record does";
}

TEST(ProbeLogDates, forgetsEarlierColumns)
{
    const std::string tail = "$DATA\n$GNSS,2024-06-01T14:02:01Z,30,2024-06-01T14:02:03Z\n";
    const std::string first = "$FLYS,1\n$COL,GNSS,a,velD,time\n";
    EXPECT_EQ(probeLogDates(first + tail), dates(3, 3));
    EXPECT_EQ(probeLogDates(first + "$COL,GNSS,a,velD\n" + tail), dates(1, 1));
    EXPECT_EQ(probeLogDates(first + "$COL,GNSS,a,b,time\n" + tail), LogDates{});
    EXPECT_EQ(probeLogDates(first + "$DATA,\n" + tail), dates(3, 3));
    EXPECT_EQ(probeLogDates(first + "$GNSS,2024-06-01T14:02:01Z,30\n"), LogDates{}) << "no data";
}

TEST(ProbeLogDates, wantsThreeLinesOfValidText)
{
    const std::string good = "time,a,b,c,d,e,velD\r\n\r\nunits\r\n" + rowOf("01Z", "30") + "\r\n";
    EXPECT_EQ(probeLogDates(good), dates(1, 1));
    EXPECT_EQ(probeLogDates("\xEF\xBB\xBF" + good), dates(1, 1));
    EXPECT_EQ(probeLogDates(good + "\xC3\xA9"), dates(1, 1));
    EXPECT_EQ(probeLogDates(good + "\xC3"), LogDates{}) << "a bad byte behind the last row";
    EXPECT_EQ(probeLogDates("time,velD\n" + rowOf("01Z", "30")), LogDates{});
    EXPECT_EQ(probeLogDates(""), LogDates{});
}

} // namespace

} // namespace ospra
