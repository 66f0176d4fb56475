#include "platform/Uuid.h"

#include <random>
#include <string_view>

namespace ospra {

void UuidGenerator::seed()
{
    std::random_device device;
    for (std::uint64_t& word : state)
        word = (std::uint64_t{device()} << 32) | device();
    state[0] |= 1; // a state of zeros would give nothing but zeros
}

std::string uuidString(const Uuid& uuid)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr int nibbles = 32;
    std::string text;
    text.reserve(36);
    for (int i = 0; i < nibbles; ++i) {
        if (i == 8 || i == 12 || i == 16 || i == 20)
            text += '-';
        const std::uint64_t half = i < nibbles / 2 ? uuid.high : uuid.low;
        text += digits[(half >> (60 - 4 * (i % 16))) & 0xFu];
    }
    return text;
}

} // namespace ospra
