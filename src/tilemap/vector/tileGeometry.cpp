#include "tilemap/vector/tileGeometry.h"

#include <protozero/varint.hpp>

namespace ospra {
namespace {

// Source: Mapbox vector tile format 2.1, section 4.3.
constexpr std::uint32_t moveTo = 1;
constexpr std::uint32_t lineTo = 2;
constexpr std::uint32_t closePath = 7;

/// The parameters of the commands, one after another.
class Parameters {
public:
    Parameters(std::string_view bytes, std::uint32_t extent)
        : m_next(bytes.data()), m_end(bytes.data() + bytes.size()), m_perUnit(1.0 / extent)
    {}

    [[nodiscard]] bool isAtEnd() const { return m_next == m_end; }
    /// Whether there may be that many points in what is left: each takes two bytes or more.
    [[nodiscard]] bool hasRoomFor(std::uint32_t points) const { return points <= (m_end - m_next) / 2; }

    [[nodiscard]] std::uint32_t number()
    {
        return static_cast<std::uint32_t>(protozero::decode_varint(&m_next, m_end));
    }

    /// The next point: each is told as a step from the one before, over all parts. The sums cannot overflow, since
    /// there are fewer steps than bytes.
    [[nodiscard]] TilePoint point()
    {
        m_x += protozero::decode_zigzag32(number());
        m_y += protozero::decode_zigzag32(number());
        return {.x = static_cast<float>(static_cast<double>(m_x) * m_perUnit),
                .y = static_cast<float>(static_cast<double>(m_y) * m_perUnit)};
    }

private:
    const char* m_next;
    const char* m_end;
    double m_perUnit;
    std::int64_t m_x = 0;
    std::int64_t m_y = 0;
};

} // namespace

std::optional<std::vector<std::vector<TilePoint>>> readTileGeometry(std::string_view commands, std::uint32_t extent)
{
    std::vector<std::vector<TilePoint>> parts;
    Parameters parameters(commands, extent);
    while (!parameters.isAtEnd()) {
        const std::uint32_t head = parameters.number();
        const std::uint32_t command = head & 7;
        const std::uint32_t count = head >> 3;
        if (command == closePath)
            continue;
        if ((command != moveTo && command != lineTo) || !parameters.hasRoomFor(count))
            return std::nullopt;
        if (command == lineTo && parts.empty())
            return std::nullopt;
        for (std::uint32_t i = 0; i < count; ++i) {
            if (command == moveTo)
                parts.emplace_back();
            else if (i == 0)
                parts.back().reserve(count + 1);
            parts.back().push_back(parameters.point());
        }
    }
    return parts;
}

} // namespace ospra
