#include "logs/parseDouble.h"

#include "logs/plainNumber.h"
#include "tests/logs/NaiveLogs.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace ospra {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(ParseDouble, takesTheWholeFieldOrNothing)
{
    using namespace std::string_view_literals;
    struct Row {
        std::optional<double> value;
        std::vector<std::string_view> fields;
    };
    for (const auto& [value, fields] : std::vector<Row>{
             {-31.25, {"-31.25", "-3125e-2"}},
             {7.0, {"+7", "7."}},
             {0.5, {".5", "0x.8"}},
             {-0.5, {"-0X.8"}},
             {-5.0, {"-.5e1"}},
             {100.0, {"1E2"}},
             {1e-310, {"1e-310"}},
             {0.0, {"0e999999999999", "1e-99999999999999999999", "0x1p-1075"}},
             {0x1p-1074, {"4.9e-324", "0x1.8p-1075"}},
             {infinity, {"1e400", "1e99999999999999999999", "0x1p1024", "INF"}},
             {-infinity, {"-1e400", "-infinity"}},
             {3.0, {"0x1.8p1"}},
             {16.0, {"0x10"}},
             {2.0, {"0x1.fffffffffffff8p0"}},
             {0x1.fffffffffffffp0, {"0x1.fffffffffffff7p0"}},
             {std::nullopt, {"", "4 ", " 4", "\t4", "4\0"sv, "\0"sv, "1,5", "1.5.1", ".", "-", "+-1", "--1"}},
             {std::nullopt, {"e5", "1e", "1e+", "0x", "0x.", "0x1p", "0x-1", "0xinf", "1p3"}},
             {std::nullopt, {"infinit", "nan(", "nan(a-b)", "nano"}},
         }) {
        for (const std::string_view field : fields) {
            SCOPED_TRACE(field);
            EXPECT_EQ(parseDouble(field), value);
            EXPECT_EQ(naive::number(std::string(field)), value) << "the table itself";
        }
    }
    for (const std::string_view field : {"nan", "-NaN", "nan()", "nan(0x7_z)"})
        EXPECT_TRUE(std::isnan(parseDouble(field).value_or(0.0))) << field;
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
    using Limits = std::numeric_limits<std::int64_t>;
    struct Row {
        std::optional<std::int64_t> value;
        std::vector<std::string_view> fields;
    };
    for (const auto& [value, fields] : std::vector<Row>{
             {3, {"3", "+3", "00000000000000000000000003"}},
             {-7, {"-0007"}},
             {Limits::max(), {"9223372036854775807"}},
             {Limits::min(), {"-9223372036854775808"}},
             {std::nullopt, {"9223372036854775808", "", "-", "+-3", "3.0", " 3", "0x3", "3e0"}},
         }) {
        for (const std::string_view field : fields)
            EXPECT_EQ(parseInteger(field), value) << field;
    }
}

} // namespace

} // namespace ospra
