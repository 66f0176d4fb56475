#pragma once

#include "tilemap/Mercator.h"
#include "tilemap/item/MapContent.h"

#include <optional>
#include <string>
#include <vector>

namespace ospra {

/// The rectangle that holds all of a content. It is worked out anew only for other paths, not for other looks.
class ContentBounds {
public:
    /// @return absent where there is no place at all
    [[nodiscard]] std::optional<WorldRect> of(const MapContent& content);

private:
    std::vector<std::string> m_ids; // of the paths that the bounds are of
    std::optional<WorldRect> m_bounds;
};

/// Whether two contents have a path in common.
[[nodiscard]] bool sharePath(const MapContent& a, const MapContent& b);

} // namespace ospra
