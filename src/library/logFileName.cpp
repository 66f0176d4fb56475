#include "library/logFileName.h"

#include <algorithm>

namespace ospra {

namespace {

/// Locales do not matter here, so that a Turkish i changes nothing.
constexpr char lowercased(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

LogFileName splitFileName(std::string_view fileName)
{
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
        return {.stem = fileName, .extension = {}};
    return {.stem = fileName.substr(0, dot), .extension = fileName.substr(dot + 1)};
}

bool equalsIgnoringCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowercased(x) == lowercased(y); });
}

bool isLogFileName(std::string_view fileName)
{
    return equalsIgnoringCase(splitFileName(fileName).extension, "csv") && !equalsIgnoringCase(fileName, "sensor.csv");
}

} // namespace ospra
