#include "overview/computeOverview.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <random>

namespace ospra {
namespace {

constexpr Instant now{1'783'101'600.0}; // 2026-07-03T18:00:00Z
constexpr double year = 365.25 * 86'400.0;

/// The list of jumps of somebody who made them evenly over so many years until now, newest first.
std::vector<JumpGroup> makeGroups(std::int64_t count, double years)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> age(0.0, years * year);
    std::vector<Instant> dates(static_cast<std::size_t>(count));
    for (Instant& date : dates)
        date.seconds = now.seconds - age(random);
    std::sort(dates.rbegin(), dates.rend());
    std::vector<JumpGroup> groups(dates.size());
    for (std::size_t i = 0; i < dates.size(); ++i)
        groups[i].jumpDate = dates[i];
    return groups;
}

void computeAll(benchmark::State& state, const std::vector<JumpGroup>& groups)
{
    const auto calendar = makeCalendar("Europe/Zurich", 2);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            computeOverview(groups, OverviewTimeRange::all, groups.front().jumpDate, now, *calendar));
    state.SetItemsProcessed(state.iterations() * std::ssize(groups));
}

/// A thousand jumps a year, on almost every day.
void BM_ComputeOverview(benchmark::State& state)
{
    computeAll(state, makeGroups(state.range(0), static_cast<double>(state.range(0)) / 1000.0));
}
BENCHMARK(BM_ComputeOverview)->Arg(1'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

/// Wrong clocks: the same, and jumps in 1970, 2106 and 9999.
void BM_ComputeOverviewOverCenturies(benchmark::State& state)
{
    std::vector<JumpGroup> groups = makeGroups(state.range(0), static_cast<double>(state.range(0)) / 1000.0);
    for (const double seconds : {0.0, 4'294'967'295.0, 253'402'300'799.0})
        groups.push_back({.jumpDate = Instant{seconds}});
    computeAll(state, groups);
}
BENCHMARK(BM_ComputeOverviewOverCenturies)->Arg(1'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

/// What the heatmap asks while it is drawn: a screen of 100 weeks with their counts and month marks.
void BM_ReadVisibleWeeks(benchmark::State& state)
{
    const auto calendar = makeCalendar("Europe/Zurich", 2);
    const auto overview = computeOverview(makeGroups(20'000, 20.0), OverviewTimeRange::all, {}, now, *calendar);
    for (auto _ : state) {
        for (std::ptrdiff_t week = 500; week < 600; ++week) {
            benchmark::DoNotOptimize(overview.heatmap.week(week, *calendar));
            benchmark::DoNotOptimize(overview.heatmap.opensMonth(week, *calendar));
        }
    }
}
BENCHMARK(BM_ReadVisibleWeeks)->Unit(benchmark::kMillisecond);

void BM_MonthBoundaryWeeks(benchmark::State& state)
{
    const auto calendar = makeCalendar("Europe/Zurich", 2);
    const auto groups = makeGroups(state.range(0), static_cast<double>(state.range(0)) / 1000.0);
    const auto overview = computeOverview(groups, OverviewTimeRange::all, {}, now, *calendar);
    for (auto _ : state)
        benchmark::DoNotOptimize(monthBoundaryWeeks(overview.heatmap, *calendar));
}
BENCHMARK(BM_MonthBoundaryWeeks)->Arg(1'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ospra
