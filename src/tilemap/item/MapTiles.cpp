#include "tilemap/item/MapTiles.h"

#include <algorithm>
#include <utility>

namespace ospra {
namespace {

bool isSame(const PlacedVectorTile& a, const PlacedVectorTile& b)
{
    return a.tile == b.tile && a.features == b.features;
}

} // namespace

void MapTiles::setStore(TileStore* store)
{
    if (m_store == store)
        return;
    m_store = store;
    show({}, {});
}

void MapTiles::follow(const MapView& view, const MapView& next, const MapView& surroundings, double scale)
{
    if (!m_store)
        return;
    const auto plan = [&](const MapView& seen, MapSourceKind kind) {
        return planTiles(seen, scale, m_store->sources(), kind,
                         [this](const TileKey& key) { return m_store->state(key); });
    };
    const TilePlan ground = plan(view, MapSourceKind::imagery);
    const TilePlan roads = plan(surroundings, MapSourceKind::vector);
    std::vector<TileKey> wanted = next == view ? ground.wanted : plan(next, MapSourceKind::imagery).wanted;
    const TilePlan nextRoads = next == view ? roads : plan(next, MapSourceKind::vector);
    wanted.insert(wanted.end(), nextRoads.wanted.begin(), nextRoads.wanted.end());
    m_store->want(std::move(wanted));
    show(ground, roads);
}

void MapTiles::show(const TilePlan& ground, const TilePlan& roads)
{
    m_pictures.clear();
    for (const TilePlacement& placement : ground.placements) {
        if (std::shared_ptr<const DecodedTile> tile = m_store->tile(placement.key); tile && !tile->picture.isNull())
            m_pictures.push_back({placement, std::move(tile)});
    }
    std::vector<PlacedVectorTile> features;
    for (const TilePlacement& placement : roads.placements) {
        const std::shared_ptr<const DecodedTile> tile = m_store->tile(placement.key);
        // A tile that is there on two turns round the world is drawn on both by the layer itself.
        if (tile && tile->features &&
            std::ranges::find(features, placement.key.tile, &PlacedVectorTile::tile) == features.end())
            features.push_back({placement.key.tile, tile->features});
    }
    if (!std::ranges::equal(features, m_features, isSame)) {
        m_features = std::move(features);
        ++m_featuresRevision;
    }
    m_shownSources = ground.sources;
    m_shownSources.insert(m_shownSources.end(), roads.sources.begin(), roads.sources.end());
}

std::vector<MapSource> MapTiles::shownSources() const
{
    std::vector<MapSource> sources;
    for (const int index : m_shownSources) {
        if (m_store && index >= 0 && index < std::ssize(m_store->sources()))
            sources.push_back(m_store->sources()[static_cast<std::size_t>(index)]);
    }
    return sources;
}

} // namespace ospra
