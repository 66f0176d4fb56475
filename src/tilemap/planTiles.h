#pragma once

#include "tilemap/Camera.h"
#include "tilemap/MapSource.h"

#include <functional>
#include <span>
#include <vector>

namespace ospra {

/// A tile, or a part of one, to be drawn over a piece of ground.
struct TilePlacement {
    TileKey key{};
    WorldRect part{0.0, 0.0, 1.0, 1.0}; ///< of the tile's picture that is drawn, 0 to 1
    WorldRect ground{};                 ///< where; its x lies on the turn round the world that is in view

    friend bool operator==(const TilePlacement&, const TilePlacement&) = default;
};

/// What a view is made of.
struct TilePlan {
    std::vector<TilePlacement> placements{}; ///< tiles that are ready, back to front
    std::vector<TileKey> wanted{};           ///< tiles that would make it better or are in use, most important first
    std::vector<int> sources{};              ///< those of which something is placed, ascending
};

/// Chooses the tiles of one kind for a view: for each piece of ground the topmost source that shows it, else the one
/// below, else a coarser tile enlarged. Until a tile is there, what is ready at its place stands in for it: finer
/// tiles, the finest of the coarser, another source's. Pictures are cut to pieces of ground that do not overlap, except
/// where finer ones lie on a coarser; a vector tile is placed whole and once on each turn. Any view will do: one that
/// is no view gives an empty plan, of one out of all measure the middle is planned.
/// @param deviceScale device pixels in a logical one; from 1.5 on imagery is taken one zoom level finer, never more
/// than that
/// @param sources the stack, from the ground up
/// @param state called for tiles of sources of the kind only, and cheap
[[nodiscard]] TilePlan planTiles(const MapView& view, double deviceScale, std::span<const MapSource> sources,
                                 MapSourceKind kind, const std::function<TileState(const TileKey&)>& state);

} // namespace ospra
