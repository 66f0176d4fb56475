#include "tests/logs/NaiveLogs.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <memory>

namespace ospra::naive {

namespace {

/// Finds all that is to be taken out of texts, by a regular expression.
class Eraser {
public:
    explicit Eraser(const char* expression) : m_pattern(icu::RegexPattern::compile(expression, 0, m_status)) {}

    std::string operator()(const std::string& text)
    {
        const icu::UnicodeString whole = icu::UnicodeString::fromUTF8(text);
        const std::unique_ptr<icu::RegexMatcher> matcher(m_pattern->matcher(whole, m_status));
        std::string rest;
        return matcher->replaceAll(icu::UnicodeString(), m_status).toUTF8String(rest);
    }

private:
    UErrorCode m_status = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexPattern> m_pattern;
};

/// Whether the text has digits where the pattern has zeros, and is the pattern elsewhere.
bool matches(std::string_view text, std::string_view pattern)
{
    return std::ranges::equal(text, pattern, [](char character, char wanted) {
        return wanted == '0' ? character >= '0' && character <= '9' : character == wanted;
    });
}

std::optional<double> wholeSeconds(const std::string& text)
{
    std::tm given{};
    if (!matches(text, "0000-00-00T00:00:00") || ::strptime(text.c_str(), "%Y-%m-%dT%H:%M:%S", &given) == nullptr)
        return std::nullopt;
    std::tm normal = given; // a day or second that does not exist comes back as another
    const std::time_t seconds = ::timegm(&normal);
    if (given.tm_mday != normal.tm_mday || given.tm_sec != normal.tm_sec)
        return std::nullopt;
    return static_cast<double>(seconds);
}

std::optional<double> zoneSeconds(const std::string& zone)
{
    if (zone == "Z")
        return 0.0;
    if (!matches(zone, "+00:00") && !matches(zone, "-00:00"))
        return std::nullopt;
    const int hours = std::stoi(zone.substr(1, 2));
    const int minutes = std::stoi(zone.substr(4, 2));
    if (hours > 23 || minutes > 59)
        return std::nullopt;
    return (zone[0] == '-' ? -60.0 : 60.0) * (hours * 60 + minutes);
}

std::optional<Instant> dateWithoutFraction(const std::string& field)
{
    if (field.size() < 20)
        return std::nullopt;
    const auto seconds = wholeSeconds(field.substr(0, 19));
    const auto zone = zoneSeconds(field.substr(19));
    return seconds && zone ? std::optional(Instant{*seconds - *zone}) : std::nullopt;
}

std::optional<Instant> dateWithFraction(const std::string& field)
{
    if (field.size() < 20 || field[19] != '.')
        return std::nullopt;
    const std::size_t zoneAt = std::min(field.find_first_not_of("0123456789", 20), field.size());
    std::string fraction = field.substr(20, zoneAt - 20);
    if (fraction.empty() || fraction.size() > 9)
        return std::nullopt;
    fraction.resize(3, '0');
    const auto date = dateWithoutFraction(field.substr(0, 19) + field.substr(zoneAt));
    return date ? std::optional(Instant{date->seconds + std::stoi(fraction) / 1000.0}) : std::nullopt;
}

} // namespace

std::string columnName(const std::string& text)
{
    static Eraser eraseBlanksAround("^[\\t\\p{Zs}]+|[\\t\\p{Zs}]+\\z");
    std::string name = eraseBlanksAround(text);
    for (char& character : name)
        character = character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
    return name;
}

std::optional<double> number(const std::string& field)
{
    if (field.empty() || std::string_view("\0\t\n\v\f\r ", 7).find(field[0]) != std::string_view::npos)
        return std::nullopt;
    char* end = nullptr;
    const double value = std::strtod(field.c_str(), &end);
    return end == field.c_str() + field.size() ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> integer(const std::string& field)
{
    const std::string digits = !field.empty() && (field[0] == '+' || field[0] == '-') ? field.substr(1) : field;
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    errno = 0;
    const long long value = std::strtoll(field.c_str(), nullptr, 10);
    return errno == 0 ? std::optional<std::int64_t>(value) : std::nullopt;
}

std::optional<Instant> date(const std::string& field)
{
    const auto withFraction = dateWithFraction(field);
    return withFraction ? withFraction : dateWithoutFraction(field);
}

std::optional<Instant> looseDate(const std::string& field)
{
    if (const auto found = date(field))
        return found;
    static Eraser eraseFractions("\\.\\d+");
    return dateWithoutFraction(eraseFractions(field));
}

} // namespace ospra::naive
