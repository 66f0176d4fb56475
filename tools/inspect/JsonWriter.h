#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ospra {

/// Writes one JSON value as text, in the order of the calls. The caller sees to it that objects and lists are closed.
class JsonWriter {
public:
    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginList() { open('['); }
    void endList() { close(']'); }
    /// The name of the next value of an object.
    JsonWriter& key(std::string_view name);

    void value(double number); ///< 17 significant digits; "nan", "inf" or "-inf" where it is not finite
    void value(std::int64_t number);
    void value(bool flag) { raw(flag ? "true" : "false"); }
    void value(std::string_view text); ///< invalid UTF-8 is replaced by U+FFFD
    void value(const char* text) { value(std::string_view(text)); }
    void value(Instant instant) { value(instant.seconds); }
    void null() { raw("null"); }
    template <typename Value>
    void value(const std::optional<Value>& optional)
    {
        if (optional)
            value(*optional);
        else
            null();
    }
    /// One member of an object.
    template <typename Value>
    void member(std::string_view name, const Value& memberValue)
    {
        key(name);
        value(memberValue);
    }

    [[nodiscard]] const std::string& text() const { return m_text; }

private:
    void open(char bracket);
    void close(char bracket);
    void raw(std::string_view token);
    void separate();

    std::string m_text;
    bool m_needsComma = false;
};

} // namespace ospra
