#include "logs/FlySightFile.h"
#include "logs/FlySightParseError.h"
#include "logs/probeLogDates.h"
#include "tests/support/LogText.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <string_view>

namespace ospra {

namespace {

constexpr std::size_t size = 10'000'000;
constexpr std::string_view head = "time,lat,lon,hMSL,velN,velE,velD\nunits\n";

/// The head once and the row until the text is large.
std::string repeated(std::string_view start, std::string_view row)
{
    std::string text(start);
    while (text.size() < size)
        text += row;
    return text;
}

std::string manyColumns()
{
    const std::string gap(size / 20, ',');
    std::string text = "time,lat,lon" + gap + "hMSL,velN,velE" + gap + "velD\nunits\n";
    while (text.size() < size)
        text.append("2024-06-01T14:02:11.20Z,1,2").append(gap).append("3,4,5").append(gap).append("6\n");
    return text;
}

struct OddInput {
    const char* name;
    std::string (*make)();
};

/// The first is what the others are compared with, byte for byte.
constexpr std::array oddInputs{
    OddInput{"clean log", [] { return makeFlightLog({.rows = 92'000}); }},
    OddInput{"no line end", [] { return repeated("", "time,lat"); }},
    OddInput{"one row of one field", [] { return repeated(head, "x"); }},
    OddInput{"one row of empty fields", [] { return repeated(head, ","); }},
    OddInput{"a number of ten million digits",
             [] { return repeated(std::string(head) + "2024-06-01T14:02:11.20Z,1.", "7") + ",2,3,4,5,6\n"; }},
    OddInput{"a million columns", manyColumns},
    OddInput{"columns of one letter", [] { return repeated("time,lat,lon,hMSL,velN,velE,velD", ",a") + "\nu\nr\n"; }},
    OddInput{"hexadecimal floats",
             [] {
                 return repeated(head, "2024-06-01T14:02:11.20Z,0x1.7799999p+5,0x1.dccp+2,0x1.f58p+11,"
                                       "-0x1.f4p+4,0x1.8cp+3,0x1.16p+1\n");
             }},
    OddInput{"long numbers",
             [] {
                 return repeated(head, "2024-06-01T14:02:11.20Z,46.948120012345678,7.44744001234567890123,"
                                       "4.012337e3,-31.250000000001,1.240000000000000001e+1,2.180000000001\n");
             }},
    OddInput{"times that never repeat their form",
             [] {
                 return repeated(head, "2024-06-01T14:02:11+02:00,1.5,2.5,3.5,4.5,5.5,6.5\n"
                                       "2024-06-02T15:03:11.123456789Z,1.5,2.5,3.5,4.5,5.5,6.5\n");
             }},
    OddInput{"U+2028", [] { return makeFlightLog({.rows = 92'000, .lineEnd = "\xE2\x80\xA8"}); }},
    OddInput{"CR LF", [] { return makeFlightLog({.rows = 92'000, .lineEnd = "\r\n"}); }},
    OddInput{"empty lines", [] { return repeated(head, "\n"); }},
    OddInput{"lines of one letter", [] { return repeated(head, "x\n"); }},
    OddInput{"no ASCII", [] { return repeated(head, "\xE2\x80\xA6"); }},
    OddInput{"null characters", [] { return repeated(head, std::string_view("\0", 1)); }},
    OddInput{"blanks around a name", [] { return repeated("", "\xC2\xA0") + "time\nu\nr\n"; }},
    OddInput{"heads without data", [] { return repeated("$FLYS,1\n", "$COL,GNSS,time,lat,lon,hMSL\n"); }},
    OddInput{"records of other sensors",
             [] { return makeFlightLog({.version = LogVersion::version2, .rows = 40'000, .otherRecords = 4}); }},
};

void BM_ReadOddInput(benchmark::State& state)
{
    const OddInput& input = oddInputs.at(static_cast<std::size_t>(state.range(0)));
    const std::string text = input.make();
    for (auto _ : state) {
        try {
            benchmark::DoNotOptimize(FlySightFile::parse(text, "odd.csv"));
        } catch (const FlySightParseError& error) {
            benchmark::DoNotOptimize(error.errorCase());
        }
    }
    state.SetBytesProcessed(state.iterations() * std::ssize(text));
    state.SetLabel(input.name);
}
BENCHMARK(BM_ReadOddInput)->DenseRange(0, oddInputs.size() - 1)->Unit(benchmark::kMillisecond);

void BM_ProbeOddInput(benchmark::State& state)
{
    const OddInput& input = oddInputs.at(static_cast<std::size_t>(state.range(0)));
    const std::string text = input.make();
    for (auto _ : state)
        benchmark::DoNotOptimize(probeLogDates(text));
    state.SetBytesProcessed(state.iterations() * std::ssize(text));
    state.SetLabel(input.name);
}
BENCHMARK(BM_ProbeOddInput)->DenseRange(0, oddInputs.size() - 1)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace ospra
