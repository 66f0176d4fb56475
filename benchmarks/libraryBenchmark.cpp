#include "library/groupJumps.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>

namespace ospra {
namespace {

constexpr std::size_t companionCount = 5;

/// Logs of one jumper, half an hour apart on the average, in the order of their paths.
std::vector<JumpFileEntry> makeEntries(const std::string& jumper, std::int64_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<JumpFileEntry> entries;
    for (std::int64_t i = 0; i < count; ++i) {
        const Instant exit{1.4e9 + static_cast<double>(i) * 1800.0 + static_cast<double>(random() % 60)};
        entries.push_back({.url = "/home/jumper/Jumps/" + jumper + "/" + std::to_string(i) + "/TRACK.CSV",
                           .name = std::to_string(i),
                           .jumpDate = Instant{exit.seconds - 900.0},
                           .freefallDate = exit});
    }
    return entries;
}

void BM_GroupJumps(benchmark::State& state)
{
    std::vector<std::vector<JumpFileEntry>> entriesByJumper;
    for (std::size_t i = 0; i <= companionCount; ++i)
        entriesByJumper.push_back(makeEntries("jumper-" + std::to_string(i), state.range(0), static_cast<unsigned>(i)));
    const auto names = makeNaturalOrder("en_US");
    for (auto _ : state)
        benchmark::DoNotOptimize(groupJumps(entriesByJumper, *names));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_GroupJumps)->Arg(1'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

/// Logs without dates are ordered by their names alone, the dearest comparison.
void BM_GroupUndatedJumps(benchmark::State& state)
{
    std::vector<std::vector<JumpFileEntry>> entriesByJumper{makeEntries("jumper", state.range(0), 1)};
    for (JumpFileEntry& entry : entriesByJumper.front()) {
        entry.jumpDate.reset();
        entry.freefallDate.reset();
    }
    const auto names = makeNaturalOrder("en_US");
    for (auto _ : state)
        benchmark::DoNotOptimize(groupJumps(entriesByJumper, *names));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_GroupUndatedJumps)->Arg(1'000)->Arg(20'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ospra
