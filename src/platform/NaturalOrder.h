#pragma once

#include <compare>
#include <memory>
#include <string>
#include <string_view>

namespace ospra {

/// The order in which people expect names: by the rules of a locale, runs of digits by their value ("jump 9" before
/// "jump 10"). May be shared between threads.
class NaturalOrder {
public:
    virtual ~NaturalOrder() = default;

    /// Compares two UTF-8 names; invalid bytes count as U+FFFD.
    [[nodiscard]] virtual std::weak_ordering compare(std::string_view a, std::string_view b) const = 0;
};

/// @param locale an ICU locale name such as "en_US", empty for the user's
[[nodiscard]] std::shared_ptr<const NaturalOrder> makeNaturalOrder(const std::string& locale = {});

} // namespace ospra
