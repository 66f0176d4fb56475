#pragma once

#include "tilemap/Camera.h"

namespace ospra {

/// The view that a layer's picture is drawn for. The picture reaches further than the view on all sides, so that the
/// map can be moved some way without a new one.
struct LayerFrame {
    Camera camera{};    ///< its centre is the middle of the picture
    int columns = 0;    ///< size of the picture in device pixels
    int rows = 0;       ///
    double scale = 1.0; ///< device pixels in a logical one

    friend bool operator==(const LayerFrame&, const LayerFrame&) = default;
};

} // namespace ospra
