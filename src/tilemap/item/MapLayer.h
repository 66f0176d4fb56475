#pragma once

#include "tilemap/item/LayerPainter.h"
#include "tilemap/item/layerPlacement.h"

#include <functional>
#include <optional>

namespace ospra {

/// A layer of a map: the picture that is there, and the wish for the next one. The picture stays until another is
/// there, moved and scaled with the ground.
class MapLayer {
public:
    /// @param arrived called when there is another picture
    explicit MapLayer(std::function<void()> arrived);

    /// What the layer shows from now on.
    void setContent(LayerPainter::Paint paint);
    /// Shows nothing, at once.
    void clear();
    /// Has a picture drawn where the one that is there, or on its way, will not do.
    void follow(const MapView& view, double scale, ViewPace pace);

    [[nodiscard]] const LayerPicture& picture() const { return m_picture; }
    /// How many pictures have been drawn and shown.
    [[nodiscard]] int pictureCount() const { return m_pictureCount; }

private:
    void receive(const LayerPicture& picture);

    std::function<void()> m_arrived;
    LayerPainter::Paint m_paint; // none: the layer is empty
    LayerPicture m_picture;
    std::optional<LayerFrame> m_requested; // for the content as it is; absent where nothing has been asked for
    int m_revision = 0;                    // of the content
    int m_oldestShown = 0;                 // pictures of an older content are of no use any more
    int m_pictureCount = 0;
    LayerPainter m_painter;
};

} // namespace ospra
