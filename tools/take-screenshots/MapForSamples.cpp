#include "tools/take-screenshots/MapForSamples.h"

#include "tests/support/sampleVectorTile.h"
#include "tools/make-sample-jumps/Place.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <numbers>

namespace ospra {

namespace {

constexpr double runwayEast = 350.0;        // m from the landing target to the runway
constexpr double meterPerDegree = 111320.0; // of longitude at the equator

PaintedAirfield airfieldOf(const Place& place)
{
    const double shrink = std::cos(place.latitude * std::numbers::pi / 180.0);
    return {
        .middle = {.latitude = place.latitude, .longitude = place.longitude + runwayEast / (meterPerDegree * shrink)},
        .bearing = place.runwayBearing};
}

TileServer::Options serverOptions()
{
    std::vector<PaintedAirfield> airfields;
    for (const Place& place : allPlaces())
        airfields.push_back(airfieldOf(place));
    return {.vectorTile = [](const TileID& tile) { return QByteArray::fromStdString(sampleVectorTile(tile)); },
            .airfields = std::move(airfields)};
}

bool writeList(const QString& dataFolder, const QJsonArray& sources)
{
    const QDir folder(dataFolder);
    QFile file(folder.filePath(QStringLiteral("ospra/map-sources.json")));
    return folder.mkpath(QStringLiteral("ospra")) && file.open(QIODevice::WriteOnly) &&
           file.write(QJsonDocument(QJsonObject{{QStringLiteral("sources"), sources}}).toJson()) > 0;
}

} // namespace

MapForSamples::MapForSamples() : m_server(serverOptions())
{
    m_server.put("/releases.xml",
                 "<rss version=\"2.0\"><channel><item><title>Ospra 99.1</title>"
                 "<link>https://example.org/ospra/99.1</link></item></channel></rss>",
                 "application/rss+xml");
}

bool MapForSamples::writeSources(const QString& dataFolder) const
{
    const QString address = QString::fromStdString(m_server.address());
    return writeList(dataFolder,
                     {QJsonObject{{QStringLiteral("id"), QStringLiteral("painted")},
                                  {QStringLiteral("kind"), QStringLiteral("imagery")},
                                  {QStringLiteral("address"), address + QStringLiteral("/imagery/{z}/{x}/{y}.jpg")},
                                  {QStringLiteral("nativeZoom"), 18},
                                  {QStringLiteral("attribution"), QStringLiteral("Painted fields")}},
                      QJsonObject{{QStringLiteral("id"), QStringLiteral("invented")},
                                  {QStringLiteral("kind"), QStringLiteral("vector")},
                                  {QStringLiteral("address"), address + QStringLiteral("/vector/{z}/{x}/{y}")},
                                  {QStringLiteral("tileSize"), 512},
                                  {QStringLiteral("attribution"), QStringLiteral("Invented roads and names")}}});
}

bool MapForSamples::writeNoSources(const QString& dataFolder)
{
    return writeList(dataFolder, {});
}

QString MapForSamples::feed() const
{
    return QString::fromStdString(m_server.address()) + QStringLiteral("/releases.xml");
}

} // namespace ospra
