#pragma once

#include "tilemap/MapSource.h"

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace ospra {

struct VectorTile;

/// A tile that has arrived, ready to be drawn.
struct DecodedTile {
    QImage picture{};                             ///< of imagery; null for a vector tile
    std::shared_ptr<const VectorTile> features{}; ///< of a vector tile; none for imagery
};

struct TileStoreOptions {
    QString cacheFolder{};                  ///< where tiles are kept between runs; nothing is kept where empty
    QByteArray userAgent{};                 ///< name and version, as the givers of tiles ask for it
    qint64 cacheLimit = qint64{512} << 20;  ///< bytes on disk
    qint64 memoryLimit = qint64{128} << 20; ///< bytes of decoded tiles
    /// Reads the bytes of a vector tile, on any thread; null where they are none. Without it there are no vector tiles.
    std::function<std::shared_ptr<const VectorTile>(std::string_view)> decodeVector{};
    /// What all waiting is counted in: a second. Tests shorten it.
    std::chrono::milliseconds waitUnit{1000};
};

/// Brings tiles from cache and network and keeps those last used. Everything that waits for a disk, a network or a
/// decoder happens on threads of its own; all functions here are for the main thread and return at once.
class TileStore : public QObject {
    Q_OBJECT

public:
    TileStore(std::vector<MapSource> sources, TileStoreOptions options, QObject* parent = nullptr);
    ~TileStore() override;

    [[nodiscard]] const std::vector<MapSource>& sources() const;

    /// Says which tiles the view wants now, most important first. What was wanted before and is not any more is no
    /// longer fetched.
    void want(std::vector<TileKey> tiles);

    [[nodiscard]] TileState state(const TileKey& key) const;
    /// The tile where it is ready, else null. Counts as a use.
    [[nodiscard]] std::shared_ptr<const DecodedTile> tile(const TileKey& key);

signals:
    /// Tiles have become ready or missing; at most once per turn of the event loop.
    void tilesChanged();

private:
    class Private;
    std::unique_ptr<Private> m_private;
};

} // namespace ospra
