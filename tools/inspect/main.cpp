#include "tools/inspect/commands.h"

#include <cstdio>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr const char* usage = "usage: inspect probe FILE...\n"
                              "       inspect log FILE\n"
                              "       inspect jump FILE... [--metric|--imperial] [--agl|--msl] [--hidden I,J]\n"
                              "                    [--zoom freefall|canopy|freefallAndCanopy|none|LO,HI]"
                              " [--hover SECONDS]\n"
                              "       inspect folder PRIMARY [COMPANION...]\n"
                              "       inspect overview PRIMARY --now ISO --tz ZONE --first-weekday N\n"
                              "                    --range 3M|6M|1Y|All [--day YYYY-MM-DD]\n";

} // namespace

/// Prints what the program's logic makes of logs and folders, as one JSON value.
int main(int argc, char** argv)
{
    using Command = std::optional<std::string> (*)(std::span<const std::string>);
    struct Row {
        std::string_view name;
        Command run;
    };
    constexpr Row commands[] = {{"probe", ospra::inspectProbe},
                                {"log", ospra::inspectLog},
                                {"jump", ospra::inspectJump},
                                {"folder", ospra::inspectFolder},
                                {"overview", ospra::inspectOverview}};
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    for (const Row& command : commands) {
        if (arguments.empty() || arguments.front() != command.name)
            continue;
        if (const std::optional<std::string> json = command.run(std::span(arguments).subspan(1))) {
            std::printf("%s\n", json->c_str());
            return 0;
        }
    }
    std::fputs(usage, stderr);
    return 2;
}
