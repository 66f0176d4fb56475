#include "tilemap/client/addresses.h"

#include <QHostAddress>
#include <QLatin1String>

#include <algorithm>
#include <array>

namespace ospra {

bool isLoopbackHost(const QString& host)
{
    if (host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0)
        return true;
    const QHostAddress address(host);
    return !address.isNull() && address.isLoopback();
}

std::optional<QUrl> allowedAddress(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty())
        return std::nullopt;
    const bool isPlain = url.scheme() == QLatin1String("http");
    if (url.scheme() != QLatin1String("https") && !(isPlain && isLoopbackHost(url.host())))
        return std::nullopt;
    return url;
}

bool isTileTemplate(std::string_view address)
{
    constexpr std::array<std::string_view, 3> places{"{z}", "{x}", "{y}"};
    const bool hasAll =
        std::ranges::all_of(places, [&](std::string_view place) { return address.find(place) != address.npos; });
    return hasAll && tileAddress(address, TileID{}).has_value();
}

std::optional<QUrl> tileAddress(std::string_view address, const TileID& tile)
{
    QString text = QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size()));
    text.replace(QLatin1String("{z}"), QString::number(tile.zoom));
    text.replace(QLatin1String("{x}"), QString::number(tile.x));
    text.replace(QLatin1String("{y}"), QString::number(tile.y));
    return allowedAddress(text);
}

} // namespace ospra
