#include "library/groupJumps.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ospra {
namespace {

std::optional<Instant> instant(std::optional<double> seconds)
{
    return seconds ? std::optional(Instant{*seconds}) : std::nullopt;
}

JumpFileEntry entry(const std::string& name, std::optional<double> jump, std::optional<double> freefall = std::nullopt)
{
    return {.url = "/" + name + ".csv", .name = name, .jumpDate = instant(jump), .freefallDate = instant(freefall)};
}

std::vector<JumpGroup> group(const std::vector<std::vector<JumpFileEntry>>& entriesByJumper)
{
    return groupJumps(entriesByJumper, *makeNaturalOrder("en_US"));
}

std::vector<std::string> names(const std::vector<JumpGroup>& groups)
{
    std::vector<std::string> result(groups.size());
    std::transform(groups.begin(), groups.end(), result.begin(),
                   [](const JumpGroup& jump) { return jump.primaryEntry.name; });
    return result;
}

std::vector<std::string> companionNames(const JumpGroup& jump)
{
    std::vector<std::string> result(jump.companionEntries.size());
    std::transform(jump.companionEntries.begin(), jump.companionEntries.end(), result.begin(),
                   [](const JumpFileEntry& companion) { return companion.name; });
    return result;
}

using Names = std::vector<std::string>;

TEST(GroupJumps, listsTheNewestFirstAndUndatedLogsByFallingName)
{
    EXPECT_TRUE(group({}).empty());
    EXPECT_TRUE(group({{}, {entry("companion", 1.0, 2.0)}}).empty());
    EXPECT_EQ(names(group({{entry("a", 1.0), entry("b", 3.0), entry("c", 2.0), entry("d", 3.0)}})),
              (Names{"b", "d", "c", "a"}));
    EXPECT_EQ(names(group({{entry("jump 9", {}), entry("jump 10", {}), entry("jump 1", {})}})),
              (Names{"jump 10", "jump 9", "jump 1"}));
    // The name alone decides between a log with a date and one without.
    EXPECT_EQ(names(group({{entry("b", {}), entry("a", 9.0), entry("c", 1.0)}})), (Names{"c", "b", "a"}));
}

TEST(GroupJumps, matchesCompanionsByTheMomentOfExit)
{
    struct Row {
        double companionFreefall;
        bool matches;
    };
    for (const auto& [freefall, matches] : {Row{10'000.0, true}, Row{10'044.999, true}, Row{10'045.0, false},
                                            Row{9'955.0, false}, Row{9'955.001, true}}) {
        SCOPED_TRACE(freefall);
        const auto groups = group({{entry("p", 0.0, 10'000.0)}, {entry("c", 0.0, freefall)}});
        ASSERT_EQ(groups.size(), 1U);
        EXPECT_EQ(companionNames(groups[0]), matches ? Names{"c"} : Names{});
        EXPECT_EQ(groups[0].jumpDate, Instant{0.0});
    }
    // Without freefall on either side there is no match, however close the starts of the logs.
    EXPECT_TRUE(group({{entry("p", 5.0)}, {entry("c", 5.0, 5.0)}})[0].companionEntries.empty());
    EXPECT_TRUE(group({{entry("p", 5.0, 5.0)}, {entry("c", 5.0)}})[0].companionEntries.empty());
}

} // namespace
} // namespace ospra
