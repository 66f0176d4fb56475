#pragma once

#include "tilemap/MapSource.h"

#include <QString>
#include <QUrl>

#include <optional>
#include <string_view>

namespace ospra {

/// An address that may be asked: HTTPS, or plain HTTP on this very machine; without user and password.
[[nodiscard]] std::optional<QUrl> allowedAddress(const QString& text);

/// Whether a host's name stands for this machine: 127.0.0.0/8, ::1 or "localhost".
[[nodiscard]] bool isLoopbackHost(const QString& host);

/// Whether a template has all of {z}, {x} and {y}, and gives addresses that may be asked.
[[nodiscard]] bool isTileTemplate(std::string_view address);

/// The address of a tile.
/// @param address a template with {z}, {x} and {y}
[[nodiscard]] std::optional<QUrl> tileAddress(std::string_view address, const TileID& tile);

} // namespace ospra
