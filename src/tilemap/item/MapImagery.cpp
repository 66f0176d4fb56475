#include "tilemap/item/MapImagery.h"

#include "tilemap/client/MapSources.h"
#include "tilemap/vector/VectorTile.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <cassert>
#include <optional>
#include <utility>

namespace ospra {
namespace {

std::shared_ptr<const VectorTile> decodeFeatures(std::string_view bytes)
{
    std::optional<VectorTile> tile = decodeVectorTile(bytes);
    return tile ? std::make_shared<const VectorTile>(std::move(*tile)) : nullptr;
}

TileStoreOptions userOptions()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    const QString agent = QCoreApplication::applicationName() + u'/' + QCoreApplication::applicationVersion();
    return {.cacheFolder = cache.isEmpty() ? QString() : cache + QStringLiteral("/tiles"),
            .userAgent = agent.toUtf8(),
            .decodeVector = decodeFeatures};
}

} // namespace

MapImagery* MapImagery::s_current = nullptr;

MapImagery::MapImagery()
    : m_mailbox(makeEventLoopMailbox()),
      m_reading([this] { m_mailbox->post([this, sources = loadMapSources()] { open(sources); }); })
{
    assert(s_current == nullptr);
    s_current = this;
}

MapImagery::MapImagery(std::unique_ptr<TileStore> store) : m_store(std::move(store))
{
    assert(s_current == nullptr);
    s_current = this;
}

MapImagery::~MapImagery()
{
    s_current = nullptr;
}

void MapImagery::open(std::vector<MapSource> sources)
{
    if (sources.empty())
        return;
    m_store = std::make_unique<TileStore>(std::move(sources), userOptions());
    emit storeChanged();
}

} // namespace ospra
