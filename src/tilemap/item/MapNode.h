#pragma once

#include "tilemap/item/MapTiles.h"
#include "tilemap/item/gridLines.h"
#include "tilemap/item/layerPlacement.h"

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QQuickWindow>
#include <QRectF>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <QSGTexture>
#include <QSGTransformNode>

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace ospra {

/// Puts edges on whole device pixels of the window.
struct PixelGrid {
    QPointF corner{};   ///< of the item in the window
    double scale = 1.0; ///< device pixels in a logical one

    [[nodiscard]] double x(double position) const { return aligned(position, corner.x()); }
    [[nodiscard]] double y(double position) const { return aligned(position, corner.y()); }
    /// Each edge by itself, so that rectangles that touch still do.
    [[nodiscard]] QRectF edges(const ViewRect& rect) const;
    /// The corner alone, so that a picture of device pixels is shown as it is.
    [[nodiscard]] QRectF moved(const ViewRect& rect) const;

private:
    [[nodiscard]] double aligned(double position, double origin) const;
};

/// One picture on screen, or none. The node is there only with a texture, which the software renderer wants.
class PictureNode : public QSGTransformNode {
public:
    /// @param version of the image: another one makes another texture
    void show(QQuickWindow* window, const QImage& image, std::int64_t version, const QRectF& rect);

private:
    QSGImageNode* m_node = nullptr;
    std::int64_t m_version = -1;
};

/// Pictures of tiles. Each tile has one texture as long as it is shown, in however many pieces.
class TilesNode : public QSGTransformNode {
public:
    ~TilesNode() override;

    void show(QQuickWindow* window, const std::vector<ShownTile>& tiles, const MapView& view, const PixelGrid& pixels);
    [[nodiscard]] int textureCount() const { return static_cast<int>(m_textures.size()); }

private:
    struct Texture {
        std::unique_ptr<QSGTexture> texture{};
        std::shared_ptr<const DecodedTile> tile{}; // of which it is: a tile may be renewed
    };

    QSGTexture* texture(QQuickWindow* window, const ShownTile& shown);

    std::unordered_map<TileKey, Texture> m_textures;
    std::vector<QSGImageNode*> m_pieces;
};

/// Ground, grid and layers of a map, from back to front. The transforms stay what they are: they are there because the
/// software renderer finds the place of nodes that are added or moved only below a node of a kind that can have one.
class MapNode : public QSGTransformNode {
public:
    explicit MapNode(QQuickWindow* window);

    void setGround(const QRectF& rect, const QColor& color);
    void setGrid(const GridLines& lines, const QRectF& rect, const PixelGrid& pixels, const QColor& color);
    [[nodiscard]] TilesNode& tiles() { return m_tiles; }
    [[nodiscard]] PictureNode& overlay() { return m_overlay; }
    [[nodiscard]] PictureNode& paths() { return m_paths; }

private:
    QQuickWindow* m_window;
    QSGRectangleNode* m_ground;
    QSGTransformNode m_grid;
    TilesNode m_tiles;
    PictureNode m_overlay;
    PictureNode m_paths;
    std::vector<QSGRectangleNode*> m_gridLines; // owned by the tree
};

} // namespace ospra
