#pragma once

#include "tilemap/client/TileStore.h"
#include "tilemap/planTiles.h"
#include "tilemap/vector/PlacedVectorTile.h"

#include <QPointer>

#include <memory>
#include <vector>

namespace ospra {

/// A tile's picture that is shown, and where.
struct ShownTile {
    TilePlacement placement{};
    std::shared_ptr<const DecodedTile> tile{};
};

/// The tiles of one map: what of the store's is shown for a view, and what is wanted of it.
class MapTiles {
public:
    /// @param store may be null; may go at any time
    void setStore(TileStore* store);
    [[nodiscard]] TileStore* store() const { return m_store; }

    /// Chooses for a view.
    /// @param next what will be looked at soon; tiles are fetched for that
    /// @param surroundings the view with all that the pictures of roads and names show round it
    void follow(const MapView& view, const MapView& next, const MapView& surroundings, double scale);

    /// Pictures of the ground, back to front.
    [[nodiscard]] const std::vector<ShownTile>& pictures() const { return m_pictures; }
    /// Roads and names.
    [[nodiscard]] const std::vector<PlacedVectorTile>& features() const { return m_features; }
    /// Goes up when the roads and names are others.
    [[nodiscard]] int featuresRevision() const { return m_featuresRevision; }
    /// The sources of what is shown, each after those below it.
    [[nodiscard]] std::vector<MapSource> shownSources() const;

private:
    void show(const TilePlan& ground, const TilePlan& roads);

    QPointer<TileStore> m_store;
    std::vector<ShownTile> m_pictures;
    std::vector<PlacedVectorTile> m_features;
    int m_featuresRevision = 0;
    std::vector<int> m_shownSources;
};

} // namespace ospra
