#pragma once

#include "overview/computeOverview.h"
#include "platform/DateTexts.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace ospra {

/// One of the cards at the top of the overview.
struct HeadlineValue {
    std::string_view title{};
    std::string value{};
};

/// The cards in the order of the screen.
[[nodiscard]] std::array<HeadlineValue, 6> headlineValues(const OverviewAggregates& overview, const DateTexts& texts);

/// A number of jumps where the word never changes: "1 jumps".
[[nodiscard]] std::string jumpCountText(int count);
/// The average of a month: "0.2/wk".
[[nodiscard]] std::string averageText(double avgPerWeek);
/// The line beside "Selected Day": "1 jump on 3 Jul 2026".
[[nodiscard]] std::string selectedDayText(std::size_t count, Instant day, const DateTexts& texts);
/// What the heatmap tells of the day under the pointer: "2 jumps on 3 Jul 2026", "No jumps on 4 Jul 2026".
[[nodiscard]] std::string hoveredDayText(const HeatmapDay& day, const DateTexts& texts);

} // namespace ospra
