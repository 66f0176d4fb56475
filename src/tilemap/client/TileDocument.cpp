#include "tilemap/client/TileDocument.h"

#include "tilemap/client/addresses.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace ospra {

std::optional<TileDocument> parseTileDocument(const QByteArray& json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const TileDocument whole;
    TileDocument document{
        .address = object.value(QLatin1String("tiles")).toArray().at(0).toString().toStdString(),
        .lowestZoom = object.value(QLatin1String("minzoom")).toInt(whole.lowestZoom),
        .nativeZoom = object.value(QLatin1String("maxzoom")).toInt(whole.nativeZoom),
    };
    if (!isTileTemplate(document.address))
        return std::nullopt;
    return document;
}

} // namespace ospra
