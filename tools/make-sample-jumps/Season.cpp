#include "tools/make-sample-jumps/Season.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ospra {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr std::size_t home = 0;
constexpr std::size_t nearby = 1;
constexpr std::size_t holiday = 2;
constexpr std::size_t journey = 3;

struct JumpDay {
    sys_days date;
    std::size_t placeIndex = home;
    int jumps = 0;
};

bool isWeekend(sys_days day)
{
    const std::chrono::weekday weekday{day};
    return weekday == std::chrono::Saturday || weekday == std::chrono::Sunday;
}

/// How likely people jump in a month at home: from the depth of winter to midsummer.
double seasonOf(sys_days day)
{
    constexpr std::array chances{0.06, 0.10, 0.25, 0.6, 0.85, 1.0, 1.0, 1.0, 0.9, 0.55, 0.2, 0.08};
    return chances.at(unsigned{std::chrono::year_month_day{day}.month()} - 1);
}

class Planner {
public:
    explicit Planner(const SeasonOrder& order) : m_order(order), m_random(Random(order.seed).fork(100)) {}

    std::vector<PlannedLoad> plan()
    {
        chooseDays();
        for (const JumpDay& day : m_days)
            addLoads(day);
        chooseOddities();
        chooseCompanions();
        makeLastLoadAShow();
        addOwnLoadsOfCompanions();
        std::ranges::sort(m_loads, {},
                          [](const PlannedLoad& load) { return std::pair(load.exitInstant, load.people.front()); });
        return m_loads;
    }

private:
    void chooseDays()
    {
        m_left = m_order.jumps;
        addDay(m_order.end, home, 3);
        const int holidayJumps = m_order.jumps / 5;
        const sys_days arrival = saturdayBefore(m_order.end - days{58});
        for (int i = 0; i < 7 && holidayJumps - i * 5 > 0; ++i)
            if (i != 4) // a day of rest
                addDay(arrival + days{i}, holiday, std::min(5, holidayJumps - i * 5));
        const int journeyJumps = m_order.jumps / 10;
        for (int i = 0; i < 5 && journeyJumps - i * 4 > 0; ++i)
            addDay(m_order.end - days{214 - i}, journey, std::min(4, journeyJumps - i * 4));
        addDay(saturdayBefore(m_order.end - days{440}), home, 2);

        const int span = std::max(450, m_order.jumps * 2);
        while (m_left > 0) {
            const sys_days day = m_order.end - days{m_random.wholeBetween(1, span)};
            const double season = seasonOf(day);
            if (isTaken(day) || !m_random.chance(season * (isWeekend(day) ? 1.0 : 0.07)))
                continue;
            // Whoever drives to the other drop zone stays there for both days.
            const auto week = static_cast<std::uint64_t>((day + days{3}).time_since_epoch().count() / 7);
            const std::size_t place = Random(m_order.seed).fork(week).chance(0.25) ? nearby : home;
            addDay(day, place, m_random.wholeBetween(1, season > 0.5 ? 5 : 3));
        }
        std::ranges::sort(m_days, {}, &JumpDay::date);
    }

    static sys_days saturdayBefore(sys_days day) { return day - (std::chrono::weekday{day} - std::chrono::Saturday); }

    /// A day that has jumps, or on which the jumper is away.
    [[nodiscard]] bool isTaken(sys_days day) const
    {
        return std::ranges::any_of(m_days, [day](const JumpDay& other) {
            const int margin = other.placeIndex == holiday || other.placeIndex == journey ? 2 : 0;
            return other.date - days{margin} <= day && day <= other.date + days{margin};
        });
    }

    void addDay(sys_days date, std::size_t placeIndex, int jumps)
    {
        const int count = std::min(jumps, m_left);
        if (count <= 0)
            return;
        m_days.push_back({.date = date, .placeIndex = placeIndex, .jumps = count});
        m_left -= count;
    }

    void addLoads(const JumpDay& day)
    {
        const Place& place = allPlaces()[day.placeIndex];
        double hour = m_random.between(9.3, 10.6) + (day.jumps < 3 ? m_random.between(0.0, 2.5) : 0.0);
        for (int i = 0; i < day.jumps; ++i) {
            const auto local = static_cast<std::int64_t>(hour * 3'600'000.0);
            const std::int64_t midnight = day.date.time_since_epoch().count() * std::int64_t{86'400'000};
            const std::int64_t offset = clockOffset(place, day.date).count() * std::int64_t{3'600'000};
            m_loads.push_back({.placeIndex = day.placeIndex,
                               .exitInstant = midnight + local - offset,
                               .style = chooseStyle(),
                               .people = {0},
                               .wholeClimb = m_random.chance(0.12)});
            hour += m_random.between(1.1, 1.6);
        }
    }

    JumpStyle chooseStyle()
    {
        const double roll = m_random.uniform();
        if (roll < 0.56)
            return JumpStyle::belly;
        if (roll < 0.72)
            return JumpStyle::tracking;
        return roll < 0.88 ? JumpStyle::wingsuit : JumpStyle::hopAndPop;
    }

    /// A few, and none among the newest.
    void chooseOddities()
    {
        if (m_loads.size() < 5)
            return;
        makeLateStart(m_loads[m_loads.size() / 2]);
        m_loads[m_loads.size() / 3].oddity = Oddity::ridesDown;
        m_loads[m_loads.size() / 5].oddity = Oddity::fewSamples;
        if (m_loads.size() > 100)
            makeLateStart(m_loads[m_loads.size() * 3 / 4]);
    }

    /// The logger found its first fix when the jumper had left the aircraft; the fall has to be long enough for that.
    static void makeLateStart(PlannedLoad& load)
    {
        load.oddity = Oddity::startsInFreefall;
        load.style = JumpStyle::belly;
    }

    /// The first companions share more jumps than the later ones, often the same ones.
    void chooseCompanions()
    {
        constexpr std::array shares{0.22, 0.16, 0.065, 0.04};
        for (int i = 1; i <= m_order.companions; ++i) {
            const double share = shares.at(std::min<std::size_t>(static_cast<std::size_t>(i), shares.size()) - 1);
            const auto wanted = static_cast<int>(share * m_order.jumps + 0.99);
            int shared = 0;
            for (int attempt = 0; shared < wanted && attempt < 50 * wanted; ++attempt) {
                PlannedLoad& load = m_loads[m_random.index(m_loads.size())];
                const double liking = load.people.size() > 1 ? 1.0 : 0.35;
                if (load.oddity != Oddity::none || load.style == JumpStyle::hopAndPop || load.people.size() > 3 ||
                    load.people.back() == static_cast<std::size_t>(i) || !m_random.chance(liking))
                    continue;
                load.people.push_back(static_cast<std::size_t>(i));
                ++shared;
            }
        }
    }

    void makeLastLoadAShow()
    {
        PlannedLoad& last = m_loads.back();
        last.style = JumpStyle::belly;
        last.oddity = Oddity::none;
        last.wholeClimb = false;
        last.people.assign(1, 0);
        for (int i = 1; i <= std::min(m_order.companions, 2); ++i)
            last.people.push_back(static_cast<std::size_t>(i));
    }

    /// Companions jump without the owner of the logbook too, half an hour after one of the owner's loads.
    void addOwnLoadsOfCompanions()
    {
        const std::size_t count = m_loads.size();
        for (int i = 1; i <= m_order.companions; ++i) {
            const std::size_t own = 1 + count / 22;
            const std::size_t stride = count / own; // one from each stretch of the season, so that none comes twice
            for (std::size_t j = 0; j < own; ++j) {
                PlannedLoad load = m_loads[j * stride + m_random.index(stride)];
                load.exitInstant += std::int64_t{60'000} * m_random.wholeBetween(25, 30) + std::int64_t{1000} * i;
                load.people.assign(1, static_cast<std::size_t>(i));
                load.oddity = Oddity::none;
                load.style = chooseStyle();
                m_loads.push_back(load);
            }
        }
    }

    const SeasonOrder& m_order;
    Random m_random;
    int m_left = 0; // jumps that have no day yet
    std::vector<JumpDay> m_days;
    std::vector<PlannedLoad> m_loads;
};

} // namespace

std::vector<PlannedLoad> planSeason(const SeasonOrder& order)
{
    return Planner(order).plan();
}

} // namespace ospra
