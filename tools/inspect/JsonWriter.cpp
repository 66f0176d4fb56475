#include "tools/inspect/JsonWriter.h"

#include "platform/Files.h"

#include <array>
#include <charconv>
#include <cmath>

namespace ospra {

namespace {

void appendEscaped(std::string& out, std::string_view text)
{
    constexpr std::string_view hex = "0123456789abcdef";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            out += '\\';
            out += character;
        } else if (byte < 0x20) {
            out += "\\u00";
            out += hex[byte >> 4];
            out += hex[byte & 0xF];
        } else {
            out += character;
        }
    }
}

} // namespace

void JsonWriter::separate()
{
    if (m_needsComma)
        m_text += ',';
    m_needsComma = true;
}

void JsonWriter::open(char bracket)
{
    separate();
    m_text += bracket;
    m_needsComma = false;
}

void JsonWriter::close(char bracket)
{
    m_text += bracket;
    m_needsComma = true;
}

void JsonWriter::raw(std::string_view token)
{
    separate();
    m_text += token;
}

JsonWriter& JsonWriter::key(std::string_view name)
{
    value(name);
    m_text += ':';
    m_needsComma = false;
    return *this;
}

void JsonWriter::value(double number)
{
    if (!std::isfinite(number)) {
        value(std::isnan(number) ? std::string_view("nan") : std::string_view(number < 0 ? "-inf" : "inf"));
        return;
    }
    std::array<char, 32> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::general, 17);
    raw(std::string_view(digits.data(), end.ptr));
}

void JsonWriter::value(std::int64_t number)
{
    raw(std::to_string(number));
}

void JsonWriter::value(std::string_view text)
{
    separate();
    m_text += '"';
    appendEscaped(m_text, toValidUtf8(text));
    m_text += '"';
}

} // namespace ospra
