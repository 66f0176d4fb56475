#include "fuzz/require.h"
#include "tilemap/client/Host.h"
#include "tilemap/client/MapSources.h"
#include "tilemap/client/TileCache.h"
#include "tilemap/client/TileDocument.h"
#include "tilemap/client/addresses.h"
#include "tilemap/client/decodePicture.h"
#include "tilemap/client/freshness.h"
#include "tilemap/client/isSourceId.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace ospra {
namespace {

/// What a server has answered. An input has the headers in its first seven lines, in this order, and then the body.
struct Answer {
    AnswerHeaders headers{};
    QByteArray body{};
};

Answer readAnswer(const QByteArray& input)
{
    qsizetype at = 0;
    const auto line = [&] {
        const qsizetype end = input.indexOf('\n', at);
        const QByteArray text = end < 0 ? QByteArray() : input.mid(at, end - at);
        at = end < 0 ? at : end + 1;
        return text;
    };
    AnswerHeaders headers{.age = line(),
                          .cacheControl = line(),
                          .date = line(),
                          .eTag = line(),
                          .expires = line(),
                          .lastModified = line(),
                          .retryAfter = line()};
    return {.headers = std::move(headers), .body = input.mid(at)};
}

void checkHeaders(const AnswerHeaders& headers)
{
    constexpr qint64 now = 1'700'000'000; // s since 1970
    constexpr qint64 year = qint64{365} * 86'400;
    const Freshness fresh = freshness(headers, now);
    require(fresh.freshUntil >= now && fresh.freshUntil <= now + year, "an answer holds for longer than a year");
    require(!fresh.mayBeKept || !headers.cacheControl.toLower().split(',').contains("no-store"),
            "an answer is kept that may not be");
    const std::optional<qint64> wait = secondsToWait(headers.retryAfter, now);
    require(!wait || *wait >= 0, "a server is to be asked in the past");
    const Waits waits{std::chrono::seconds(1)};
    require(!wait || waits.asked(*wait) <= std::chrono::minutes(5), "a server makes us wait for ever");
}

void checkPicture(const QByteArray& body)
{
    const QImage picture = decodePicture(body);
    require(picture == decodePicture(body), "a picture is decoded in two ways");
    if (picture.isNull())
        return;
    require(picture.width() >= 1 && picture.width() <= 1024 && picture.height() >= 1 && picture.height() <= 1024,
            "a picture is larger than a tile");
    require(picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32_Premultiplied,
            "a picture is not of a form that can be drawn at once");
}

void checkAddress(const std::string& address)
{
    for (const TileID tile : {TileID{}, TileID{.zoom = 24, .x = (1 << 24) - 1, .y = 12'345}}) {
        const std::optional<QUrl> url = tileAddress(address, tile);
        require(url && !url->host().isEmpty() && url->userInfo().isEmpty(), "a tile is to be had nowhere");
        require(url->scheme() == u"https" || isLoopbackHost(url->host()), "a tile is asked for in the open");
    }
}

void checkDocuments(const QByteArray& body)
{
    if (const std::optional<TileDocument> document = parseTileDocument(body))
        checkAddress(document->address);
    for (const MapSource& source : parseMapSources(body).value_or(std::vector<MapSource>{})) {
        require(isSourceId(source.id), "a source has no name for a folder");
        require(source.lowestZoom >= 0 && source.lowestZoom <= source.nativeZoom && source.nativeZoom <= 24,
                "a source has zooms that there are not");
        require(source.tileSize >= 64 && source.tileSize <= 1024 && source.leastBytes >= 0, "a source's sizes are odd");
        if (source.tileJson.empty())
            checkAddress(source.address);
        for (const std::vector<Coordinate>& polygon : source.bounds) {
            require(polygon.size() >= 3, "bounds without ground");
            for (const Coordinate& corner : polygon)
                require(std::abs(corner.latitude) <= 90.0 && std::abs(corner.longitude) <= 180.0,
                        "bounds off the globe");
        }
    }
}

/// A header of a file is a line of at most this many bytes; what is no such line is left out.
QByteArray keptField(const QByteArray& text)
{
    return text.size() > 2048 || text.contains('\n') ? QByteArray() : text;
}

/// What is kept comes back, and a file that is not ours stays as it is.
void checkCache(const Answer& answer)
{
    static const QTemporaryDir folder;
    static TileCache cache(folder.path(), 1 << 30, {});
    const CachedTile kept{.address = answer.headers.age,
                          .eTag = answer.headers.eTag,
                          .lastModified = answer.headers.lastModified,
                          .freshUntil = 7,
                          .body = answer.body};
    cache.write("fuzz", TileID{}, kept);
    const std::optional<CachedTile> read = cache.read("fuzz", TileID{});
    require(read && read->body == kept.body && read->freshUntil == 7 && read->eTag == keptField(kept.eTag) &&
                read->address == keptField(kept.address) && read->lastModified == keptField(kept.lastModified),
            "a kept tile does not come back");

    const TileID damaged{.zoom = 1, .x = 1, .y = 1};
    QFile file(folder.path() + QStringLiteral("/fuzz/1-1-1.tile"));
    require(file.open(QIODevice::WriteOnly) && file.write(answer.body) == answer.body.size(), "the disk is full");
    file.close();
    const bool isOwn = answer.body.startsWith("ospra-tile 1\n");
    require(isOwn || !cache.read("fuzz", damaged), "a file that is not ours is read");
    cache.write("fuzz", damaged, kept);
    const std::optional<CachedTile> replaced = cache.read("fuzz", damaged);
    require(isOwn == (replaced && replaced->body == kept.body), "a file that is not ours is replaced, or ours is not");
}

} // namespace
} // namespace ospra

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    static QCoreApplication application(*count, *arguments); // where Qt looks for the decoders
    return 0;
}

/// Whatever a server answers, and whatever has become of it on the disk, a map can be drawn of what is made of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ospra::Answer answer =
        ospra::readAnswer(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    ospra::checkHeaders(answer.headers);
    ospra::checkPicture(answer.body);
    ospra::checkDocuments(answer.body);
    ospra::checkCache(answer);
    return 0;
}
