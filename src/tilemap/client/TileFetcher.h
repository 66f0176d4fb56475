#pragma once

#include "platform/Mailbox.h"
#include "platform/TaskPool.h"
#include "tilemap/client/Download.h"
#include "tilemap/client/Host.h"
#include "tilemap/client/TileCache.h"
#include "tilemap/client/TileDocument.h"
#include "tilemap/client/TileStore.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <unordered_map>
#include <vector>

namespace ospra {

/// A tile that the view wants, and what it has of it.
struct WantedTile {
    TileKey key{};
    TileState state = TileState::unknown;

    friend bool operator==(const WantedTile&, const WantedTile&) = default;
};

/// What has become of a tile.
struct TileReport {
    TileKey key{};
    TileState state = TileState::missing;
    std::shared_ptr<const DecodedTile> tile{}; ///< where ready
    std::uint64_t number = 0;                  ///< counts the reports, from 1 on
};

/// The part of the tile store that lives in the fetch thread: it owns the network and the cache on disk, and has tiles
/// decoded by threads of its own.
///
/// A wanted tile is looked up in the cache; what lies there is shown at once, also when it has expired. What is not
/// there or has expired is then asked for at its source, in the order of the view, within the limits of its host. What
/// the view wants no more is dropped at each stage but the decoder's.
class TileFetcher : public QObject {
public:
    /// @param report called in the thread in which this object lives
    /// @param stop when requested, nothing new is begun
    TileFetcher(std::vector<MapSource> sources, TileStoreOptions options, std::function<void(const TileReport&)> report,
                std::stop_token stop);
    ~TileFetcher() override;

    TileFetcher(const TileFetcher&) = delete;
    TileFetcher& operator=(const TileFetcher&) = delete;

    /// From any thread.
    /// @param tiles all that are wanted now, most important first
    /// @param seen the number of the last report that `tiles` takes into account
    void want(std::vector<WantedTile> tiles, std::uint64_t seen);

    bool event(QEvent* event) override;

private:
    struct DownloadDeleter {
        void operator()(Download* download) const;
    };

    /// A tile on its way, or a source's document: that one's tile is `TileCache::document`.
    struct Job {
        enum class Stage { fromCache, waiting, downloading, decoding };
        Stage stage = Stage::waiting;
        std::optional<CachedTile> kept{}; ///< without its body, where what is shown came from the cache
        std::unique_ptr<Download, DownloadDeleter> download{};
        Host* host = nullptr; ///< while downloading
        WaitClock::time_point begun{};
    };
    using Jobs = std::unordered_map<TileKey, Job>;

    /// What went wrong with a tile in this run.
    struct Trouble {
        int tries = 0;  ///< failed ones since it was last given up
        int rounds = 0; ///< how often it was given up because it could not be reached
        WaitClock::time_point notBefore{};
        bool isFinal = false; ///< not asked for again
    };

    struct Document {
        TileState state = TileState::unknown;
        TileDocument content{};
    };

    struct Reported {
        std::uint64_t number = 0;
        TileState state = TileState::unknown;
    };

    // What the view wants
    void setWanted(const std::vector<WantedTile>& tiles, std::uint64_t seen);
    void addWanted(const WantedTile& tile);
    void dropUnwanted();
    void pump();
    void consider(const TileKey& key);
    void wakeAt(WaitClock::time_point time);

    // Cache and decoder
    void lookUp(const TileKey& key);
    void decode(const TileKey& key, const QByteArray& body,
                std::function<void(std::shared_ptr<const DecodedTile>)> done);
    bool readDocument(int source, const QByteArray& body);
    void showCached(const TileKey& key, std::shared_ptr<const DecodedTile> tile);

    // Network
    [[nodiscard]] TileState addressState(const TileKey& key) const;
    [[nodiscard]] std::optional<WaitClock::time_point> addressAwaited(const TileKey& key) const;
    [[nodiscard]] QUrl addressOf(const TileKey& key) const;
    void proceed(Jobs::iterator job);
    void begin(const TileKey& key, Job& job, Host& host, const QUrl& address);
    void receive(const TileKey& key, const DownloadResult& result);
    void receiveAnswer(Jobs::iterator job, Host& host, const DownloadResult& result);
    void accept(Jobs::iterator job, const DownloadResult& result);
    void keep(const TileKey& key, const CachedTile& cached, bool mayBeKept);
    void renew(Jobs::iterator job, const AnswerHeaders& headers);
    void waitAndTry(Jobs::iterator job, std::chrono::milliseconds wait);
    void fail(Jobs::iterator job, Host& host);
    void giveUp(Jobs::iterator job, std::optional<WaitClock::time_point> askAgain);
    void report(const TileKey& key, TileState state, std::shared_ptr<const DecodedTile> tile);

    [[nodiscard]] const MapSource& sourceOf(const TileKey& key) const;

    const std::vector<MapSource> m_sources;
    const TileStoreOptions m_options;
    const Waits m_waits;
    const std::function<void(const TileReport&)> m_report;
    const std::stop_token m_stop;

    TileCache m_cache;
    std::unique_ptr<QNetworkAccessManager> m_network; ///< made in the fetch thread, when first needed
    std::map<QString, Host> m_hosts{};
    std::vector<Document> m_documents; ///< one for each source

    std::vector<TileKey> m_order{}; ///< what is wanted, most important first
    std::unordered_map<TileKey, TileState> m_wanted{};
    Jobs m_jobs{};
    std::unordered_map<TileKey, Trouble> m_troubles{};
    std::unordered_map<TileKey, Reported> m_reported{}; ///< those that the view may not have seen
    std::uint64_t m_lastReport = 0;

    QTimer m_timer{this};
    WaitClock::time_point m_wake{}; ///< when the timer goes off
    int m_lookUpsLeft = 0;          ///< in this turn
    int m_decoding = 0;             ///< tiles that are with the decoder

    Mailbox m_mailbox;
    TaskPool m_pool; ///< last: joined before what its tasks use goes
};

} // namespace ospra
