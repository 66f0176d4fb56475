#pragma once

#include <bit>
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

/// The random bits behind `makeUuid`, of one thread: xoshiro256++ (Blackman and Vigna, "Scrambled Linear Pseudorandom
/// Number Generators", 2019). It stands in the header because every row of a log asks for an id.
struct UuidGenerator {
    std::uint64_t state[4] = {}; ///< all zero until it is seeded

    /// Takes the state from the system's randomness.
    void seed();

    [[nodiscard]] std::uint64_t next()
    {
        const std::uint64_t result = std::rotl(state[0] + state[3], 23) + state[0];
        const std::uint64_t shifted = state[1] << 17;
        state[2] ^= state[0];
        state[3] ^= state[1];
        state[1] ^= state[2];
        state[0] ^= state[3];
        state[2] ^= shifted;
        state[3] = std::rotl(state[3], 45);
        return result;
    }
};

/// Constant-initialised, so that reaching it costs no guard.
inline constinit thread_local UuidGenerator threadUuidGenerator{};

/// A fresh version 4 UUID (RFC 4122) from a fast generator of the calling thread, seeded once from the system's
/// randomness. Unique, not secret.
[[nodiscard]] inline Uuid makeUuid()
{
    UuidGenerator& generator = threadUuidGenerator;
    if ((generator.state[0] | generator.state[1] | generator.state[2] | generator.state[3]) == 0) [[unlikely]]
        generator.seed();
    constexpr std::uint64_t versionBits = 0xF000u;
    constexpr std::uint64_t version4 = 0x4000u;
    constexpr std::uint64_t variantBits = std::uint64_t{3} << 62;
    constexpr std::uint64_t variantRfc4122 = std::uint64_t{2} << 62;
    return Uuid{.high = (generator.next() & ~versionBits) | version4,
                .low = (generator.next() & ~variantBits) | variantRfc4122};
}

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
