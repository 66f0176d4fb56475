#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Finding the ends of lines and fields in a log, many bytes at a time.
///
/// A line ends at LF, VT, FF, CR (bytes 0A to 0D), U+0085 (C2 85), U+2028 or U+2029 (E2 80 A8 and E2 80 A9), each by
/// itself. All functions take a position and the end of the text and never read behind it.
namespace ospra {

/// One of the ten digits of ASCII, whatever the locale.
[[nodiscard]] constexpr bool isDigit(char character) noexcept
{
    return character >= '0' && character <= '9';
}

/// Eight bytes as a word, the first the lowest.
[[nodiscard]] inline std::uint64_t loadBytes(const char* position) noexcept
{
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, position, sizeof bytes);
    if constexpr (std::endian::native == std::endian::big) {
        std::uint64_t reversed = 0;
        for (int i = 0; i < 8; ++i)
            reversed |= ((bytes >> (8 * i)) & 0xFF) << (56 - 8 * i);
        return reversed;
    }
    return bytes;
}

/// How many bytes the line end that begins here has; 0 if none begins here.
[[nodiscard]] inline std::ptrdiff_t lineEndLength(const char* position, const char* end) noexcept
{
    const auto byteAt = [position](std::ptrdiff_t i) { return static_cast<unsigned char>(position[i]); };
    const std::ptrdiff_t left = end - position;
    if (left >= 1 && byteAt(0) >= 0x0A && byteAt(0) <= 0x0D)
        return 1;
    if (left >= 2 && byteAt(0) == 0xC2 && byteAt(1) == 0x85)
        return 2;
    if (left >= 3 && byteAt(0) == 0xE2 && byteAt(1) == 0x80 && (byteAt(2) == 0xA8 || byteAt(2) == 0xA9))
        return 3;
    return 0;
}

/// The first position that begins no line end. Between two lines it leads to the next line that is not empty.
[[nodiscard]] inline const char* skipLineEnds(const char* position, const char* end) noexcept
{
    while (const std::ptrdiff_t length = lineEndLength(position, end))
        position += length;
    return position;
}

/// The places in some bytes of the text at which something may end, a bit for each byte, the first the lowest.
struct ByteBlock {
    std::uint64_t commas = 0;
    std::uint64_t lineEnds = 0; ///< candidates: all line ends, and perhaps control characters and what is not ASCII

#if defined(__SSE2__)
    static constexpr std::ptrdiff_t size = 16;

    explicit ByteBlock(const char* position) noexcept
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(position));
        commas = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(','))));
        // As signed numbers the bytes beyond ASCII are negative.
        lineEnds = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmplt_epi8(bytes, _mm_set1_epi8(0x0E))));
    }
#else
    static constexpr std::ptrdiff_t size = 8;

    explicit ByteBlock(const char* position) noexcept
    {
        constexpr std::uint64_t ones = 0x0101010101010101;
        constexpr std::uint64_t high = 0x80 * ones;
        const std::uint64_t bytes = loadBytes(position);
        // With its high bit set no byte borrows from its neighbour.
        const std::uint64_t marked = bytes | high;
        const std::uint64_t fromComma = bytes ^ (ones * ',');
        commas = gathered(~((fromComma | high) - ones) & ~fromComma & high);
        lineEnds = gathered((((marked - ones * 0x0A) & ~(marked - ones * 0x0E)) | bytes) & high);
    }

    /// The high bits of the eight bytes side by side.
    static constexpr std::uint64_t gathered(std::uint64_t highBits) noexcept
    {
        return ((highBits >> 7) * 0x0102040810204080) >> 56;
    }
#endif
};

/// The same for 64 bytes.
struct WideBlock {
    static constexpr std::ptrdiff_t size = 64;

    std::uint64_t commas = 0;
    std::uint64_t lineEnds = 0;

    explicit WideBlock(const char* position) noexcept
    {
        for (std::ptrdiff_t i = 0; i < size; i += ByteBlock::size) {
            const ByteBlock block(position + i);
            commas |= block.commas << i;
            lineEnds |= block.lineEnds << i;
        }
    }

    /// The first line end in this block, which begins at `position`; null if there is none.
    [[nodiscard]] const char* firstLineEnd(const char* position, const char* textEnd) const noexcept
    {
        for (std::uint64_t candidates = lineEnds; candidates != 0; candidates &= candidates - 1) {
            const char* const candidate = position + std::countr_zero(candidates);
            if (lineEndLength(candidate, textEnd) != 0)
                return candidate;
        }
        return nullptr;
    }

    /// Forgets the commas from `place` on.
    void dropCommasFrom(std::ptrdiff_t place) noexcept { commas &= (std::uint64_t{1} << place) - 1; }
};

/// How many bits are set; `std::popcount` is a call where the processor is not known to have an instruction for it.
[[nodiscard]] constexpr std::ptrdiff_t countBits(std::uint64_t bits) noexcept
{
    bits -= (bits >> 1) & 0x5555555555555555;
    bits = (bits & 0x3333333333333333) + ((bits >> 2) & 0x3333333333333333);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
    return static_cast<std::ptrdiff_t>((bits * 0x0101010101010101) >> 56);
}

enum class FieldsMatter { no, yes };

/// The first line end, or with `FieldsMatter::yes` also the first comma; the end of the text if there is none.
template <FieldsMatter fieldsMatter>
[[nodiscard]] inline const char* findEnd(const char* position, const char* end) noexcept
{
    constexpr bool stopsAtComma = fieldsMatter == FieldsMatter::yes;
    for (; end - position >= ByteBlock::size; position += ByteBlock::size) {
        const ByteBlock block(position);
        std::uint64_t candidates = stopsAtComma ? block.commas | block.lineEnds : block.lineEnds;
        for (; candidates != 0; candidates &= candidates - 1) {
            const char* const candidate = position + std::countr_zero(candidates);
            if ((stopsAtComma && *candidate == ',') || lineEndLength(candidate, end) != 0)
                return candidate;
        }
    }
    while (position != end && !(stopsAtComma && *position == ',') && lineEndLength(position, end) == 0)
        ++position;
    return position;
}

[[nodiscard]] inline const char* findLineEnd(const char* position, const char* end) noexcept
{
    return findEnd<FieldsMatter::no>(position, end);
}

/// The first comma or line end.
[[nodiscard]] inline const char* findFieldEnd(const char* position, const char* end) noexcept
{
    return findEnd<FieldsMatter::yes>(position, end);
}

/// The start of the field that lies `count` fields further in the same line; absent if the line has no such field.
[[nodiscard]] inline std::optional<const char*> skipFields(const char* position, const char* end,
                                                           std::ptrdiff_t count) noexcept
{
    while (count > 0 && end - position >= ByteBlock::size) {
        const ByteBlock block(position);
        if (block.lineEnds != 0)
            break;
        std::uint64_t commas = block.commas;
        const std::ptrdiff_t found = countBits(commas);
        if (found >= count) {
            for (; count > 1; --count)
                commas &= commas - 1;
            return position + std::countr_zero(commas) + 1;
        }
        count -= found;
        position += ByteBlock::size;
    }
    for (; count > 0; --count) {
        position = findFieldEnd(position, end);
        if (position == end || *position != ',')
            return std::nullopt;
        ++position;
    }
    return position;
}

/// One field of a line, and where the line ends.
struct FieldOfLine {
    const char* field = nullptr; ///< null: the line has no such field
    const char* lineEnd = nullptr;
};

/// Finds the field that lies `count` fields behind the start of the line, and the end of the line, in one pass.
[[nodiscard]] inline FieldOfLine findFieldOfLine(const char* line, const char* textEnd, std::ptrdiff_t count) noexcept
{
    FieldOfLine result{.field = count == 0 ? line : nullptr};
    const char* position = line;
    for (; textEnd - position >= WideBlock::size; position += WideBlock::size) {
        WideBlock block(position);
        result.lineEnd = block.firstLineEnd(position, textEnd);
        if (count > 0) {
            if (result.lineEnd != nullptr)
                block.dropCommasFrom(result.lineEnd - position);
            const std::ptrdiff_t found = countBits(block.commas);
            if (found >= count) {
                for (; count > 1; --count)
                    block.commas &= block.commas - 1;
                result.field = position + std::countr_zero(block.commas) + 1;
            }
            count -= found;
        }
        if (result.lineEnd != nullptr)
            return result;
    }
    if (count > 0)
        result.field = skipFields(position, textEnd, count).value_or(nullptr);
    result.lineEnd = findLineEnd(position, textEnd);
    return result;
}

} // namespace ospra
