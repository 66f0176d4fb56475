#include "tilemap/item/MapNode.h"

#include <algorithm>
#include <cmath>

namespace ospra {

double PixelGrid::aligned(double position, double origin) const
{
    return std::floor((position + origin) * scale + 0.5) / scale - origin;
}

QRectF PixelGrid::edges(const ViewRect& rect) const
{
    return QRectF(QPointF(x(rect.left), y(rect.top)), QPointF(x(rect.right), y(rect.bottom)));
}

QRectF PixelGrid::moved(const ViewRect& rect) const
{
    return {x(rect.left), y(rect.top), rect.right - rect.left, rect.bottom - rect.top};
}

void PictureNode::show(QQuickWindow* window, const QImage& image, std::int64_t version, const QRectF& rect)
{
    if (image.isNull()) {
        if (m_node != nullptr)
            removeChildNode(m_node);
        delete m_node;
        m_node = nullptr;
        return;
    }
    const bool isNew = m_node == nullptr;
    if (isNew) {
        m_node = window->createImageNode();
        m_node->setFlag(OwnedByParent);
        m_node->setOwnsTexture(true);
        m_node->setFiltering(QSGTexture::Linear);
    }
    if (isNew || m_version != version)
        m_node->setTexture(window->createTextureFromImage(image, QQuickWindow::TextureHasAlphaChannel));
    m_version = version;
    m_node->setRect(rect);
    if (isNew)
        appendChildNode(m_node);
}

TilesNode::~TilesNode()
{
    for (QSGImageNode* const piece : m_pieces)
        delete piece; // before the textures that they show
}

QSGTexture* TilesNode::texture(QQuickWindow* window, const ShownTile& shown)
{
    Texture& kept = m_textures[shown.placement.key];
    if (kept.tile != shown.tile) {
        const QImage& picture = shown.tile->picture;
        const auto options =
            picture.hasAlphaChannel() ? QQuickWindow::TextureHasAlphaChannel : QQuickWindow::CreateTextureOptions();
        kept = {std::unique_ptr<QSGTexture>(window->createTextureFromImage(picture, options)), shown.tile};
    }
    return kept.texture.get();
}

void TilesNode::show(QQuickWindow* window, const std::vector<ShownTile>& tiles, const MapView& view,
                     const PixelGrid& pixels)
{
    // A texture that is replaced goes only after no piece shows it any more.
    std::unordered_map<TileKey, Texture> before = std::move(m_textures);
    m_textures.clear();
    for (const ShownTile& shown : tiles) {
        const auto kept = before.find(shown.placement.key);
        if (kept != before.end() && kept->second.tile == shown.tile && !m_textures.contains(shown.placement.key))
            m_textures[shown.placement.key] = std::move(kept->second);
    }
    while (m_pieces.size() > tiles.size()) {
        removeChildNode(m_pieces.back());
        delete m_pieces.back();
        m_pieces.pop_back();
    }
    const double size = view.camera.worldSize();
    const WorldRect world = view.visibleWorld();
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const auto& [key, part, ground] = tiles[i].placement;
        const bool isNew = i == m_pieces.size();
        if (isNew) {
            m_pieces.push_back(window->createImageNode());
            m_pieces.back()->setFlag(OwnedByParent, false);
            m_pieces.back()->setOwnsTexture(false);
            m_pieces.back()->setFiltering(QSGTexture::Linear);
        }
        QSGImageNode* const piece = m_pieces[i];
        piece->setTexture(texture(window, tiles[i]));
        const QSizeF picture = tiles[i].tile->picture.size();
        piece->setSourceRect(QRectF(QPointF(part.left * picture.width(), part.top * picture.height()),
                                    QPointF(part.right * picture.width(), part.bottom * picture.height())));
        piece->setRect(pixels.edges({.left = (ground.left - world.left) * size,
                                     .top = (ground.top - world.top) * size,
                                     .right = (ground.right - world.left) * size,
                                     .bottom = (ground.bottom - world.top) * size}));
        if (isNew)
            appendChildNode(piece);
    }
}

MapNode::MapNode(QQuickWindow* window) : m_window(window), m_ground(window->createRectangleNode())
{
    m_ground->setFlag(OwnedByParent);
    appendChildNode(m_ground);
    for (QSGNode* const layer : std::initializer_list<QSGNode*>{&m_grid, &m_tiles, &m_overlay, &m_paths}) {
        layer->setFlag(OwnedByParent, false);
        appendChildNode(layer);
    }
}

void MapNode::setGround(const QRectF& rect, const QColor& color)
{
    m_ground->setRect(rect);
    m_ground->setColor(color);
}

void MapNode::setGrid(const GridLines& lines, const QRectF& rect, const PixelGrid& pixels, const QColor& color)
{
    const std::size_t count = lines.x.size() + lines.y.size();
    while (m_gridLines.size() > count) {
        m_grid.removeChildNode(m_gridLines.back());
        delete m_gridLines.back();
        m_gridLines.pop_back();
    }
    while (m_gridLines.size() < count) {
        m_gridLines.push_back(m_window->createRectangleNode());
        m_gridLines.back()->setFlag(OwnedByParent);
        m_grid.appendChildNode(m_gridLines.back());
    }
    const double thickness = std::max(1.0, std::round(pixels.scale)) / pixels.scale;
    std::size_t next = 0;
    const auto place = [&](const QRectF& line) {
        m_gridLines[next]->setRect(line);
        m_gridLines[next]->setColor(color);
        ++next;
    };
    for (const double x : lines.x)
        place({pixels.x(x - thickness / 2.0), 0.0, thickness, rect.height()});
    for (const double y : lines.y)
        place({0.0, pixels.y(y - thickness / 2.0), rect.width(), thickness});
}

} // namespace ospra
