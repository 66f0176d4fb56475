#include "library/groupJumps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

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

TEST(GroupJumps, takesTheNearestLogAndOfTwoTheEarlierInTheScan)
{
    const std::vector<JumpFileEntry> primary{entry("p", 0.0, 1000.0)};
    EXPECT_EQ(companionNames(group({primary, {entry("far", {}, 1020.0), entry("near", {}, 990.0)}})[0]), Names{"near"});
    EXPECT_EQ(companionNames(group({primary, {entry("after", {}, 1010.0), entry("before", {}, 990.0)}})[0]),
              Names{"after"});
    EXPECT_EQ(companionNames(group({primary, {entry("before", {}, 990.0), entry("after", {}, 1010.0)}})[0]),
              Names{"before"});
    EXPECT_EQ(companionNames(group({primary, {entry("first", {}, 990.0), entry("second", {}, 990.0)}})[0]),
              Names{"first"});
}

TEST(GroupJumps, mayGiveOneLogToSeveralJumpsAndOneOfEachCompanionToAJump)
{
    const auto groups = group({{entry("p1", 0.0, 1000.0), entry("p2", 1.0, 1030.0), entry("p3", 2.0, 5000.0)},
                               {entry("a", {}, 1015.0)},
                               {entry("none", {}, 9000.0)},
                               {entry("b", {}, 1031.0), entry("c", {}, 5000.0)}});
    ASSERT_EQ(names(groups), (Names{"p3", "p2", "p1"}));
    EXPECT_EQ(companionNames(groups[0]), Names{"c"});
    EXPECT_EQ(companionNames(groups[1]), (Names{"a", "b"}));
    EXPECT_EQ(companionNames(groups[2]), (Names{"a", "b"}));
    EXPECT_NE(groups[0].id, groups[1].id);
}

/// The rule of the match as one would tell it: look at all logs, keep the nearest.
Names matchByLookingAtAll(const JumpFileEntry& primary, const std::vector<std::vector<JumpFileEntry>>& companions)
{
    Names result;
    for (const auto& entries : companions) {
        const JumpFileEntry* best = nullptr;
        double bestDistance = INFINITY;
        for (const JumpFileEntry& candidate : entries) {
            if (!primary.freefallDate || !candidate.freefallDate)
                continue;
            const double distance = std::abs(candidate.freefallDate->seconds - primary.freefallDate->seconds);
            if (distance < bestDistance) {
                best = &candidate;
                bestDistance = distance;
            }
        }
        if (best != nullptr && bestDistance < 45.0)
            result.push_back(best->name);
    }
    return result;
}

TEST(GroupJumps, findsTheSameLogsAsASearchThroughAll)
{
    std::mt19937 random(4);
    for (const unsigned span : {20U, 500U, 20'000U}) { // s; from nothing but ties to hardly a match
        // Half of the dates are whole seconds, so that equal distances on both sides occur.
        const auto randomDate = [&]() -> std::optional<double> {
            if (random() % 10 == 0)
                return std::nullopt;
            const double whole = 1.7e9 + static_cast<double>(random() % span);
            return random() % 2 == 0 ? whole : whole + static_cast<double>(random() % 1000) / 1000.0;
        };
        std::vector<std::vector<JumpFileEntry>> entries(4);
        for (int i = 0; i < 300; ++i)
            for (auto& ofJumper : entries)
                ofJumper.push_back(entry(std::to_string(i), randomDate(), randomDate()));
        const std::vector<std::vector<JumpFileEntry>> companions(entries.begin() + 1, entries.end());
        std::size_t matches = 0;
        for (const JumpGroup& jump : group(entries)) {
            EXPECT_EQ(companionNames(jump), matchByLookingAtAll(jump.primaryEntry, companions));
            matches += jump.companionEntries.size();
        }
        EXPECT_GT(matches, 0U);
    }
}

} // namespace
} // namespace ospra
