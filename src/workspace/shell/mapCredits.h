#pragma once

#include "tilemap/MapSource.h"

#include <QStringList>

#include <span>

namespace ospra {

/// Whose maps the program may show, in the words that they ask for: the attributions of the sources in their order,
/// each once. A source that asks for none is left out.
[[nodiscard]] QStringList mapCredits(std::span<const MapSource> sources);

} // namespace ospra
