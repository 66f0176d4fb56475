#include "platform/Files.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

struct Row {
    std::string bytes;
    bool isValid = true;
    std::string shown = bytes;
};

const std::string mark = "\xEF\xBF\xBD";

const std::vector<Row> rows{
    {""},
    {std::string("a\0b", 3)},
    {"\xC2\x80\xDF\xBF"},
    {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"},
    {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
    {"\x80", false, mark},
    {"\xC1\xBF", false, mark + mark},            // overlong
    {"\xE0\x9F\xBF", false, mark + mark + mark}, // overlong
    {"\xF0\x8F\xBF\xBF", false, mark + mark + mark + mark},
    {"\xED\xA0\x80", false, mark + mark + mark},            // a surrogate
    {"\xF4\x90\x80\x80", false, mark + mark + mark + mark}, // above U+10FFFF
    {"\xF5\x80", false, mark + mark},
    {"\xFF\xFE", false, mark + mark},
    {"a\xC3", false, "a" + mark}, // cut off at the end
    {"a\xE2\x82", false, "a" + mark},
    {"\xF0\x9F\x98", false, mark},
    {"\xE2\x82z", false, mark + "z"}, // cut off by another character
    {"\xC3\xC3\xA9", false, mark + "\xC3\xA9"},
};

TEST(Utf8, isToldFromOtherBytesWhereverTheyStand)
{
    // Around the ends of the blocks in which plain text is skipped.
    for (std::size_t before = 0; before <= 130; ++before) {
        for (const Row& row : rows) {
            const std::string start(before, 'x');
            const std::string end(200 - before, 'y');
            SCOPED_TRACE(testing::PrintToString(row.bytes) + " after " + std::to_string(before));
            ASSERT_EQ(isValidUtf8(start + row.bytes + end), row.isValid);
            ASSERT_EQ(isValidUtf8(start + row.bytes), row.isValid);
            ASSERT_EQ(toValidUtf8(start + row.bytes), start + row.shown);
        }
    }
}

} // namespace
} // namespace ospra
