#include "logs/FlySightFile.h"
#include "tests/support/LogText.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/resource.h>

/// Says how much memory a very long log takes at its peak: the text, the samples and what comes on top. One run in a
/// process of its own, since the peak of a process never falls.
int main()
{
    constexpr std::ptrdiff_t rows = 1'400'000;
    constexpr double mebibyte = 1024.0 * 1024.0;
    std::string text = ospra::makeFlightLog({.rows = rows});
    text.shrink_to_fit();
    const auto peak = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return static_cast<double>(usage.ru_maxrss) * 1024.0; // Linux counts in KiB
    };
    const double before = peak();
    const ospra::FlySightFile file = ospra::FlySightFile::parse(text, "long.csv");
    const double fileSize = static_cast<double>(text.size());
    const double rowSize = 128.0 * static_cast<double>(file.dataPoints.size());
    const double allowed = (fileSize + rowSize) * 1.05 + 16.0 * mebibyte;
    std::printf("text %.1f MiB, %td rows of 128 bytes %.1f MiB\n", fileSize / mebibyte, std::ssize(file.dataPoints),
                rowSize / mebibyte);
    std::printf("peak before %.1f MiB, after %.1f MiB, aim %.1f MiB\n", before / mebibyte, peak() / mebibyte,
                allowed / mebibyte);
    return peak() <= allowed ? EXIT_SUCCESS : EXIT_FAILURE;
}
