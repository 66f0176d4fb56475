#pragma once

#include <exception>

namespace ospra {

/// Why a log could not be read. The text is the one that the user sees.
class FlySightParseError : public std::exception {
public:
    enum class Case { invalidFormat, noData };

    explicit FlySightParseError(Case errorCase) noexcept : m_case(errorCase) {}

    [[nodiscard]] Case errorCase() const noexcept { return m_case; }
    [[nodiscard]] const char* what() const noexcept override
    {
        return m_case == Case::invalidFormat ? "Invalid FlySight CSV format" : "No data points found";
    }

private:
    Case m_case;
};

} // namespace ospra
