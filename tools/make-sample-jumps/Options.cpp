#include "tools/make-sample-jumps/Options.h"

#include "tools/make-sample-jumps/Person.h"

#include <charconv>
#include <optional>

namespace ospra {

namespace {

constexpr int mostJumps = 5000;
constexpr int mostFiles = 100'000;
constexpr int mostRows = 1'000'000;

template <typename Number>
std::optional<Number> wholeNumber(std::string_view text)
{
    Number value{};
    const char* const begin = text.begin();
    const char* const end = text.end();
    const auto result = std::from_chars(begin, end, value);
    return result.ec == std::errc{} && result.ptr == end ? std::optional(value) : std::nullopt;
}

int numberBetween(std::string_view option, std::string_view text, int lo, int hi)
{
    const std::optional<int> value = wholeNumber<int>(text);
    if (!value || *value < lo || *value > hi)
        throw UsageError(std::string(option) + " wants a whole number from " + std::to_string(lo) + " to " +
                         std::to_string(hi));
    return *value;
}

std::chrono::sys_days parseDay(std::string_view text)
{
    using namespace std::chrono;
    if (text.size() == 10 && text[4] == '-' && text[7] == '-') {
        const auto y = wholeNumber<unsigned>(text.substr(0, 4));
        const auto m = wholeNumber<unsigned>(text.substr(5, 2));
        const auto d = wholeNumber<unsigned>(text.substr(8, 2));
        // From this year on, loggers have no trouble with their calendar, and a season before it starts after 1970.
        if (y && m && d && *y >= 2000) {
            const year_month_day date{year{static_cast<int>(*y)}, month{*m}, day{*d}};
            if (date.ok())
                return date;
        }
    }
    throw UsageError("--end wants a day since the year 2000, such as 2026-09-20");
}

void applyValue(Options& options, std::string_view option, std::string_view value)
{
    if (option == "--seed") {
        const auto seed = wholeNumber<std::uint64_t>(value);
        if (!seed)
            throw UsageError("--seed wants a whole number that is not negative");
        options.seed = *seed;
    } else if (option == "--jumps") {
        options.jumps = numberBetween(option, value, 1, mostJumps);
    } else if (option == "--companions") {
        options.companions = numberBetween(option, value, 0, maxCompanions);
    } else if (option == "--end") {
        options.end = parseDay(value);
    } else if (option == "--files") {
        options.files = numberBetween(option, value, 1, mostFiles);
    } else if (option == "--rows") {
        options.rows = numberBetween(option, value, 1, mostRows);
    } else {
        throw UsageError("unknown option " + std::string(option));
    }
}

} // namespace

std::string_view usageText()
{
    return R"(usage: make-sample-jumps FOLDER [options]
       make-sample-jumps FOLDER --files N --rows N [--seed N]

Writes a season of simulated jumps: FOLDER/Logbook with the logs of one jumper, and a folder for
each companion. The same options give the same bytes on every machine. FOLDER must be new, empty,
or made by this program before; then its files are replaced.

  --seed N          another season (default 1)
  --jumps N         jumps in the logbook (default 160)
  --companions N    companions with logs of their own, 0 to 12 (default 3)
  --end YYYY-MM-DD  the day of the newest jump (default 2026-09-20)
  --small           a season of 8 jumps with 2 companions, for tests
  --files N         in place of a season, N plain logs for benchmarks ...
  --rows N          ... of N rows each, 14 columns, about 110 bytes a row
  --help            this text
)";
}

Options parseOptions(std::span<const std::string_view> arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--help" || argument == "-h") {
            options.help = true;
            return options;
        }
        if (argument == "--small") {
            options.jumps = 8;
            options.companions = 2;
        } else if (argument.starts_with("-")) {
            applyValue(options, argument, i + 1 < arguments.size() ? arguments[i + 1] : std::string_view{});
            ++i;
        } else if (options.folder.empty() && !argument.empty()) {
            options.folder = argument;
        } else {
            throw UsageError("one folder is wanted, and \"" + std::string(argument) + "\" is one too many");
        }
    }
    if (options.folder.empty())
        throw UsageError("the folder to write to is missing");
    if ((options.files > 0) != (options.rows > 0))
        throw UsageError("--files and --rows go together");
    return options;
}

} // namespace ospra
