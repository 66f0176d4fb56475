#include "tilemap/planTiles.h"

#include "tilemap/showsPlace.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace ospra {
namespace {

constexpr double largestView = 16'384.0; // logical pixels; of a larger view only the middle is planned
constexpr double farthestTurn = 1000.0;  // a camera further round the world than this is out of all measure
constexpr std::int64_t mostCells = 2048; // a view of more is planned with coarser tiles
constexpr int mostParents = 6;           // levels that are asked for instead of a tile that nobody has
constexpr int usualTileSize = 256;       // pixels

/// A square of the view's grid, as large as a tile of its zoom. The column is not wrapped: it tells the turn, too.
struct Cell {
    int zoom = 0;
    std::int64_t column = 0;
    std::int64_t row = 0;

    [[nodiscard]] TileID ancestor(int ancestorZoom) const
    {
        const std::int64_t wrapped = column & ((std::int64_t{1} << zoom) - 1);
        const int levels = zoom - ancestorZoom;
        return {.zoom = ancestorZoom, .x = static_cast<int>(wrapped >> levels), .y = static_cast<int>(row >> levels)};
    }
    [[nodiscard]] Cell enclosing(int coarserZoom) const
    {
        return {.zoom = coarserZoom, .column = column >> (zoom - coarserZoom), .row = row >> (zoom - coarserZoom)};
    }
    [[nodiscard]] WorldRect ground() const
    {
        const double size = std::exp2(-zoom);
        return {.left = static_cast<double>(column) * size,
                .top = static_cast<double>(row) * size,
                .right = static_cast<double>(column + 1) * size,
                .bottom = static_cast<double>(row + 1) * size};
    }
    /// The part of the ancestor's picture that lies on this cell.
    [[nodiscard]] WorldRect partOf(int ancestorZoom) const
    {
        const double size = std::exp2(ancestorZoom - zoom);
        const std::int64_t within = (std::int64_t{1} << (zoom - ancestorZoom)) - 1;
        const double left = static_cast<double>(column & within) * size;
        const double top = static_cast<double>(row & within) * size;
        return {.left = left, .top = top, .right = left + size, .bottom = top + size};
    }
};

/// The cells that cover a view.
struct Grid {
    int zoom = 0;
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;  ///< outside
    std::int64_t bottom = 0; ///< outside

    [[nodiscard]] std::int64_t cellCount() const { return std::max<std::int64_t>(right - left, 0) * (bottom - top); }
};

Grid gridOf(const WorldRect& world, int zoom)
{
    const double tiles = std::exp2(zoom);
    const double top = std::clamp(std::floor(world.top * tiles), 0.0, tiles);
    return {.zoom = zoom,
            .left = static_cast<std::int64_t>(std::floor(world.left * tiles)),
            .top = static_cast<std::int64_t>(top),
            .right = static_cast<std::int64_t>(std::ceil(world.right * tiles)),
            .bottom = static_cast<std::int64_t>(std::clamp(std::ceil(world.bottom * tiles), top, tiles))};
}

/// The view as far as it is sensible; absent where it shows nothing.
std::optional<MapView> sensibleView(MapView view)
{
    const WorldPoint center = view.camera.center;
    if (!(view.width > 0.0 && view.height > 0.0) || !(std::abs(center.x) <= farthestTurn) || !std::isfinite(center.y))
        return std::nullopt;
    const Camera usable = constrained(view.camera);
    view.camera = {.center = {center.x, usable.center.y}, .zoom = usable.zoom};
    view.width = std::min(view.width, largestView);
    view.height = std::min(view.height, largestView);
    return view;
}

std::vector<Cell> cellsCentreFirst(const Grid& grid, WorldPoint center)
{
    std::vector<Cell> cells;
    cells.reserve(static_cast<std::size_t>(grid.cellCount()));
    for (std::int64_t row = grid.top; row < grid.bottom; ++row) {
        for (std::int64_t column = grid.left; column < grid.right; ++column)
            cells.push_back({.zoom = grid.zoom, .column = column, .row = row});
    }
    const double tiles = std::exp2(grid.zoom);
    std::ranges::sort(cells, {}, [&](const Cell& cell) {
        const double dx = static_cast<double>(cell.column) + 0.5 - center.x * tiles;
        const double dy = static_cast<double>(cell.row) + 0.5 - center.y * tiles;
        return std::tuple(dx * dx + dy * dy, cell.row, cell.column);
    });
    return cells;
}

/// A source that shows a cell, and the zoom at which it does so.
struct Server {
    int source = 0;
    int lowestZoom = 0;
    int zoom = 0;
};

/// Makes the plan, cell by cell.
class Planner {
public:
    Planner(std::span<const MapSource> sources, MapSourceKind kind,
            const std::function<TileState(const TileKey&)>& state)
        : m_sources(sources), m_kind(kind), m_state(state)
    {}

    void add(const Cell& cell)
    {
        const std::vector<Server> servers = serversOf(cell);
        for (const TileKey& key : candidates(cell, servers)) {
            const TileState state = m_state(key);
            if (state == TileState::missing)
                continue;
            want(key);
            if (state == TileState::ready) {
                place(key, cell);
                return;
            }
            break;
        }
        placeStandIns(cell, servers);
    }

    TilePlan finish()
    {
        for (const TileKey& key : m_standIns)
            want(key);
        std::ranges::sort(m_plan.placements, {}, [](const TilePlacement& placement) {
            return std::tuple(placement.key.tile.zoom, placement.key.source, placement.ground.top,
                              placement.ground.left);
        });
        for (const TilePlacement& placement : m_plan.placements)
            m_plan.sources.push_back(placement.key.source);
        std::ranges::sort(m_plan.sources);
        const auto repeated = std::ranges::unique(m_plan.sources);
        m_plan.sources.erase(repeated.begin(), repeated.end());
        return std::move(m_plan);
    }

private:
    /// From the topmost down.
    [[nodiscard]] std::vector<Server> serversOf(const Cell& cell) const
    {
        std::vector<Server> servers;
        const Coordinate middle = coordinateAt(cell.ground().center());
        for (std::size_t i = m_sources.size(); i-- > 0;) {
            const MapSource& source = m_sources[i];
            if (source.kind != m_kind)
                continue;
            // Tiles of twice the usual size show at one zoom what others show at the next.
            const double times = std::clamp(source.tileSize, usualTileSize, 16 * usualTileSize) / double{usualTileSize};
            const int zoom = std::max(cell.zoom - static_cast<int>(std::lround(std::log2(times))), 0);
            const int served = std::min(zoom, source.nativeZoom);
            if (zoom >= source.lowestZoom && served >= 0 && showsPlace(source.bounds, middle))
                servers.push_back({.source = static_cast<int>(i), .lowestZoom = source.lowestZoom, .zoom = served});
        }
        return servers;
    }

    /// What may show a cell, best first: each source's tile, then coarser ones.
    static std::vector<TileKey> candidates(const Cell& cell, const std::vector<Server>& servers)
    {
        std::vector<TileKey> keys;
        int finest = 0;
        for (const Server& server : servers) {
            keys.push_back({server.source, cell.ancestor(server.zoom)});
            finest = std::max(finest, server.zoom);
        }
        for (int zoom = finest - 1; zoom >= std::max(finest - mostParents, 0); --zoom) {
            for (const Server& server : servers) {
                if (zoom < server.zoom && zoom >= server.lowestZoom)
                    keys.push_back({server.source, cell.ancestor(zoom)});
            }
        }
        return keys;
    }

    /// Fills a cell, whose own tile is not there yet, with what is: finer tiles over the finest of the coarser.
    void placeStandIns(const Cell& cell, const std::vector<Server>& servers)
    {
        std::vector<std::pair<TileKey, Cell>> finer;
        for (const int quarter : {0, 1, 2, 3}) {
            const Cell child{
                .zoom = cell.zoom + 1, .column = 2 * cell.column + quarter % 2, .row = 2 * cell.row + quarter / 2};
            for (const Server& server : serversOf(child)) {
                const TileKey key{server.source, child.ancestor(server.zoom)};
                if (server.zoom != child.zoom || m_state(key) != TileState::ready)
                    continue;
                finer.emplace_back(key, child);
                break;
            }
        }
        if (finer.size() < 4)
            placeFinestAncestor(cell, servers);
        for (const auto& [key, child] : finer)
            placeStandIn(key, child);
    }

    void placeFinestAncestor(const Cell& cell, const std::vector<Server>& servers)
    {
        for (int zoom = cell.zoom; zoom >= 0; --zoom) {
            for (const Server& server : servers) {
                if (zoom > server.zoom || zoom < server.lowestZoom)
                    continue;
                const TileKey key{server.source, cell.ancestor(zoom)};
                if (m_state(key) != TileState::ready)
                    continue;
                placeStandIn(key, cell);
                return;
            }
        }
    }

    void placeStandIn(const TileKey& key, const Cell& cell)
    {
        m_standIns.push_back(key);
        place(key, cell);
    }

    /// Pictures are cut to the cell. The features of a vector tile are painted whole, and once for all its cells.
    void place(const TileKey& key, const Cell& cell)
    {
        if (m_kind == MapSourceKind::imagery) {
            m_plan.placements.push_back({.key = key, .part = cell.partOf(key.tile.zoom), .ground = cell.ground()});
            return;
        }
        const TilePlacement whole{.key = key, .ground = cell.enclosing(key.tile.zoom).ground()};
        if (std::ranges::find(m_plan.placements, whole) == m_plan.placements.end())
            m_plan.placements.push_back(whole);
    }

    void want(const TileKey& key)
    {
        if (m_isWanted.insert(key).second)
            m_plan.wanted.push_back(key);
    }

    std::span<const MapSource> m_sources;
    MapSourceKind m_kind;
    const std::function<TileState(const TileKey&)>& m_state;
    TilePlan m_plan;
    std::unordered_set<TileKey> m_isWanted;
    std::vector<TileKey> m_standIns;
};

} // namespace

TilePlan planTiles(const MapView& view, double deviceScale, std::span<const MapSource> sources, MapSourceKind kind,
                   const std::function<TileState(const TileKey&)>& state)
{
    constexpr double leastFineScale = 1.5;
    const auto sensible = sensibleView(view);
    if (!sensible)
        return {};
    const bool isFine = kind == MapSourceKind::imagery && deviceScale >= leastFineScale;
    const WorldRect world = sensible->visibleWorld();
    Grid grid = gridOf(world, static_cast<int>(std::lround(sensible->camera.zoom)) + (isFine ? 1 : 0));
    while (grid.zoom > 0 && grid.cellCount() > mostCells)
        grid = gridOf(world, grid.zoom - 1);
    Planner planner(sources, kind, state);
    for (const Cell& cell : cellsCentreFirst(grid, sensible->camera.center))
        planner.add(cell);
    return planner.finish();
}

} // namespace ospra
