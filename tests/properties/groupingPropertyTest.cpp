#include "library/groupJumps.h"
#include "tests/properties/Dice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string>

namespace ospra::properties {

namespace {

using Entries = std::vector<JumpFileEntry>;

/// Moments of one load of jumpers and the next: at the tolerance, beside it, and equally far on both sides.
std::optional<Instant> makeDate(Dice& dice, std::ptrdiff_t oneInMissing)
{
    if (dice.oneIn(oneInMissing))
        return std::nullopt;
    const double load = 1.7e9 + 900.0 * static_cast<double>(dice.below(6));
    constexpr std::array offsets{0.0, 0.0, 15.0, 30.0, 44.9, 45.0, 45.1, -15.0, -45.0, 90.0, 22.5, 89.8};
    return Instant{load + dice.oneOf(offsets)};
}

/// Words and numbers in turn, lower case, so that their natural order is easily told.
std::string makeName(Dice& dice)
{
    constexpr std::array words{"jump", "a", "b", "load"};
    std::string name = dice.oneOf(words);
    for (std::ptrdiff_t parts = dice.below(3); parts > 0; --parts)
        name += std::to_string(dice.below(3) * dice.oneOf(std::array<std::ptrdiff_t, 3>{1, 9, 50})) + dice.oneOf(words);
    return name;
}

Entries makeEntries(Dice& dice, std::ptrdiff_t jumper, std::ptrdiff_t oneInMissing)
{
    Entries entries(static_cast<std::size_t>(dice.below(25)));
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i] = {.url = std::filesystem::path(std::to_string(jumper)) / std::to_string(i),
                      .name = makeName(dice),
                      .jumpDate = makeDate(dice, oneInMissing),
                      .freefallDate = makeDate(dice, 5)};
    return entries;
}

/// The companion's log of a jump by looking at all of them.
const JumpFileEntry* matchOf(const JumpFileEntry& primary, const Entries& companion)
{
    if (!primary.freefallDate)
        return nullptr;
    const JumpFileEntry* best = nullptr;
    double least = 0;
    for (const JumpFileEntry& entry : companion) {
        if (!entry.freefallDate)
            continue;
        const double difference = std::fabs(entry.freefallDate->seconds - primary.freefallDate->seconds);
        if (best == nullptr || difference < least) {
            best = &entry;
            least = difference;
        }
    }
    return best != nullptr && least < 45.0 ? best : nullptr;
}

/// Less than 0 if `a` comes first: numbers before words, numbers by their value.
int compareNames(std::string_view a, std::string_view b)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    while (!a.empty() && !b.empty()) {
        if (isDigit(a[0]) && isDigit(b[0])) {
            std::array<long, 2> values{};
            for (long number = 0; std::string_view * text : {&a, &b}) {
                for (; !text->empty() && isDigit(text->front()); text->remove_prefix(1))
                    values[static_cast<std::size_t>(number)] =
                        values[static_cast<std::size_t>(number)] * 10 + (text->front() - '0');
                ++number;
            }
            if (values[0] != values[1])
                return values[0] < values[1] ? -1 : 1;
            continue;
        }
        if (a[0] != b[0])
            return a[0] < b[0] ? -1 : 1;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.empty() ? (b.empty() ? 0 : -1) : 1;
}

bool comesBefore(const JumpFileEntry& a, const JumpFileEntry& b)
{
    if (a.jumpDate && b.jumpDate)
        return a.jumpDate->seconds > b.jumpDate->seconds;
    return compareNames(a.name, b.name) > 0;
}

/// A stable sort by moving each entry forward past those that it comes before.
Entries sorted(const Entries& entries)
{
    Entries result;
    for (const JumpFileEntry& entry : entries) {
        std::size_t place = result.size();
        while (place > 0 && comesBefore(entry, result[place - 1]))
            --place;
        result.insert(result.begin() + static_cast<std::ptrdiff_t>(place), entry);
    }
    return result;
}

TEST(GroupsOfAnyFolders, areFoundByLookingAtEveryPair)
{
    const auto names = makeNaturalOrder("en_US");
    int matches = 0;
    forSeeds(4'000, [&](Dice& dice) {
        // With some dates missing the order is none that all sorts agree upon.
        constexpr std::array missing{1, 4, 1'000'000};
        const std::ptrdiff_t oneInMissing = dice.oneOf(missing);
        std::vector<Entries> entries;
        for (std::ptrdiff_t jumper = dice.between(1, 4); jumper > 0; --jumper)
            entries.push_back(makeEntries(dice, jumper, oneInMissing));
        const std::vector<JumpGroup> groups = groupJumps(entries, *names);

        const Entries expected = sorted(entries[0]);
        ASSERT_EQ(groups.size(), expected.size());
        std::set<std::string> seen;
        for (std::size_t i = 0; i < groups.size(); ++i) {
            const JumpFileEntry& primary = groups[i].primaryEntry;
            seen.insert(primary.url.native());
            if (oneInMissing != 4) {
                ASSERT_EQ(primary, expected[i]);
            }
            if (i > 0) {
                ASSERT_FALSE(comesBefore(primary, groups[i - 1].primaryEntry));
            }
            ASSERT_EQ(groups[i].jumpDate, primary.jumpDate);
            Entries companions;
            for (std::size_t jumper = 1; jumper < entries.size(); ++jumper)
                if (const JumpFileEntry* match = matchOf(primary, entries[jumper]))
                    companions.push_back(*match);
            ASSERT_EQ(groups[i].companionEntries, companions);
            matches += static_cast<int>(companions.size());
        }
        ASSERT_EQ(seen.size(), groups.size());
    });
    EXPECT_GT(matches, 10'000);
}

} // namespace

} // namespace ospra::properties
