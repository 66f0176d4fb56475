#include "library/groupJumps.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

TEST(GroupJumps, orderTheUndatedByFallingName)
{
    const auto order = makeNaturalOrder("en_US");
    EXPECT_TRUE(groupJumps({}, *order).empty());
    // The name alone decides between a log with a date and one without.
    const std::vector<std::vector<JumpFileEntry>> entries{
        {{.name = "b"}, {.name = "a", .jumpDate = Instant{9.0}}, {.name = "c", .jumpDate = Instant{1.0}}}};
    std::string names;
    for (const JumpGroup& jump : groupJumps(entries, *order))
        names += jump.primaryEntry.name;
    EXPECT_EQ(names, "cba");
}

} // namespace
} // namespace ospra
