#include "tools/make-sample-jumps/makeSamples.h"

#include <exception>
#include <iostream>
#include <vector>

int main(int count, char* arguments[])
{
    using namespace ospra;
    try {
        const std::vector<std::string_view> words(arguments + std::min(count, 1), arguments + count);
        const Options options = parseOptions(words);
        if (options.help) {
            std::cout << usageText();
            return 0;
        }
        OutputFolder output(options.folder);
        if (options.files > 0)
            makeBenchmarkLogs(options, output);
        else
            makeSeason(options, output);
    } catch (const UsageError& error) {
        std::cerr << "make-sample-jumps: " << error.what() << "\n\n" << usageText();
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "make-sample-jumps: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
