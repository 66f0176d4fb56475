#include "tests/tilemap/client/StoreBed.h"

namespace ospra {

StoreBed::StoreBed()
{
    options.cacheFolder = m_folder.filePath(QStringLiteral("tiles"));
    options.userAgent = "Ospra-Test/1.0";
    options.waitUnit = std::chrono::milliseconds(50);
}

MapSource StoreBed::imagery() const
{
    return {.id = "ground", .address = server.address() + "/imagery/{z}/{x}/{y}.jpg", .nativeZoom = 19};
}

TileStore& StoreBed::start(const std::vector<MapSource>& sources)
{
    m_store.reset();
    m_store = std::make_unique<TileStore>(sources, options);
    return *m_store;
}

TileState StoreBed::fetch(const TileKey& key)
{
    m_store->want({key});
    (void)waitUntil([&] { return m_store->state(key) != TileState::unknown; });
    return m_store->state(key);
}

TileState StoreBed::fetchAnew(const TileKey& key)
{
    start();
    return fetch(key);
}

bool StoreBed::becomes(TileState state, const TileKey& key)
{
    return waitUntil([&] { return m_store->state(key) == state; });
}

std::vector<TileKey> tilesFrom(int first, int count)
{
    std::vector<TileKey> tiles;
    for (int x = first; x < first + count; ++x)
        tiles.push_back(tileAt(x));
    return tiles;
}

std::string pathOf(const TileKey& key)
{
    return "/imagery/" + std::to_string(key.tile.zoom) + "/" + std::to_string(key.tile.x) + "/" +
           std::to_string(key.tile.y) + ".jpg";
}

} // namespace ospra
