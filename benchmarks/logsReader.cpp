#include "benchmarks/logsYardstick.h"
#include "logs/FlySightFile.h"
#include "tests/support/LogText.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

namespace ospra {

namespace {

constexpr std::ptrdiff_t jumpRows = 13'800;   // 1.5 MB, a long jump
constexpr std::ptrdiff_t dayRows = 1'400'000; // a logger that was left on

/// The same log for all runs; to write a long one takes longer than to read it.
const std::string& logOf(std::ptrdiff_t rows)
{
    static std::map<std::ptrdiff_t, std::string> texts;
    std::string& text = texts[rows];
    if (text.empty())
        text = makeFlightLog({.rows = rows});
    return text;
}

void countWork(benchmark::State& state, const std::string& text, std::ptrdiff_t rows)
{
    state.SetBytesProcessed(state.iterations() * std::ssize(text));
    state.counters["row"] = benchmark::Counter(static_cast<double>(state.iterations() * rows),
                                               benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void BM_ReadLog(benchmark::State& state)
{
    const std::string& text = logOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(FlySightFile::parse(text, "jump.csv"));
    countWork(state, text, state.range(0));
}
BENCHMARK(BM_ReadLog)->Arg(jumpRows)->Arg(dayRows);

void BM_ReadLogPlainly(benchmark::State& state)
{
    const std::string& text = logOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(readPlainly(text));
    countWork(state, text, state.range(0));
}
BENCHMARK(BM_ReadLogPlainly)->Arg(jumpRows)->Arg(dayRows);

} // namespace

} // namespace ospra
