#include "tilemap/client/TileStore.h"

#include "platform/Mailbox.h"
#include "tilemap/client/TileFetcher.h"
#include "tilemap/vector/VectorTile.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <algorithm>
#include <stop_token>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace ospra {

namespace {

constexpr int countableZoom = 30; // beyond it tiles cannot be counted in an int

template <typename Line>
qint64 bytesOf(const std::vector<Line>& lines)
{
    qint64 bytes = 0;
    for (const Line& line : lines)
        bytes += qint64{sizeof(Line)} + std::ssize(line.points) * qint64{sizeof(TilePoint)};
    return bytes;
}

qint64 bytesOf(const DecodedTile& tile)
{
    constexpr qint64 longName = 32; // bytes, the usual length of one that does not fit into its string
    qint64 bytes = qint64{sizeof(DecodedTile)} + tile.picture.sizeInBytes();
    if (tile.features) {
        const auto names = std::ssize(tile.features->roadNames) + std::ssize(tile.features->places);
        bytes += bytesOf(tile.features->roads) + bytesOf(tile.features->roadNames) + names * longName +
                 std::ssize(tile.features->places) * qint64{sizeof(TilePlace)};
    }
    return bytes;
}

} // namespace

class TileStore::Private final : public QObject {
public:
    Private(TileStore& store, std::vector<MapSource> sources, TileStoreOptions options);
    ~Private() override;

    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    bool event(QEvent* event) override;

    void want(std::vector<TileKey> tiles);
    [[nodiscard]] TileState state(const TileKey& key) const;
    [[nodiscard]] std::shared_ptr<const DecodedTile> use(const TileKey& key);

    const std::vector<MapSource> m_sources;

private:
    struct Held {
        std::shared_ptr<const DecodedTile> tile{};
        qint64 bytes = 0;
        std::uint64_t lastUse = 0;
    };

    [[nodiscard]] bool exists(const TileKey& key) const;
    void accept(const TileReport& report);
    void release(const TileKey& key);
    void trim();

    TileStore& m_store;
    const qint64 m_memoryLimit;

    std::unordered_map<TileKey, Held> m_held{};
    qint64 m_heldBytes = 0;
    std::uint64_t m_uses = 0;
    std::unordered_set<TileKey> m_missing{};
    std::vector<TileKey> m_order{}; ///< what is wanted, most important first
    std::unordered_set<TileKey> m_wanted{};
    std::unordered_set<TileKey> m_withoutRoom{}; ///< wanted, and given up since all together are too much
    std::vector<WantedTile> m_asked{};
    std::uint64_t m_lastReport = 0;
    bool m_isChanged = false; ///< in this turn

    Mailbox m_mailbox;
    std::stop_source m_stop{};
    QThread m_thread{};
    TileFetcher* m_fetcher = nullptr; ///< lives in the thread and goes when it ends
};

TileStore::Private::Private(TileStore& store, std::vector<MapSource> sources, TileStoreOptions options)
    : m_sources(std::move(sources)), m_store(store), m_memoryLimit(options.memoryLimit),
      m_mailbox([this] { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }),
      m_fetcher(new TileFetcher(
          m_sources, std::move(options),
          [this](const TileReport& report) { m_mailbox.post([this, report] { accept(report); }); }, m_stop.get_token()))
{
    m_thread.setObjectName(QStringLiteral("tiles"));
    m_fetcher->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_fetcher, &QObject::deleteLater);
    m_thread.start();
}

TileStore::Private::~Private()
{
    m_stop.request_stop();
    m_thread.quit();
    m_thread.wait();
}

bool TileStore::Private::event(QEvent* event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    m_mailbox.drain();
    if (std::exchange(m_isChanged, false))
        emit m_store.tilesChanged(); // the last thing: whoever hears it may destroy the store
    return true;
}

bool TileStore::Private::exists(const TileKey& key) const
{
    if (key.source < 0 || key.source >= std::ssize(m_sources))
        return false;
    const MapSource& source = m_sources[static_cast<std::size_t>(key.source)];
    const auto& [zoom, x, y] = key.tile;
    if (zoom < source.lowestZoom || zoom > std::min(source.nativeZoom, countableZoom) || zoom < 0)
        return false;
    const int count = 1 << zoom;
    return x >= 0 && x < count && y >= 0 && y < count;
}

void TileStore::Private::want(std::vector<TileKey> tiles)
{
    if (tiles != m_order) {
        m_order = std::move(tiles);
        m_wanted = {m_order.begin(), m_order.end()};
        m_withoutRoom.clear();
    }
    std::vector<WantedTile> asked;
    asked.reserve(m_order.size());
    for (const TileKey& key : m_order) {
        if (exists(key))
            asked.push_back({key, m_withoutRoom.contains(key) ? TileState::ready : state(key)});
    }
    if (asked == m_asked)
        return;
    m_asked = asked;
    m_fetcher->want(std::move(asked), m_lastReport);
}

TileState TileStore::Private::state(const TileKey& key) const
{
    if (m_held.contains(key))
        return TileState::ready;
    return m_missing.contains(key) || !exists(key) ? TileState::missing : TileState::unknown;
}

std::shared_ptr<const DecodedTile> TileStore::Private::use(const TileKey& key)
{
    const auto held = m_held.find(key);
    if (held == m_held.end())
        return nullptr;
    held->second.lastUse = ++m_uses;
    return held->second.tile;
}

void TileStore::Private::accept(const TileReport& report)
{
    m_lastReport = report.number;
    if (report.state == TileState::missing) {
        m_isChanged = m_missing.insert(report.key).second || m_isChanged;
        return;
    }
    m_isChanged = true;
    m_missing.erase(report.key);
    release(report.key);
    const qint64 bytes = bytesOf(*report.tile);
    m_held[report.key] = {.tile = report.tile, .bytes = bytes, .lastUse = ++m_uses};
    m_heldBytes += bytes;
    trim();
}

void TileStore::Private::release(const TileKey& key)
{
    const auto held = m_held.find(key);
    if (held == m_held.end())
        return;
    m_heldBytes -= held->second.bytes;
    m_held.erase(held);
}

/// Lets go what was used longest ago; of what is wanted now, the least important, and only where nothing else is left.
void TileStore::Private::trim()
{
    if (m_heldBytes <= m_memoryLimit)
        return;
    std::vector<std::pair<std::uint64_t, TileKey>> unwanted;
    for (const auto& [key, held] : m_held) {
        if (!m_wanted.contains(key))
            unwanted.emplace_back(held.lastUse, key);
    }
    std::ranges::sort(unwanted);
    for (const auto& [lastUse, key] : unwanted) {
        if (m_heldBytes <= m_memoryLimit)
            return;
        release(key);
    }
    for (auto key = m_order.rbegin(); key != m_order.rend() && m_heldBytes > m_memoryLimit; ++key) {
        if (m_held.contains(*key)) {
            release(*key);
            m_withoutRoom.insert(*key);
        }
    }
}

TileStore::TileStore(std::vector<MapSource> sources, TileStoreOptions options, QObject* parent)
    : QObject(parent), m_private(std::make_unique<Private>(*this, std::move(sources), std::move(options)))
{}

TileStore::~TileStore() = default;

const std::vector<MapSource>& TileStore::sources() const
{
    return m_private->m_sources;
}

void TileStore::want(std::vector<TileKey> tiles)
{
    m_private->want(std::move(tiles));
}

TileState TileStore::state(const TileKey& key) const
{
    return m_private->state(key);
}

std::shared_ptr<const DecodedTile> TileStore::tile(const TileKey& key)
{
    return m_private->use(key);
}

} // namespace ospra
