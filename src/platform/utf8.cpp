#include "platform/Files.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace ospra {

namespace {

/// What stands at one place of a text.
struct Sequence {
    std::size_t length = 0; ///< bytes; of an invalid one, those that could still have begun a character, at least 1
    bool isValid = false;
};

/// The sequence that begins at `at`, by table 3-7 of the Unicode standard: only the second byte has a range that
/// depends on the first.
Sequence sequenceAt(std::string_view bytes, std::size_t at) noexcept
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80)
        return {.length = 1, .isValid = true};
    if (lead < 0xC2 || lead > 0xF4)
        return {.length = 1, .isValid = false};
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    const unsigned char least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char greatest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (at + 1 >= bytes.size() || byte(at + 1) < least || byte(at + 1) > greatest)
        return {.length = 1, .isValid = false};
    for (std::size_t i = 2; i < length; ++i) {
        if (at + i >= bytes.size() || (byte(at + i) & 0xC0u) != 0x80u)
            return {.length = i, .isValid = false};
    }
    return {.length = length, .isValid = true};
}

/// @return the first index at or after `from` of a block that is not all ASCII, or of the rest that fills no block
std::size_t skipAsciiBlocks(std::string_view bytes, std::size_t from) noexcept
{
    using Block = std::array<std::uint64_t, 8>;
    while (bytes.size() - from >= sizeof(Block)) {
        Block block; // NOLINT: filled in the next line; the compiler makes vector instructions of this loop
        std::memcpy(&block, bytes.data() + from, sizeof(Block));
        std::uint64_t all = 0;
        for (const std::uint64_t word : block)
            all |= word;
        if ((all & 0x8080808080808080u) != 0)
            break;
        from += sizeof(Block);
    }
    return from;
}

} // namespace

bool isValidUtf8(std::string_view bytes) noexcept
{
    constexpr std::size_t slowStretch = 64; // bytes read singly before whole blocks are tried again
    std::size_t at = 0;
    while (at < bytes.size()) {
        at = skipAsciiBlocks(bytes, at);
        for (const std::size_t end = at + slowStretch; at < bytes.size() && at < end;) {
            const Sequence sequence = sequenceAt(bytes, at);
            if (!sequence.isValid)
                return false;
            at += sequence.length;
        }
    }
    return true;
}

std::string toValidUtf8(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const Sequence sequence = sequenceAt(bytes, at);
        text += sequence.isValid ? bytes.substr(at, sequence.length) : std::string_view("\xEF\xBF\xBD");
        at += sequence.length;
    }
    return text;
}

} // namespace ospra
