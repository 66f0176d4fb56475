#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace ospra {

/// A random identifier, made at run time and never persisted. The default value is nobody's.
struct Uuid {
    std::uint64_t high = 0;
    std::uint64_t low = 0;

    friend auto operator<=>(const Uuid&, const Uuid&) = default;
};

/// A fresh version 4 UUID (RFC 4122) from a fast generator of the calling thread, seeded once from the system's
/// randomness. Unique, not secret.
[[nodiscard]] Uuid makeUuid();

/// The canonical text form, 36 characters in upper case: `XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX`.
[[nodiscard]] std::string uuidString(const Uuid& uuid);

} // namespace ospra

template <>
struct std::hash<ospra::Uuid> {
    std::size_t operator()(const ospra::Uuid& uuid) const noexcept
    {
        return uuid.high ^ (uuid.low * 0x9E3779B97F4A7C15u);
    }
};
