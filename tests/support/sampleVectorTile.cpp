#include "tests/support/sampleVectorTile.h"

#include "tests/support/VectorTileWriter.h"
#include "tilemap/Mercator.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ospra {
namespace {

constexpr int extent = 4096;
constexpr int buffer = 64; // units beyond the tile's edges

/// A number from 0 to 1 that depends on a cell of the country and on what it is for.
double chance(int level, int x, int y, int purpose)
{
    std::uint64_t mixed = 0x9e3779b97f4a7c15;
    for (const int part : {level, x, y, purpose}) {
        mixed = (mixed ^ static_cast<std::uint64_t>(part)) * 0xbf58476d1ce4e5b9;
        mixed ^= mixed >> 29;
    }
    return static_cast<double>(mixed >> 11) * 0x1p-53;
}

/// The node of a cell: level `n` has 2^n cells along a side of the world.
WorldPoint nodeOf(int level, int x, int y)
{
    const double shiftX = 0.25 + 0.5 * chance(level, x, y, 1);
    const double shiftY = 0.25 + 0.5 * chance(level, x, y, 2);
    return {std::ldexp(x + shiftX, -level), std::ldexp(y + shiftY, -level)};
}

/// A gently bent line.
std::vector<WorldPoint> bentLine(WorldPoint from, WorldPoint to, double bend)
{
    constexpr int pieces = 12;
    std::vector<WorldPoint> line;
    for (int i = 0; i <= pieces; ++i) {
        const double t = static_cast<double>(i) / pieces;
        const double side = bend * std::sin(t * 6.283185307179586) * 0.15;
        line.push_back(
            {std::lerp(from.x, to.x, t) - side * (to.y - from.y), std::lerp(from.y, to.y, t) + side * (to.x - from.x)});
    }
    return line;
}

std::string inventedName(int level, int x, int y)
{
    constexpr std::array<std::string_view, 12> starts{"Ash", "Bren", "Col",  "Dorn", "Elm", "Farn",
                                                      "Gal", "Hol",  "Inge", "Kel",  "Lor", "Mar"};
    constexpr std::array<std::string_view, 10> ends{"wick",  "holt", "mere",  "stead", "bridge",
                                                    "haven", "ford", "leigh", "combe", "thorpe"};
    const auto pick = [&](const auto& table, int purpose) {
        return table[static_cast<std::size_t>(chance(level, x, y, purpose) * static_cast<double>(table.size()))];
    };
    return std::string(pick(starts, 3)) + std::string(pick(ends, 4));
}

/// Whether the rectangle round two points and that of the tile with its buffer have a part in common.
bool mayTouchTile(GridPoint a, GridPoint b)
{
    return std::max(a.x, b.x) >= -buffer && std::min(a.x, b.x) <= extent + buffer && std::max(a.y, b.y) >= -buffer &&
           std::min(a.y, b.y) <= extent + buffer;
}

/// Puts the country's features into one tile.
class SampleCountry {
public:
    explicit SampleCountry(const TileID& tile) : m_tile(tile) { m_written.extent = extent; }

    [[nodiscard]] WrittenTile written() { return std::move(m_written); }

    /// Visits the cells of a level that may reach into the tile.
    template <typename Visit>
    void forCells(int level, const Visit& visit) const
    {
        const double cells = std::ldexp(1.0, level - m_tile.zoom);
        const int firstX = static_cast<int>(std::floor(m_tile.x * cells)) - 2;
        const int firstY = static_cast<int>(std::floor(m_tile.y * cells)) - 2;
        const int lastX = static_cast<int>(std::ceil((m_tile.x + 1) * cells)) + 1;
        const int lastY = static_cast<int>(std::ceil((m_tile.y + 1) * cells)) + 1;
        for (int y = firstY; y <= lastY; ++y) {
            for (int x = firstX; x <= lastX; ++x)
                visit(x, y);
        }
    }

    void addRoad(std::string_view roadClass, const std::vector<WorldPoint>& line, const std::string& name = {},
                 const std::string& ref = {})
    {
        const std::vector<GridLine> parts = piecesInTile(line);
        if (parts.empty())
            return;
        m_written.roads.push_back({.roadClass = std::string(roadClass), .parts = parts});
        if (!name.empty() || !ref.empty())
            m_written.roadNames.push_back(
                {.name = name, .ref = ref, .roadClass = std::string(roadClass), .parts = parts});
    }

    void addPlace(std::string_view placeClass, int level, int x, int y, std::int64_t rank)
    {
        const GridPoint point = gridPoint(nodeOf(level, x, y));
        if (std::min(point.x, point.y) < -buffer || std::max(point.x, point.y) > extent + buffer)
            return;
        m_written.places.push_back(
            {.name = inventedName(level, x, y), .placeClass = std::string(placeClass), .rank = rank, .point = point});
    }

private:
    [[nodiscard]] GridPoint gridPoint(WorldPoint point) const
    {
        const auto unit = [&](double position, int index) {
            return static_cast<int>(std::lround((std::ldexp(position, m_tile.zoom) - index) * extent));
        };
        return {unit(point.x, m_tile.x), unit(point.y, m_tile.y)};
    }

    [[nodiscard]] std::vector<GridLine> piecesInTile(const std::vector<WorldPoint>& line) const
    {
        std::vector<GridLine> parts;
        GridPoint last = gridPoint(line.front());
        for (std::size_t i = 1; i < line.size(); ++i) {
            const GridPoint next = gridPoint(line[i]);
            if (next != last && mayTouchTile(last, next)) {
                if (parts.empty() || parts.back().back() != last)
                    parts.push_back({last});
                parts.back().push_back(next);
            }
            last = next;
        }
        return parts;
    }

    TileID m_tile;
    WrittenTile m_written;
};

struct Network {
    std::string_view roadClass;
    int level = 0;
    bool alongX = true;     ///< whether the lines go from west to east; else from north to south
    int every = 1;          ///< of how many rows or columns one has a line
    double share = 1.0;     ///< of the pieces that exist
    std::string_view ref{}; ///< beginning of the number; a name where empty
};

constexpr std::array networks{
    Network{"motorway", 8, true, 2, 1.0, "M"},  Network{"trunk", 9, false, 2, 1.0, "A"},
    Network{"primary", 10, true, 2, 1.0, "B"},  Network{"primary", 10, false, 2, 1.0, "B"},
    Network{"secondary", 11, true, 1, 0.7, {}}, Network{"secondary", 11, false, 1, 0.6, {}},
    Network{"tertiary", 12, true, 1, 0.6, {}},  Network{"tertiary", 13, false, 1, 0.6, {}},
    Network{"rail", 9, false, 3, 1.0, {}},      Network{"minor", 14, true, 1, 0.6, {}},
    Network{"track", 15, false, 1, 0.5, {}},
};

void addNetwork(SampleCountry& country, const Network& network)
{
    country.forCells(network.level, [&](int x, int y) {
        const int row = network.alongX ? y : x;
        if (row % network.every != 0 || chance(network.level, x, y, network.alongX ? 5 : 6) > network.share)
            return;
        const WorldPoint from = nodeOf(network.level, x, y);
        const WorldPoint to = nodeOf(network.level, x + (network.alongX ? 1 : 0), y + (network.alongX ? 0 : 1));
        const bool isNamed = network.level <= 13 && network.roadClass != "rail";
        const std::string ref =
            isNamed && !network.ref.empty() ? std::string(network.ref) + std::to_string(row % 90 + 1) : "";
        const std::string name = isNamed && ref.empty() ? inventedName(network.level, row, 0) + " Road" : "";
        country.addRoad(network.roadClass, bentLine(from, to, chance(network.level, x, y, 7) - 0.5), name, ref);
    });
}

/// The streets round a village: a slightly turned grid.
void addStreets(SampleCountry& country, int level, int x, int y)
{
    constexpr int half = 6;
    constexpr double spacing = 0x1p-14 / 16.0; // about 100 m
    const WorldPoint middle = nodeOf(level, x, y);
    const double turn = chance(level, x, y, 8);
    const auto corner = [&](double column, double row) {
        return WorldPoint{middle.x + spacing * (column * std::cos(turn) - row * std::sin(turn)),
                          middle.y + spacing * (column * std::sin(turn) + row * std::cos(turn))};
    };
    for (int i = -half; i <= half; ++i) {
        const double reach = half - 0.8 * std::abs(i) + chance(level, x + i, y, 9);
        const std::string_view roadClass = i % 3 == 0 ? "service" : "minor";
        country.addRoad(roadClass, bentLine(corner(-reach, i), corner(reach, i), 0.1));
        country.addRoad("minor", bentLine(corner(i, -reach), corner(i, reach), 0.1));
    }
}

void addVillages(SampleCountry& country, int zoom)
{
    constexpr int level = 13;
    country.forCells(level, [&](int x, int y) {
        if (chance(level, x, y, 10) > 0.7)
            return;
        country.addPlace(chance(level, x, y, 11) > 0.5 ? "village" : "hamlet", level, x, y, 10);
        if (zoom >= 13)
            addStreets(country, level, x, y);
    });
}

WrittenTile sampleTile(const TileID& tile)
{
    SampleCountry country(tile);
    for (const Network& network : networks) {
        if (network.level <= tile.zoom + 2)
            addNetwork(country, network);
    }
    country.forCells(8, [&](int x, int y) { country.addPlace("city", 8, x, y, 3); });
    if (tile.zoom >= 8)
        country.forCells(10, [&](int x, int y) { country.addPlace("town", 10, x, y, 7); });
    if (tile.zoom >= 10)
        addVillages(country, tile.zoom);
    return country.written();
}

} // namespace

std::string sampleVectorTile(const TileID& tile)
{
    constexpr int highestZoom = 22;
    constexpr int lowestZoom = 4; // the country's cities would fill a tile of lower zooms with thousands of names
    const int tiles = tile.zoom >= lowestZoom && tile.zoom <= highestZoom ? 1 << tile.zoom : 0;
    if (std::min(tile.x, tile.y) < 0 || std::max(tile.x, tile.y) >= tiles)
        return {};
    return writeVectorTile(sampleTile(tile));
}

} // namespace ospra
