#include "logs/parseDate.h"

#include "tests/logs/NaiveLogs.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <string>
#include <vector>

namespace ospra {

namespace {

constexpr double june = 1717250531.0; // 2024-06-01T14:02:11Z, by `date -u +%s`

TEST(ParseDate, readsBothFormsAndAppliesTheZone)
{
    struct Row {
        std::string_view field;
        double seconds;
    };
    for (const auto& [field, seconds] :
         {Row{"2024-06-01T14:02:11Z", june}, Row{"2024-06-01T14:02:11.2Z", june + 0.2},
          Row{"2024-06-01T14:02:11.20Z", june + 200 / 1000.0}, Row{"2024-06-01T14:02:11.007Z", june + 7 / 1000.0},
          Row{"2024-06-01T14:02:11.123999999Z", june + 123 / 1000.0}, Row{"2024-06-01T16:02:11+02:00", june},
          Row{"2024-06-01T16:02:11.5+02:00", june + 0.5}, Row{"2024-06-01T00:32:11-13:30", june},
          Row{"2024-05-31T14:03:11-23:59", june}, Row{"1970-01-01T00:00:00Z", 0.0},
          Row{"1969-12-31T23:59:59.250Z", -0.75}, Row{"2000-02-29T00:00:00Z", 951782400.0},
          Row{"0000-01-01T00:00:00Z", -62167219200.0}, Row{"9999-12-31T23:59:59Z", 253402300799.0}}) {
        SCOPED_TRACE(field);
        EXPECT_EQ(parseDate(field), Instant{seconds});
        EXPECT_EQ(parseDateLoosely(field), Instant{seconds});
    }
}

TEST(ParseDate, refusesEverythingElse)
{
    using namespace std::string_view_literals;
    struct Row {
        const char* fault;
        std::vector<std::string_view> fields;
    };
    for (const auto& [fault, fields] : std::vector<Row>{
             {"a part is missing", {"", "2024-06-01", "2024-06-01T14:02Z", "20240601T140211Z", "2024-6-1T14:02:11Z"}},
             {"no fraction", {"2024-06-01T14:02:11.Z", "2024-06-01T14:02:11.-01Z", "2024-06-01T14:02:11,2Z"}},
             {"no zone", {"2024-06-01T14:02:11", "2024-06-01T14:02:11.2", "2024-06-01T14:02:11+02"}},
             {"other zones", {"2024-06-01T14:02:11z", "2024-06-01T14:02:11+0200", "2024-06-01T14:02:11+02:00Z"}},
             {"no such zone", {"2024-06-01T14:02:11+24:00", "2024-06-01T14:02:11+02:60"}},
             {"no such time", {"2024-06-01T14:02:60Z", "2024-06-01T14:60:00Z", "2024-06-01T24:00:00Z"}},
             {"no such month", {"2024-13-01T14:02:11Z", "2024-00-01T14:02:11Z"}},
             {"no such day", {"2024-02-30T14:02:11Z", "2024-06-00T14:02:11Z", "2024-06-31T14:02:11Z"}},
             {"no leap year", {"2023-02-29T14:02:11Z", "1900-02-29T14:02:11Z"}},
             {"no T", {"2024-06-01t14:02:11Z", "2024-06-01 14:02:11Z"}},
             {"no year", {"02024-06-01T14:02:11Z", "-024-06-01T14:02:11Z"}},
             {"something around it", {" 2024-06-01T14:02:11Z", "2024-06-01T14:02:11Z ", "2024-06-01T14:02:11Z\0"sv}},
             {"a byte within it", {"2024-06-01T14:02:1\0Z"sv}},
         }) {
        for (const std::string_view field : fields) {
            SCOPED_TRACE(std::string(fault).append(": ").append(field));
            EXPECT_EQ(parseDate(field), std::nullopt);
            EXPECT_EQ(parseDateLoosely(field), std::nullopt);
        }
    }
}

TEST(ParseDate, cutsOffAFractionThatIsNoneOnlyWhenLoose)
{
    for (const std::string_view field :
         {"2024-06-01T14:02:11.1234567890Z", "2024-06-01T16:02:11.1234567890+02:00", "2024.5-06.1-01T14:02:11.9Z",
          "2024-06-01T14:02:11Z.000", "2024-06-01T14:02:11.\xD9\xA3\xF0\x9D\x9F\x98Z"}) { // digits of other scripts
        SCOPED_TRACE(field);
        EXPECT_EQ(parseDate(field), std::nullopt);
        EXPECT_EQ(parseDateLoosely(field), Instant{june});
    }
    for (const std::string_view field :
         {".12024-06-01T14:02:11Z", ".1 2024-06-01T14:02:11Z", "2024-06-01T14:02:11..5Z", "2024-06-01T14:02:11.5.Z",
          "2024-06-01T14:02:11.\xC2\xB2Z", // a superscript is no decimal digit
          "2024-06-01T14:02:1\xD9\xA3Z", "2024-06-01T14:02:11.\xD9"}) {
        SCOPED_TRACE(field);
        EXPECT_EQ(parseDate(field), std::nullopt);
        EXPECT_EQ(parseDateLoosely(field), std::nullopt);
    }
}

TEST(ParseDate, knowsTheDecimalDigitsOfAllScripts)
{
    const auto isCutOff = [](UChar32 character) {
        std::string field = "2024-06-01T14:02:11.";
        icu::UnicodeString(character).toUTF8String(field);
        return parseDateLoosely(field + "Z") == Instant{june};
    };
    for (UChar32 character = 0x80; character <= UCHAR_MAX_VALUE; ++character) {
        if (!U_IS_SURROGATE(character)) {
            ASSERT_EQ(isCutOff(character), u_isdigit(character) != 0) << std::hex << character;
        }
    }
}

TEST(ParseDate, agreesWithTheCalendarOfTheCLibraryOnEveryDay)
{
    for (int year : {0, 1, 4, 99, 100, 400, 1582, 1600, 1899, 1900, 1970, 1999, 2000, 2024, 2025, 2100, 9999}) {
        for (int day = 0; day < 14 * 33; ++day) {
            std::array<char, 80> field{};
            std::snprintf(field.data(), field.size(), "%04d-%02d-%02dT%02d:59:07-00:01", year, day / 33, day % 33,
                          day % 25);
            ASSERT_EQ(parseDate(field.data()), naive::date(field.data())) << field.data();
        }
    }
}

} // namespace

} // namespace ospra
