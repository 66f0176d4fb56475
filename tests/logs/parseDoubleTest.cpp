#include "logs/parseDouble.h"

#include "logs/plainNumber.h"
#include "tests/logs/NaiveLogs.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace ospra {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(ParseDouble, takesTheWholeFieldOrNothing)
{
    struct Row {
        std::string_view field;
        std::optional<double> value;
    };
    using namespace std::string_view_literals;
    for (const auto& [field, value] : {Row{"-31.25", -31.25},
                                       Row{"+7", 7.0},
                                       Row{"5.", 5.0},
                                       Row{".5", 0.5},
                                       Row{"-.5e1", -5.0},
                                       Row{"1E2", 100.0},
                                       Row{"1e400", infinity},
                                       Row{"-1e400", -infinity},
                                       Row{"4.9e-324", 0x1p-1074},
                                       Row{"1e-310", 1e-310},
                                       Row{"0e999999999999", 0.0},
                                       Row{"1e99999999999999999999", infinity},
                                       Row{"1e-99999999999999999999", 0.0},
                                       Row{"0x1.8p1", 3.0},
                                       Row{"-0X.8", -0.5},
                                       Row{"0x10", 16.0},
                                       Row{"0x1p1024", infinity},
                                       Row{"0x1p-1075", 0.0},
                                       Row{"0x1.8p-1075", 0x1p-1074},
                                       Row{"0x1.fffffffffffff8p0", 2.0},
                                       Row{"0x1.fffffffffffff7p0", 0x1.fffffffffffffp0},
                                       Row{"INF", infinity},
                                       Row{"-infinity", -infinity},
                                       Row{"", std::nullopt},
                                       Row{"4 ", std::nullopt},
                                       Row{" 4", std::nullopt},
                                       Row{"\t4", std::nullopt},
                                       Row{"4\0"sv, std::nullopt},
                                       Row{"\0"sv, std::nullopt},
                                       Row{".", std::nullopt},
                                       Row{"-", std::nullopt},
                                       Row{"+-1", std::nullopt},
                                       Row{"--1", std::nullopt},
                                       Row{"e5", std::nullopt},
                                       Row{"1e", std::nullopt},
                                       Row{"1e+", std::nullopt},
                                       Row{"1,5", std::nullopt},
                                       Row{"1.5.1", std::nullopt},
                                       Row{"0x", std::nullopt},
                                       Row{"0x.", std::nullopt},
                                       Row{"0x1p", std::nullopt},
                                       Row{"0x-1", std::nullopt},
                                       Row{"0xinf", std::nullopt},
                                       Row{"1p3", std::nullopt},
                                       Row{"infinit", std::nullopt},
                                       Row{"nan(", std::nullopt},
                                       Row{"nan(a-b)", std::nullopt},
                                       Row{"nano", std::nullopt}}) {
        SCOPED_TRACE(field);
        EXPECT_EQ(parseDouble(field), value);
        EXPECT_EQ(naive::number(std::string(field)), value) << "the table itself";
    }
    for (const std::string_view field : {"nan", "-NaN", "nan()", "nan(0x7_z)"}) {
        SCOPED_TRACE(field);
        ASSERT_TRUE(parseDouble(field));
        EXPECT_TRUE(std::isnan(*parseDouble(field)));
    }
    EXPECT_TRUE(std::signbit(parseDouble("-0.00").value()));
    EXPECT_TRUE(std::signbit(parseDouble("-1e-400").value()));
}

/// Both ways to read a number against `strtod`, bit for bit. Bytes behind the field must not matter.
void expectSameAsStrtod(const std::string& field)
{
    const std::optional<double> expected = naive::number(field);
    const std::optional<double> parsed = parseDouble(field);
    const std::string text = field + ",12345678901234567890";
    const std::optional<double> plain =
        readPlainNumber(std::string_view(text).substr(0, field.size()), text.data() + text.size());
    ASSERT_EQ(parsed.has_value(), expected.has_value()) << field;
    if (!expected)
        return;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(*parsed), std::bit_cast<std::uint64_t>(*expected)) << field;
    if (plain) {
        ASSERT_EQ(std::bit_cast<std::uint64_t>(*plain), std::bit_cast<std::uint64_t>(*expected)) << field;
    }
}

TEST(ParseDouble, agreesWithStrtodOnRandomNumbers)
{
    std::mt19937_64 random(20240601);
    const auto upTo = [&random](std::uint64_t most) { return random() % (most + 1); };
    const auto digits = [&](std::uint64_t most, std::string_view alphabet) {
        std::string text;
        for (std::uint64_t left = upTo(most); left > 0; --left)
            text += alphabet[upTo(alphabet.size() - 1)];
        return text;
    };
    for (int i = 0; i < 200'000; ++i) {
        const std::uint64_t longest = i % 8 == 0 ? 40 : 10;
        const bool isHexadecimal = i % 5 == 0;
        const std::string_view alphabet = isHexadecimal ? "0123456789abcdefABCDEF00" : "0123456789";
        std::string field = std::array{"", "", "-", "+"}[upTo(3)];
        field += isHexadecimal ? "0x" : "";
        field += digits(longest, alphabet);
        if (upTo(4) > 0)
            field.append(".").append(digits(longest, alphabet));
        if (upTo(4) == 0)
            field.append(isHexadecimal ? "p" : "e")
                .append(std::array{"", "-", "+"}[upTo(2)])
                .append(std::to_string(upTo(isHexadecimal ? 1100 : 330)));
        ASSERT_NO_FATAL_FAILURE(expectSameAsStrtod(field));
    }
}

TEST(ParseDouble, agreesWithStrtodHalfwayBetweenDoubles)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 20'000; ++i) {
        const double value = std::abs(std::bit_cast<double>(random()));
        if (!std::isfinite(value))
            continue;
        std::array<char, 1200> text{};
        std::snprintf(text.data(), text.size(), "%.17g", value);
        ASSERT_NO_FATAL_FAILURE(expectSameAsStrtod(text.data()));
        // The exact decimal digits of a value halfway to the next double, and just above.
        const double small = std::ldexp(static_cast<double>(random() >> 11), -60 - static_cast<int>(random() % 20));
        std::snprintf(text.data(), text.size(), "%.150Lf", static_cast<long double>(small) * (1.0L + 0x1p-53L));
        ASSERT_NO_FATAL_FAILURE(expectSameAsStrtod(text.data()));
        ASSERT_NO_FATAL_FAILURE(expectSameAsStrtod(std::string(text.data()) + "1"));
    }
}

TEST(ParseInteger, takesASignAndDigitsOnly)
{
    struct Row {
        std::string_view field;
        std::optional<std::int64_t> value;
    };
    for (const auto& [field, value] :
         {Row{"14", 14}, Row{"+3", 3}, Row{"-0007", -7}, Row{"00000000000000000000000005", 5},
          Row{"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
          Row{"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
          Row{"9223372036854775808", std::nullopt}, Row{"", std::nullopt}, Row{"-", std::nullopt},
          Row{"+-3", std::nullopt}, Row{"3.0", std::nullopt}, Row{" 3", std::nullopt}, Row{"0x3", std::nullopt},
          Row{"3e0", std::nullopt}}) {
        SCOPED_TRACE(field);
        EXPECT_EQ(parseInteger(field), value);
    }
}

} // namespace

} // namespace ospra
