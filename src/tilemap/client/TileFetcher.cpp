#include "tilemap/client/TileFetcher.h"

#include "tilemap/client/addresses.h"
#include "tilemap/client/decodePicture.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QEvent>

#include <algorithm>
#include <string_view>
#include <utility>

namespace ospra {

namespace {

constexpr int decoders = 2;     // threads
constexpr int lookUpsATurn = 8; // files read between two looks at the network
constexpr int decodedAhead = 8; // tiles; those of a view that is left by then are not even read

std::shared_ptr<const DecodedTile> decodeTile(MapSourceKind kind, const TileStoreOptions& options,
                                              const QByteArray& body)
{
    DecodedTile tile;
    if (kind == MapSourceKind::imagery)
        tile.picture = decodePicture(body);
    else if (options.decodeVector && !body.isEmpty())
        tile.features = options.decodeVector({body.constData(), static_cast<std::size_t>(body.size())});
    if (tile.picture.isNull() && !tile.features)
        return nullptr;
    return std::make_shared<const DecodedTile>(std::move(tile));
}

bool isDocument(const TileKey& key)
{
    return key.tile == TileCache::document;
}

} // namespace

void TileFetcher::DownloadDeleter::operator()(Download* download) const
{
    delete download;
}

TileFetcher::TileFetcher(std::vector<MapSource> sources, TileStoreOptions options,
                         std::function<void(const TileReport&)> report, std::stop_token stop)
    : m_sources(std::move(sources)), m_options(std::move(options)), m_waits(m_options.waitUnit),
      m_report(std::move(report)), m_stop(std::move(stop)),
      m_cache(m_options.cacheFolder, m_options.cacheLimit, m_stop), m_documents(m_sources.size()),
      m_mailbox([this] { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }), m_pool(decoders)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &TileFetcher::pump);
}

TileFetcher::~TileFetcher() = default;

bool TileFetcher::event(QEvent* event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    m_mailbox.drain();
    return true;
}

const MapSource& TileFetcher::sourceOf(const TileKey& key) const
{
    return m_sources[static_cast<std::size_t>(key.source)];
}

void TileFetcher::want(std::vector<WantedTile> tiles, std::uint64_t seen)
{
    m_mailbox.post([this, wanted = std::move(tiles), seen] { setWanted(wanted, seen); });
}

void TileFetcher::setWanted(const std::vector<WantedTile>& tiles, std::uint64_t seen)
{
    std::erase_if(m_reported, [&](const auto& entry) { return entry.second.number <= seen; });
    m_order.clear();
    m_wanted.clear();
    for (const WantedTile& tile : tiles) {
        const auto source = static_cast<std::size_t>(tile.key.source);
        if (!m_sources[source].tileJson.empty())
            addWanted({{tile.key.source, TileCache::document}, m_documents[source].state});
        const auto reported = m_reported.find(tile.key);
        addWanted({tile.key, reported == m_reported.end() ? tile.state : reported->second.state});
    }
    dropUnwanted();
    pump();
}

void TileFetcher::addWanted(const WantedTile& tile)
{
    if (m_wanted.emplace(tile.key, tile.state).second)
        m_order.push_back(tile.key);
}

void TileFetcher::dropUnwanted()
{
    std::erase_if(m_jobs, [&](const auto& entry) {
        const Job& job = entry.second;
        if (m_wanted.contains(entry.first) || job.stage == Job::Stage::fromCache || job.stage == Job::Stage::decoding)
            return false;
        if (job.host)
            job.host->end();
        return true;
    });
}

void TileFetcher::wakeAt(WaitClock::time_point time)
{
    if (m_timer.isActive() && m_wake <= time)
        return;
    m_wake = time;
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(time - WaitClock::now());
    m_timer.start(std::max(wait, std::chrono::milliseconds(0)));
}

void TileFetcher::pump()
{
    m_timer.stop();
    m_lookUpsLeft = lookUpsATurn;
    for (const TileKey& key : m_order) {
        if (m_stop.stop_requested())
            return;
        consider(key);
    }
}

void TileFetcher::consider(const TileKey& key)
{
    auto job = m_jobs.find(key);
    if (job == m_jobs.end()) {
        const TileState state = m_wanted[key];
        if (state == TileState::ready)
            return;
        if (state == TileState::missing) {
            const Trouble& trouble = m_troubles[key];
            if (trouble.isFinal)
                return;
            if (trouble.notBefore > WaitClock::now())
                return wakeAt(trouble.notBefore);
        } else if (m_decoding >= decodedAhead) {
            return; // looked at again when one of them is done
        } else if (m_lookUpsLeft-- <= 0) {
            return wakeAt(WaitClock::now());
        }
        job = m_jobs.try_emplace(key).first;
        if (state == TileState::unknown)
            lookUp(key);
    }
    if (job->second.stage == Job::Stage::waiting)
        proceed(job);
}

void TileFetcher::lookUp(const TileKey& key)
{
    std::optional<CachedTile> cached = m_cache.read(sourceOf(key).id, key.tile);
    if (!cached)
        return;
    const QByteArray body = std::exchange(cached->body, {});
    Job& job = m_jobs[key];
    if (isDocument(key)) {
        if (readDocument(key.source, body))
            job.kept = std::move(cached);
        return;
    }
    job.stage = Job::Stage::fromCache;
    job.kept = std::move(cached);
    decode(key, body, [this, key](std::shared_ptr<const DecodedTile> tile) { showCached(key, std::move(tile)); });
}

/// Has a body decoded on the pool; `done` is called back in this thread, with null where it is no tile.
void TileFetcher::decode(const TileKey& key, const QByteArray& body,
                         std::function<void(std::shared_ptr<const DecodedTile>)> done)
{
    ++m_decoding;
    m_pool.post([this, kind = sourceOf(key).kind, body, done = std::move(done)](const std::stop_token&) {
        m_mailbox.post([this, tile = decodeTile(kind, m_options, body), done] {
            --m_decoding;
            done(tile);
            wakeAt(WaitClock::now());
        });
    });
}

bool TileFetcher::readDocument(int source, const QByteArray& body)
{
    const std::optional<TileDocument> content = parseTileDocument(body);
    if (!content)
        return false;
    m_documents[static_cast<std::size_t>(source)] = {TileState::ready, *content};
    m_wanted[{source, TileCache::document}] = TileState::ready;
    return true;
}

void TileFetcher::showCached(const TileKey& key, std::shared_ptr<const DecodedTile> tile)
{
    const auto job = m_jobs.find(key);
    job->second.stage = Job::Stage::waiting;
    if (tile) {
        report(key, TileState::ready, std::move(tile));
    } else {
        m_cache.remove(sourceOf(key).id, key.tile);
        job->second.kept.reset();
    }
    if (!m_wanted.contains(key))
        m_jobs.erase(job);
}

void TileFetcher::report(const TileKey& key, TileState state, std::shared_ptr<const DecodedTile> tile)
{
    if (const auto wanted = m_wanted.find(key); wanted != m_wanted.end())
        wanted->second = state;
    if (isDocument(key)) {
        m_documents[static_cast<std::size_t>(key.source)].state = state;
        return;
    }
    m_reported[key] = {++m_lastReport, state};
    m_report({.key = key, .state = state, .tile = std::move(tile), .number = m_lastReport});
}

} // namespace ospra
