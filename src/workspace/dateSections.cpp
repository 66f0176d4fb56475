#include "workspace/dateSections.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <unordered_map>

namespace ospra {

namespace {

constexpr Instant distantPast{-std::numeric_limits<double>::infinity()};

/// Sections in the order in which they were met, each with the day that the first of its jumps gave it.
class SectionBuilder {
public:
    SectionBuilder(const Calendar& calendar, const DateTexts& texts) : m_calendar(calendar), m_texts(texts) {}

    void add(std::size_t group, std::optional<Instant> jumpDate)
    {
        const Instant day = jumpDate ? m_calendar.startOfDay(*jumpDate) : distantPast;
        m_sections[sectionOf(day)].groups.push_back(group);
    }

    [[nodiscard]] std::vector<DateSection> newestFirst()
    {
        std::vector<std::size_t> order(m_sections.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::ranges::stable_sort(order, std::ranges::greater{}, [this](std::size_t index) { return m_days[index]; });
        std::vector<DateSection> sorted;
        for (const std::size_t index : order)
            sorted.push_back(std::move(m_sections[index]));
        return sorted;
    }

private:
    /// Texts are made once a day, not once a jump.
    std::size_t sectionOf(Instant day)
    {
        if (const auto known = m_sectionByDay.find(day.seconds); known != m_sectionByDay.end())
            return known->second;
        const std::string text = day == distantPast ? "Unknown Date" : m_texts.date(day);
        const auto [byText, isNew] = m_sectionByText.emplace(text, m_sections.size());
        if (isNew) {
            m_sections.push_back({.date = text, .label = text});
            m_days.push_back(day);
        }
        m_sectionByDay.emplace(day.seconds, byText->second);
        return byText->second;
    }

    const Calendar& m_calendar;
    const DateTexts& m_texts;
    std::vector<DateSection> m_sections;
    std::vector<Instant> m_days;
    std::unordered_map<double, std::size_t> m_sectionByDay;
    std::unordered_map<std::string, std::size_t> m_sectionByText;
};

} // namespace

std::vector<DateSection> dateSections(std::span<const JumpGroup> groups, std::optional<Instant> selectedDay,
                                      const Calendar& calendar, const DateTexts& texts)
{
    SectionBuilder builder(calendar, texts);
    for (std::size_t index = 0; index < groups.size(); ++index) {
        const std::optional<Instant> jumpDate = groups[index].jumpDate;
        const bool isWanted = !selectedDay || (jumpDate && calendar.isSame(CalendarUnit::day, *jumpDate, *selectedDay));
        if (isWanted)
            builder.add(index, jumpDate);
    }
    return builder.newestFirst();
}

} // namespace ospra
