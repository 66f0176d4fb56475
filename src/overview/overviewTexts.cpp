#include "overview/overviewTexts.h"

#include <charconv>
#include <limits>

namespace ospra {

namespace {

/// A whole number and its noun, which takes an s unless the number is 1.
std::string jumpsOnText(std::size_t count, Instant day, const DateTexts& texts)
{
    return std::to_string(count) + (count == 1 ? " jump on " : " jumps on ") + texts.date(day);
}

} // namespace

std::array<HeadlineValue, 6> headlineValues(const OverviewAggregates& overview, const DateTexts& texts)
{
    return {{{"Last Jump", overview.lastJumpDate ? texts.dateAndTime(*overview.lastJumpDate) : "-"},
             {"This Week", std::to_string(overview.jumpCountThisWeek)},
             {"This Month", std::to_string(overview.jumpCountThisMonth)},
             {"Current Streak", std::to_string(overview.streaks.current) + " days"},
             {"Best Streak", std::to_string(overview.streaks.best) + " days"},
             {"Visible Jumps", std::to_string(overview.visibleJumps)}}};
}

std::string jumpCountText(int count)
{
    return std::to_string(count) + " jumps";
}

std::string averageText(double avgPerWeek)
{
    constexpr std::size_t signDotAndDecimal = 3;
    std::array<char, std::numeric_limits<double>::max_exponent10 + 1 + signDotAndDecimal> digits{};
    const auto result =
        std::to_chars(digits.data(), digits.data() + digits.size(), avgPerWeek, std::chars_format::fixed, 1);
    return std::string(digits.data(), result.ptr) + "/wk";
}

std::string selectedDayText(std::size_t count, Instant day, const DateTexts& texts)
{
    return jumpsOnText(count, day, texts);
}

std::string hoveredDayText(const HeatmapDay& day, const DateTexts& texts)
{
    if (day.count < 1)
        return "No jumps on " + texts.date(day.date);
    return jumpsOnText(static_cast<std::size_t>(day.count), day.date, texts);
}

} // namespace ospra
