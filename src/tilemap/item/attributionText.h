#pragma once

#include "tilemap/MapSource.h"

#include <QString>

#include <span>

namespace ospra {

/// What the sources' terms want to be said, each once, as styled text with their links.
[[nodiscard]] QString attributionText(std::span<const MapSource> sources);

} // namespace ospra
