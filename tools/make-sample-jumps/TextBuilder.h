#pragma once

#include <array>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace ospra {

/// Joins texts and numbers, the same under every locale.
class TextBuilder {
public:
    void reserve(std::size_t size) { m_text.reserve(size); }

    TextBuilder& add(std::string_view text)
    {
        m_text += text;
        return *this;
    }

    /// A comma and the value with a fixed number of decimals.
    TextBuilder& field(double value, int decimals)
    {
        std::array<char, 64> digits{};
        const auto result = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed, decimals);
        m_text += ',';
        m_text.append(digits.data(), result.ptr);
        return *this;
    }

    TextBuilder& field(int value) { return add(",").padded(value, 1); }

    /// A whole number that is not negative, with leading zeros.
    TextBuilder& padded(std::int64_t value, std::size_t width)
    {
        std::array<char, 24> digits{};
        const auto result = std::to_chars(digits.begin(), digits.end(), value);
        const auto size = static_cast<std::size_t>(result.ptr - digits.data());
        m_text.append(size < width ? width - size : 0, '0');
        m_text.append(digits.data(), size);
        return *this;
    }

    /// "2026-09-20"
    TextBuilder& day(std::int64_t milliseconds)
    {
        using namespace std::chrono;
        const year_month_day date{
            floor<days>(sys_time<std::chrono::milliseconds>{std::chrono::milliseconds{milliseconds}})};
        padded(int{date.year()}, 4).add("-");
        return padded(unsigned{date.month()}, 2).add("-").padded(unsigned{date.day()}, 2);
    }

    /// "16-42-07" with the separator given.
    TextBuilder& clock(std::int64_t milliseconds, std::string_view separator)
    {
        const std::int64_t second = milliseconds / 1000 % 86'400;
        padded(second / 3600, 2).add(separator);
        return padded(second / 60 % 60, 2).add(separator).padded(second % 60, 2);
    }

    /// The text; nothing is left in the builder.
    [[nodiscard]] std::string take() { return std::move(m_text); }

private:
    std::string m_text;
};

} // namespace ospra
