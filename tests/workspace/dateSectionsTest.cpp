#include "workspace/dateSections.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

using Positions = std::vector<std::size_t>;

/// 2024-03-09T12:00:00Z, moved by hours.
std::optional<Instant> at(double hours)
{
    return Instant{1709985600.0 + hours * 3600.0};
}

std::vector<JumpGroup> groupsAt(const std::vector<std::optional<Instant>>& dates)
{
    std::vector<JumpGroup> groups;
    for (const std::optional<Instant>& date : dates)
        groups.push_back({.id = makeUuid(), .jumpDate = date});
    return groups;
}

class DateSections : public ::testing::Test {
protected:
    std::vector<DateSection> sections(const std::vector<JumpGroup>& groups, std::optional<Instant> day = {}) const
    {
        return dateSections(groups, day, *calendar, *texts);
    }

    // Half an hour off, so that days of the zone and of UTC differ.
    std::unique_ptr<Calendar> calendar = makeCalendar("Asia/Kolkata", 2);
    std::unique_ptr<DateTexts> texts = makeDateTexts("en_GB", "Asia/Kolkata");
};

TEST_F(DateSections, standUnderTheDaysOfTheZoneNewestFirstWithTheUndatedLast)
{
    const auto groups = groupsAt({std::nullopt, at(-24), at(6), at(7), at(0)});
    const auto result = sections(groups);
    ASSERT_EQ(result.size(), 4u);
    EXPECT_EQ(result[0].label, "10 Mar 2024");
    EXPECT_EQ(result[0].groups, (Positions{3})) << "18:30 in UTC is midnight in Kolkata, and 19:00 is past it";
    EXPECT_EQ(result[1].label, "9 Mar 2024");
    EXPECT_EQ(result[1].groups, (Positions{2, 4})) << "in the order of the list";
    EXPECT_EQ(result[2].label, "8 Mar 2024");
    EXPECT_EQ(result[3].label, "Unknown Date");
    EXPECT_EQ(result[3].groups, (Positions{0}));
    EXPECT_EQ(result[3].date, result[3].label);
}

TEST_F(DateSections, aSelectedDayKeepsItsJumpsAndDropsTheUndated)
{
    const auto groups = groupsAt({std::nullopt, at(7), at(6), at(0)});
    const auto result = sections(groups, at(-6));
    ASSERT_EQ(result.size(), 1u);
    EXPECT_EQ(result[0].groups, (Positions{2, 3}));
    EXPECT_TRUE(sections(groups, at(-72)).empty());
}

} // namespace
} // namespace ospra
