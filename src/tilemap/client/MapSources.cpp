#include "tilemap/client/MapSources.h"

#include "tilemap/client/addresses.h"
#include "tilemap/client/isSourceId.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace ospra {

namespace {

constexpr qint64 largestDocument = qint64{1} << 20; // bytes
constexpr int deepestZoom = 24;
constexpr int leastTileSize = 64; // pixels
constexpr int greatestTileSize = 1024;

using Polygon = std::vector<Coordinate>;

std::string textOf(const QJsonObject& entry, QLatin1String name)
{
    return entry.value(name).toString().toStdString();
}

/// A whole number within bounds, `fallback` where there is none of that name, absent where it is anything else.
std::optional<int> numberOf(const QJsonObject& entry, QLatin1String name, int fallback, int least, int greatest)
{
    const QJsonValue value = entry.value(name);
    if (value.isUndefined())
        return fallback;
    const int number = value.toInt(least - 1); // what is no whole number is out of bounds
    return number >= least && number <= greatest ? std::optional(number) : std::nullopt;
}

/// A corner is written as longitude, latitude.
std::optional<Polygon> readPolygon(const QJsonArray& corners)
{
    Polygon polygon;
    for (const QJsonValue corner : corners) {
        const QJsonArray pair = corner.toArray();
        const Coordinate coordinate{.latitude = pair.at(1).toDouble(NAN), .longitude = pair.at(0).toDouble(NAN)};
        // Written so that what is no number fails too.
        if (!(std::abs(coordinate.latitude) <= 90.0 && std::abs(coordinate.longitude) <= 180.0))
            return std::nullopt;
        polygon.push_back(coordinate);
    }
    return polygon.size() >= 3 ? std::optional(polygon) : std::nullopt;
}

std::optional<std::vector<Polygon>> readBounds(const QJsonValue& value)
{
    std::vector<Polygon> bounds;
    if (!value.isUndefined() && (!value.isArray() || value.toArray().isEmpty()))
        return std::nullopt; // no bounds would mean everywhere
    for (const QJsonValue corners : value.toArray()) {
        std::optional<Polygon> polygon = readPolygon(corners.toArray());
        if (!polygon)
            return std::nullopt;
        bounds.push_back(*std::move(polygon));
    }
    return bounds;
}

std::optional<MapSourceKind> readKind(const std::string& word)
{
    if (word == "imagery")
        return MapSourceKind::imagery;
    if (word == "vector")
        return MapSourceKind::vector;
    return std::nullopt;
}

/// Exactly one of the two addresses, and one that may be asked.
bool isReachable(const MapSource& source)
{
    if (source.tileJson.empty())
        return isTileTemplate(source.address);
    return source.address.empty() && allowedAddress(QString::fromStdString(source.tileJson)).has_value();
}

std::optional<MapSource> readSource(const QJsonObject& entry)
{
    const MapSource usual;
    const std::optional<MapSourceKind> kind = readKind(textOf(entry, QLatin1String("kind")));
    const auto lowest = numberOf(entry, QLatin1String("lowestZoom"), usual.lowestZoom, 0, deepestZoom);
    const auto native = numberOf(entry, QLatin1String("nativeZoom"), usual.nativeZoom, 0, deepestZoom);
    const auto tileSize = numberOf(entry, QLatin1String("tileSize"), usual.tileSize, leastTileSize, greatestTileSize);
    const auto leastBytes = numberOf(entry, QLatin1String("leastBytes"), 0, 0, 1 << 20);
    std::optional<std::vector<Polygon>> bounds = readBounds(entry.value(QLatin1String("bounds")));
    if (!kind || !lowest || !native || *lowest > *native || !tileSize || !leastBytes || !bounds)
        return std::nullopt;
    MapSource source{
        .id = textOf(entry, QLatin1String("id")),
        .kind = *kind,
        .address = textOf(entry, QLatin1String("address")),
        .tileJson = textOf(entry, QLatin1String("tileJson")),
        .lowestZoom = *lowest,
        .nativeZoom = *native,
        .tileSize = *tileSize,
        .bounds = *std::move(bounds),
        .attribution = textOf(entry, QLatin1String("attribution")),
        .attributionLink = textOf(entry, QLatin1String("attributionLink")),
        .leastBytes = *leastBytes,
    };
    if (!isSourceId(source.id) || !isReachable(source))
        return std::nullopt;
    if (!allowedAddress(QString::fromStdString(source.attributionLink)))
        source.attributionLink.clear();
    return source;
}

std::optional<std::vector<MapSource>> readFile(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > largestDocument || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return parseMapSources(file.read(largestDocument));
}

} // namespace

std::optional<std::vector<MapSource>> parseMapSources(const QByteArray& json)
{
    const QJsonValue entries = QJsonDocument::fromJson(json).object().value(QLatin1String("sources"));
    if (!entries.isArray())
        return std::nullopt;
    std::vector<MapSource> sources;
    for (const QJsonValue entry : entries.toArray()) {
        std::optional<MapSource> source = readSource(entry.toObject());
        if (source && std::ranges::find(sources, source->id, &MapSource::id) == sources.end())
            sources.push_back(*std::move(source));
    }
    return sources;
}

std::vector<MapSource> loadMapSources()
{
    const QString name = QStringLiteral("map-sources.json");
    QStringList paths = QStandardPaths::locateAll(QStandardPaths::AppDataLocation, name);
    paths += QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("ospra/") + name);
    paths += QCoreApplication::applicationDirPath() + QStringLiteral("/../share/ospra/") + name;
    for (const QString& path : paths) {
        if (std::optional<std::vector<MapSource>> sources = readFile(path))
            return *std::move(sources);
    }
    return {};
}

} // namespace ospra
