#include "tilemap/client/TileCache.h"

#include "tilemap/client/isSourceId.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace ospra {

namespace {

const QByteArray ownMark = QByteArrayLiteral("ospra-tile 1\n"); // the first line of every file of ours
constexpr qint64 largestFile = qint64{5} << 20;                 // bytes; no tile is that large
constexpr qsizetype largestField = 2048;                        // bytes of a line of the header
constexpr qint64 abandonedAfter = 3600;                         // s; a file half written by a run that ended

const QLatin1String tileEnding(".tile");
const QLatin1String partEnding(".part"); // of a file that is being written

bool isOwnFile(const QFileInfo& info)
{
    if (!info.isFile() || info.isSymLink())
        return false;
    QFile file(info.filePath());
    return file.open(QIODevice::ReadOnly) && file.read(ownMark.size()) == ownMark;
}

/// A field of the header, which is a line.
QByteArray field(const QByteArray& text)
{
    return text.size() > largestField || text.contains('\n') ? QByteArray() : text;
}

QByteArray headerOf(const CachedTile& cached)
{
    return ownMark + field(cached.address) + '\n' + field(cached.eTag) + '\n' + field(cached.lastModified) + '\n' +
           QByteArray::number(cached.freshUntil) + '\n' + QByteArray::number(cached.body.size()) + '\n';
}

std::optional<CachedTile> parseFile(const QByteArray& bytes)
{
    if (!bytes.startsWith(ownMark))
        return std::nullopt;
    std::array<QByteArray, 5> fields; // address, eTag, lastModified, freshUntil, size of the body
    qsizetype at = ownMark.size();
    for (QByteArray& part : fields) {
        const qsizetype end = bytes.indexOf('\n', at);
        if (end < 0 || end - at > largestField)
            return std::nullopt;
        part = bytes.mid(at, end - at);
        at = end + 1;
    }
    bool isDated = false;
    bool isSized = false;
    const qint64 freshUntil = fields[3].toLongLong(&isDated);
    const qint64 size = fields[4].toLongLong(&isSized);
    if (!isDated || !isSized || size != bytes.size() - at)
        return std::nullopt;
    return CachedTile{.address = fields[0],
                      .eTag = fields[1],
                      .lastModified = fields[2],
                      .freshUntil = freshUntil,
                      .body = bytes.mid(at)};
}

} // namespace

TileCache::TileCache(QString folder, qint64 limit, std::stop_token stop)
    : m_folder(std::move(folder)), m_limit(limit), m_stop(std::move(stop))
{}

QString TileCache::pathOf(const std::string& source, const TileID& tile) const
{
    if (m_folder.isEmpty() || !isSourceId(source))
        return {};
    const QString name =
        tile == document ? QStringLiteral("source") : QStringLiteral("%1-%2-%3").arg(tile.zoom).arg(tile.x).arg(tile.y);
    return m_folder + QLatin1Char('/') + QString::fromStdString(source) + QLatin1Char('/') + name + tileEnding;
}

std::optional<CachedTile> TileCache::read(const std::string& source, const TileID& tile) const
{
    const QString path = pathOf(source, tile);
    const QFileInfo info(path);
    if (path.isEmpty() || !info.isFile() || info.isSymLink() || info.size() > largestFile)
        return std::nullopt; // also a FIFO, which would block where it is opened
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    std::optional<CachedTile> cached = parseFile(file.read(largestFile));
    if (cached)
        file.setFileTime(QDateTime::currentDateTimeUtc(), QFileDevice::FileModificationTime);
    return cached;
}

void TileCache::write(const std::string& source, const TileID& tile, const CachedTile& cached)
{
    const QString path = pathOf(source, tile);
    const QByteArray header = headerOf(cached);
    if (path.isEmpty() || header.size() + cached.body.size() > std::min(largestFile, m_limit))
        return;
    const QFileInfo old(path);
    const bool isReplaced = old.exists() || old.isSymLink();
    if ((isReplaced && !isOwnFile(old)) || !QDir().mkpath(old.path()))
        return;
    if (!m_size) {
        m_size = 0;
        for (const QFileInfo& file : ownFiles())
            *m_size += file.size();
    }
    const qint64 oldSize = isReplaced ? old.size() : 0;
    if (!replace(path, header, cached.body))
        return;
    *m_size += header.size() + cached.body.size() - oldSize;
    if (*m_size > m_limit)
        evict();
}

/// Writes beside the file and renames, so that whoever reads sees the old file or the new one, and never half of one.
bool TileCache::replace(const QString& path, const QByteArray& header, const QByteArray& body) const
{
    const QString part = path.chopped(tileEnding.size()) + QLatin1Char('.') +
                         QString::number(QCoreApplication::applicationPid()) + partEnding;
    QFile file(part);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    const bool isWritten = file.write(header) == header.size() && file.write(body) == body.size() && file.flush();
    file.close();
    std::error_code failure;
    if (isWritten)
        std::filesystem::rename(part.toStdU16String(), path.toStdU16String(), failure);
    if (!isWritten || failure)
        QFile::remove(part);
    return isWritten && !failure;
}

void TileCache::remove(const std::string& source, const TileID& tile)
{
    const QFileInfo info(pathOf(source, tile));
    if (isOwnFile(info) && QFile::remove(info.filePath()) && m_size)
        *m_size -= info.size();
}

/// Those that bear a name of ours in a folder of a source; whether their content does is seen before one is removed.
std::vector<QFileInfo> TileCache::ownFiles() const
{
    std::vector<QFileInfo> files;
    QDirIterator folders(m_folder, QDir::Dirs | QDir::NoDotAndDotDot);
    while (folders.hasNext() && !m_stop.stop_requested()) {
        const QString folder = folders.next();
        if (!isSourceId(QFileInfo(folder).fileName().toStdString()))
            continue;
        QDirIterator entries(folder, {QLatin1Char('*') + tileEnding, QLatin1Char('*') + partEnding},
                             QDir::Files | QDir::NoSymLinks);
        while (entries.hasNext() && !m_stop.stop_requested()) {
            entries.next();
            if (entries.fileInfo().size() <= largestFile)
                files.push_back(entries.fileInfo());
        }
    }
    return files;
}

void TileCache::evict()
{
    std::vector<QFileInfo> files = ownFiles();
    const QDateTime abandoned = QDateTime::currentDateTimeUtc().addSecs(-abandonedAfter);
    std::erase_if(files, [&](const QFileInfo& file) {
        return file.fileName().endsWith(partEnding) && file.lastModified() > abandoned;
    });
    std::ranges::sort(files, {}, [](const QFileInfo& file) { return file.lastModified(); });
    qint64 size = 0;
    for (const QFileInfo& file : files)
        size += file.size();
    const qint64 aim = m_limit / 10 * 9;
    for (const QFileInfo& file : files) {
        if (size <= aim || m_stop.stop_requested())
            break;
        if (isOwnFile(file) && QFile::remove(file.filePath()))
            size -= file.size();
    }
    m_size = size; // counted anew: another run may write to the same folder
}

} // namespace ospra
