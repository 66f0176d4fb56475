#pragma once

#include "tilemap/MapSource.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace ospra {

/// Reads a list of sources; its form is told in the README beside. An entry that cannot be used is left out, and so is
/// a second one of the same id.
/// @return absent where the document is none of ours
[[nodiscard]] std::optional<std::vector<MapSource>> parseMapSources(const QByteArray& json);

/// Reads the first usable "map-sources.json" of the folders of the program's data: the user's and the system's
/// `ospra/`, then `../share/ospra/` beside the program. Nothing where there is none. Waits for the disk, so it is not
/// for the main thread.
[[nodiscard]] std::vector<MapSource> loadMapSources();

} // namespace ospra
