#pragma once

#include "tilemap/MapSource.h"

#include <QByteArray>
#include <QFileInfo>
#include <QString>

#include <optional>
#include <stop_token>
#include <vector>

namespace ospra {

/// A tile, or a source's document, as it is kept between runs.
struct CachedTile {
    QByteArray address{};      ///< from which it came
    QByteArray eTag{};         ///< as its giver named this state of it; may be empty
    QByteArray lastModified{}; ///< as its giver dated it; may be empty
    qint64 freshUntil = 0;     ///< seconds since 1970
    QByteArray body{};
};

/// The tiles on disk: one file each in a folder per source, below one folder. Files that are not of its own form are
/// neither read, replaced nor removed. Where the disk does not play along, nothing is kept, and nothing else happens.
/// For one thread, which waits for the disk.
class TileCache {
public:
    /// The place of a source's document among its tiles.
    static constexpr TileID document{.zoom = -1};

    /// @param folder nothing is kept where empty; made when first written to
    /// @param limit bytes; when they are exceeded, the files used longest ago go until a tenth of it is free
    /// @param stop when requested, long walks through the folder end early
    TileCache(QString folder, qint64 limit, std::stop_token stop);

    /// Counts as a use.
    [[nodiscard]] std::optional<CachedTile> read(const std::string& source, const TileID& tile) const;
    void write(const std::string& source, const TileID& tile, const CachedTile& cached);
    void remove(const std::string& source, const TileID& tile);

private:
    [[nodiscard]] QString pathOf(const std::string& source, const TileID& tile) const;
    [[nodiscard]] std::vector<QFileInfo> ownFiles() const;
    bool replace(const QString& path, const QByteArray& header, const QByteArray& body) const;
    void evict();

    QString m_folder;
    qint64 m_limit = 0;
    std::stop_token m_stop;
    std::optional<qint64> m_size{}; ///< bytes on disk; counted when first written to
};

} // namespace ospra
