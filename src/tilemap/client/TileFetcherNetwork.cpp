#include "tilemap/client/TileFetcher.h"
#include "tilemap/client/addresses.h"

#include <QDateTime>
#include <QNetworkProxyFactory>

#include <algorithm>
#include <utility>

namespace ospra {

namespace {

constexpr int triesAtMost = 3;
constexpr qint64 tileLimit = qint64{4} << 20;       // bytes
constexpr qint64 documentLimit = qint64{256} << 10; // bytes
constexpr qint64 aYear = 365 * qint64{86'400};      // s; a date beyond it is of another clock

/// The system's proxies, but none to this machine.
class SystemProxies final : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override
    {
        return isLoopbackHost(query.peerHostName()) ? QList{QNetworkProxy(QNetworkProxy::NoProxy)}
                                                    : systemProxyForQuery(query);
    }
};

bool isFresh(const CachedTile& cached)
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    return now < cached.freshUntil && cached.freshUntil <= now + aYear;
}

QString hostOf(const QUrl& address)
{
    return address.scheme() + QLatin1String("://") + address.authority();
}

} // namespace

/// Whether the address of a tile is known, not known yet, or there is none.
TileState TileFetcher::addressState(const TileKey& key) const
{
    const MapSource& source = sourceOf(key);
    if (key.tile == TileCache::document || source.tileJson.empty())
        return TileState::ready;
    const Document& document = m_documents[static_cast<std::size_t>(key.source)];
    if (document.state == TileState::missing && m_jobs.contains({key.source, TileCache::document}))
        return TileState::unknown; // it is being asked for once more
    const bool isOutside = key.tile.zoom < document.content.lowestZoom || key.tile.zoom > document.content.nativeZoom;
    return document.state == TileState::ready && isOutside ? TileState::missing : document.state;
}

/// When a tile without address may be asked for again: with its source's document.
std::optional<WaitClock::time_point> TileFetcher::addressAwaited(const TileKey& key) const
{
    const auto trouble = m_troubles.find({key.source, TileCache::document});
    if (m_documents[static_cast<std::size_t>(key.source)].state != TileState::missing || trouble == m_troubles.end() ||
        trouble->second.isFinal)
        return std::nullopt;
    return trouble->second.notBefore;
}

QUrl TileFetcher::addressOf(const TileKey& key) const
{
    const MapSource& source = sourceOf(key);
    if (key.tile == TileCache::document)
        return allowedAddress(QString::fromStdString(source.tileJson)).value_or(QUrl());
    const Document& document = m_documents[static_cast<std::size_t>(key.source)];
    const std::string& address = source.tileJson.empty() ? source.address : document.content.address;
    return tileAddress(address, key.tile).value_or(QUrl());
}

/// Begins the download of a waiting job if its time has come; ends the job where there is nothing to ask.
void TileFetcher::proceed(Jobs::iterator job)
{
    const TileKey key = job->first;
    const TileState state = addressState(key);
    if (state == TileState::unknown)
        return;
    const QUrl address = state == TileState::ready ? addressOf(key) : QUrl();
    const std::optional<CachedTile>& kept = job->second.kept;
    if (kept && kept->address == address.toEncoded() && isFresh(*kept)) {
        m_jobs.erase(job);
        return;
    }
    if (address.isEmpty())
        return giveUp(job, addressAwaited(key));
    const WaitClock::time_point now = WaitClock::now();
    Host& host = m_hosts[hostOf(address)];
    const auto trouble = m_troubles.find(key);
    if (host.isLeftAlone() || (trouble != m_troubles.end() && trouble->second.isFinal))
        return giveUp(job, std::nullopt);
    if (host.isSilent(now))
        return giveUp(job, host.silentUntil());
    const WaitClock::time_point notBefore =
        std::max(host.pausedUntil(), trouble == m_troubles.end() ? now : trouble->second.notBefore);
    if (notBefore > now)
        return wakeAt(notBefore);
    if (host.hasRoom())
        begin(key, job->second, host, address);
}

void TileFetcher::begin(const TileKey& key, Job& job, Host& host, const QUrl& address)
{
    if (!m_network) {
        m_network = std::make_unique<QNetworkAccessManager>();
        m_network->setProxyFactory(new SystemProxies);
    }
    // What came from another address than today's is not what its server would compare with.
    const bool isSame = job.kept && job.kept->address == address.toEncoded();
    const Download::Request request{
        .address = address,
        .userAgent = m_options.userAgent,
        .eTag = isSame ? job.kept->eTag : QByteArray(),
        .lastModified = isSame ? job.kept->lastModified : QByteArray(),
        .bodyLimit = key.tile == TileCache::document ? documentLimit : tileLimit,
        .idleLimit = m_waits.idleLimit(),
        .totalLimit = m_waits.totalLimit(),
    };
    job.stage = Job::Stage::downloading;
    job.host = &host;
    job.begun = WaitClock::now();
    host.begin();
    job.download.reset(new Download(
        *m_network, request, [this, key](const DownloadResult& result) { receive(key, result); }, nullptr));
}

void TileFetcher::receive(const TileKey& key, const DownloadResult& result)
{
    const auto job = m_jobs.find(key);
    Host& host = *std::exchange(job->second.host, nullptr);
    job->second.download.release()->deleteLater(); // it is the one that calls
    job->second.stage = Job::Stage::waiting;
    host.end();
    switch (result.kind) {
    case DownloadResult::Kind::answered:
        host.answer(WaitClock::now(), result.usedHttp2);
        receiveAnswer(job, host, result);
        break;
    case DownloadResult::Kind::refused:
        host.refuse(key);
        fail(job, host);
        break;
    case DownloadResult::Kind::unreachable: fail(job, host); break;
    case DownloadResult::Kind::unusable: giveUp(job, std::nullopt); break;
    }
    pump();
}

void TileFetcher::receiveAnswer(Jobs::iterator job, Host& host, const DownloadResult& result)
{
    const int status = result.status;
    const int tries = m_troubles[job->first].tries + 1;
    if (status == 200 || (status == 304 && job->second.kept)) {
        host.succeed();
        m_troubles.erase(job->first);
        return status == 200 ? accept(job, result) : renew(job, result.headers);
    }
    const bool isRefusal = status == 401 || status == 403 || (status == 429 && tries >= triesAtMost);
    if (isRefusal)
        host.refuse(job->first);
    const bool isBusy = status == 429 || status == 503;
    const bool isPassing = isBusy || status == 408 || status >= 500;
    if (isRefusal || !isPassing || tries >= triesAtMost)
        return giveUp(job, std::nullopt);
    std::chrono::milliseconds wait = m_waits.beforeTry(tries);
    if (isBusy) {
        const qint64 asked = secondsToWait(result.headers.retryAfter, QDateTime::currentSecsSinceEpoch()).value_or(0);
        wait = std::max(wait, m_waits.asked(asked));
        host.pause(WaitClock::now() + wait);
    }
    waitAndTry(job, wait);
}

void TileFetcher::accept(Jobs::iterator job, const DownloadResult& result)
{
    const TileKey key = job->first;
    const Freshness fresh = freshness(result.headers, QDateTime::currentSecsSinceEpoch());
    const CachedTile cached{.address = addressOf(key).toEncoded(),
                            .eTag = result.headers.eTag,
                            .lastModified = result.headers.lastModified,
                            .freshUntil = fresh.freshUntil,
                            .body = result.body};
    if (key.tile == TileCache::document) {
        if (!readDocument(key.source, result.body))
            return giveUp(job, std::nullopt);
        keep(key, cached, fresh.mayBeKept);
        m_jobs.erase(job);
        return;
    }
    if (result.body.size() < sourceOf(key).leastBytes)
        return giveUp(job, std::nullopt);
    job->second.stage = Job::Stage::decoding;
    decode(key, result.body, [this, key, cached, mayBeKept = fresh.mayBeKept](std::shared_ptr<const DecodedTile> tile) {
        const auto decoded = m_jobs.find(key);
        if (!tile)
            return giveUp(decoded, std::nullopt);
        keep(key, cached, mayBeKept);
        report(key, TileState::ready, std::move(tile));
        m_jobs.erase(decoded);
    });
}

void TileFetcher::keep(const TileKey& key, const CachedTile& cached, bool mayBeKept)
{
    if (mayBeKept)
        m_cache.write(sourceOf(key).id, key.tile, cached);
    else
        m_cache.remove(sourceOf(key).id, key.tile);
}

/// What is shown still holds.
void TileFetcher::renew(Jobs::iterator job, const AnswerHeaders& headers)
{
    const TileKey key = job->first;
    const Freshness fresh = freshness(headers, QDateTime::currentSecsSinceEpoch());
    if (std::optional<CachedTile> cached = m_cache.read(sourceOf(key).id, key.tile)) {
        cached->freshUntil = fresh.freshUntil;
        if (!headers.eTag.isEmpty())
            cached->eTag = headers.eTag;
        keep(key, *cached, fresh.mayBeKept);
    }
    m_jobs.erase(job);
}

void TileFetcher::waitAndTry(Jobs::iterator job, std::chrono::milliseconds wait)
{
    Trouble& trouble = m_troubles[job->first];
    ++trouble.tries;
    trouble.notBefore = WaitClock::now() + wait;
}

/// After a try that brought no answer.
void TileFetcher::fail(Jobs::iterator job, Host& host)
{
    Trouble& trouble = m_troubles[job->first];
    const int tries = trouble.tries + 1;
    const bool isNewRound = trouble.rounds > 0 || host.isDoubtful();
    if (!isNewRound && tries < triesAtMost)
        return waitAndTry(job, m_waits.beforeTry(tries));
    const WaitClock::time_point now = WaitClock::now();
    if (!host.hasAnsweredSince(job->second.begun)) // else it is this tile that hangs, not the host
        host.fallSilent(now, m_waits);
    const WaitClock::time_point askAgain = now + m_waits.silence(trouble.rounds++);
    giveUp(job, std::max(askAgain, host.silentUntil()));
}

/// The tile is missing, unless an older state of it is shown.
/// @param askAgain when it may be asked for again; never in this run where absent
void TileFetcher::giveUp(Jobs::iterator job, std::optional<WaitClock::time_point> askAgain)
{
    const TileKey key = job->first;
    Trouble& trouble = m_troubles[key];
    trouble.isFinal = !askAgain;
    trouble.notBefore = askAgain.value_or(trouble.notBefore);
    trouble.tries = 0;
    const bool isShown = job->second.kept.has_value();
    m_jobs.erase(job);
    if (!isShown)
        report(key, TileState::missing, nullptr);
    if (askAgain)
        wakeAt(*askAgain);
}

} // namespace ospra
