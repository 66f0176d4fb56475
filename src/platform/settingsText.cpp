#include "platform/settingsText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace ospra {

namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view general = "General"; // the section of the keys that have none

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(blanks);
    return begin == text.npos ? std::string_view() : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

/// The code point in UTF-8; one that is none as the character that stands for such.
std::string utf8Of(std::uint32_t point)
{
    if (point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF))
        point = 0xFFFD;
    const auto tail = [point](int shift) { return static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80)
        return {static_cast<char>(point)};
    if (point < 0x800)
        return {static_cast<char>(0xC0 | (point >> 6)), tail(0)};
    if (point < 0x10000)
        return {static_cast<char>(0xE0 | (point >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (point >> 18)), tail(12), tail(6), tail(0)};
}

/// Reads a number of any length at `at` and goes behind it. @return far too large where it does not fit
std::optional<std::uint32_t> takeNumber(std::string_view text, std::size_t& at, int base)
{
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data() + at, text.data() + text.size(), number, base);
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    at = static_cast<std::size_t>(end - text.data());
    return error == std::errc() ? number : 0xFFFFFFFF;
}

/// What stands behind a backslash at `at`, which goes behind it.
std::string takeEscape(std::string_view text, std::size_t& at)
{
    constexpr std::string_view names = "abfnrtv";
    constexpr std::string_view meanings = "\a\b\f\n\r\t\v";
    if (at == text.size())
        return {};
    const char c = text[at];
    if (c >= '0' && c <= '7')
        return utf8Of(takeNumber(text, at, 8).value_or(0));
    ++at;
    if (c == 'x') {
        const std::optional<std::uint32_t> point = takeNumber(text, at, 16);
        return point ? utf8Of(*point) : std::string();
    }
    const std::size_t name = names.find(c);
    return {name == names.npos ? c : meanings[name]};
}

/// One text of a list while it is read: blanks around it do not belong to it, unless they are in quotes.
struct Element {
    std::string text{};
    std::size_t kept = 0; ///< bytes up to the last that is no blank at the end

    void add(std::string_view part, bool isKept)
    {
        if (!isKept && text.empty() && kept == 0)
            return;
        text += part;
        kept = isKept ? text.size() : kept;
    }

    /// An at sign at the beginning is written twice, since other readers of the form take what follows for a type.
    [[nodiscard]] std::string take()
    {
        text.resize(kept);
        kept = 0;
        std::string whole = std::exchange(text, {});
        return whole.starts_with("@@") ? whole.substr(1) : whole;
    }
};

std::vector<std::string> parseList(std::string_view text)
{
    std::vector<std::string> list;
    Element element;
    bool isQuoted = false;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at++];
        if (c == '\\')
            element.add(takeEscape(text, at), true);
        else if (c == '"')
            isQuoted = !isQuoted;
        else if (c == ',' && !isQuoted)
            list.push_back(element.take());
        else
            element.add({&c, 1}, isQuoted || blanks.find(c) == blanks.npos);
    }
    list.push_back(element.take());
    return list;
}

/// Undoes percent signs, and reads a backslash as the slash that it stands for in a key.
std::string decodedKey(std::string_view text)
{
    std::string key;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && isHexDigit(text[i + 1]) && isHexDigit(text[i + 2])) {
            std::size_t at = 0;
            key += static_cast<char>(takeNumber(text.substr(i + 1, 2), at, 16).value_or(0));
            i += 2;
        } else {
            key += text[i] == '\\' ? '/' : text[i];
        }
    }
    return key;
}

/// Without names that are empty.
std::string normalizedKey(std::string_view key)
{
    std::string normalized;
    for (const char c : key) {
        if (c != '/' || (!normalized.empty() && normalized.back() != '/'))
            normalized += c;
    }
    if (normalized.ends_with('/'))
        normalized.pop_back();
    return normalized;
}

std::string sectionOf(std::string_view name)
{
    if (name == general)
        return {};
    return (name == "%General" ? std::string(general) : decodedKey(name)) + '/';
}

std::string encodedKey(std::string_view text)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if ((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_' ||
            c == '.')
            encoded += c;
        else
            encoded += {'%', digits[byte >> 4], digits[byte & 0xF]};
    }
    return encoded;
}

/// In quotes wherever it is more than a word.
std::string quoted(const std::string& text)
{
    const bool isWord = !text.empty() && std::ranges::all_of(text, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
               std::string_view("+/=-_.").find(c) != std::string_view::npos;
    });
    if (isWord)
        return text;
    constexpr std::string_view digits = "0123456789abcdef";
    std::string quoted = text.starts_with('@') ? "\"@" : "\"";
    bool isAfterNumber = false; // which would go on with a digit
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        isAfterNumber = byte < 0x20 || byte == 0x7F || (isAfterNumber && isHexDigit(c));
        if (isAfterNumber)
            quoted += {'\\', 'x', digits[byte >> 4], digits[byte & 0xF]};
        else if (c == '"' || c == '\\')
            quoted += {'\\', c};
        else
            quoted += c;
    }
    return quoted + '"';
}

} // namespace

SettingsValues parseSettings(std::string_view text)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF"; // that some editors put before UTF-8
    if (text.starts_with(mark))
        text.remove_prefix(mark.size());
    SettingsValues values;
    std::string section;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line.front() == ';' || line.front() == '#')
            continue;
        const std::size_t equals = line.find('=');
        if (line.front() == '[' && line.back() == ']')
            section = sectionOf(trimmed(line.substr(1, line.size() - 2)));
        else if (equals != line.npos)
            values.insert_or_assign(normalizedKey(section + decodedKey(trimmed(line.substr(0, equals)))),
                                    parseList(line.substr(equals + 1)));
    }
    values.erase(std::string());
    return values;
}

std::string settingsText(const SettingsValues& values)
{
    std::map<std::string, std::string> sections; // that of the keys without one first
    for (const auto& [key, list] : values) {
        const std::size_t slash = key.find('/');
        const bool hasSection = slash != key.npos;
        std::string& lines = sections[hasSection ? key.substr(0, slash) : std::string()];
        lines += encodedKey(hasSection ? key.substr(slash + 1) : key) + '=';
        for (const std::string& element : list)
            lines += (&element == &list.front() ? "" : ", ") + quoted(element);
        lines += '\n';
    }
    std::string text;
    for (const auto& [section, lines] : sections) {
        const std::string name = section == general ? "%General" : encodedKey(section);
        text += (text.empty() ? "[" : "\n[") + (section.empty() ? std::string(general) : name) + "]\n" + lines;
    }
    return text;
}

} // namespace ospra
