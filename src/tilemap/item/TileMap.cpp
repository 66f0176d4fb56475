#include "tilemap/item/TileMap.h"

#include "tilemap/PathLayer.h"
#include "tilemap/item/MapImagery.h"
#include "tilemap/item/MapNode.h"
#include "tilemap/item/attributionText.h"
#include "tilemap/vector/paintOverlay.h"

#include <QQuickWindow>

#include <utility>

namespace ospra {
namespace {

constexpr double greatestScaleBar = 110.0; // logical px

/// Draws paths on the layer's thread, where what it has worked out for them stays.
LayerPainter::Paint pathPaint(std::shared_ptr<PathLayer> layer, std::vector<MapPath> paths)
{
    return [layer = std::move(layer), paths = std::move(paths)](const LayerFrame& frame) {
        QImage image(frame.columns, frame.rows, QImage::Format_ARGB32_Premultiplied);
        if (image.isNull())
            return image;
        const auto stride = static_cast<std::ptrdiff_t>(image.bytesPerLine() / 4);
        auto* const pixels = reinterpret_cast<std::uint32_t*>(image.bits());
        layer->draw(paths, frame, {pixels, static_cast<std::size_t>(stride * frame.rows)}, stride);
        return image;
    };
}

/// Roads and names, on the thread of that layer.
LayerPainter::Paint overlayPaint(std::vector<PlacedVectorTile> tiles, const QFont& font)
{
    return [tiles = std::move(tiles), font](const LayerFrame& frame) { return paintOverlay(tiles, frame, font); };
}

} // namespace

TileMap::TileMap(QQuickItem* parent)
    : QQuickItem(parent), m_overlay([this] { update(); }), m_pathLayer(std::make_shared<PathLayer>()), m_paths([this] {
          update();
          emit pathRasterCountChanged();
      })
{
    setFlag(ItemHasContents);
    setClip(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
    m_time.start();
    connect(this, &TileMap::looksChanged, this, &QQuickItem::update);
    if (MapImagery::current() != nullptr)
        connect(MapImagery::current(), &MapImagery::storeChanged, this, &TileMap::updateStore);
    updateStore();
}

TileMap::~TileMap() = default;

void TileMap::setContent(const MapContent& content)
{
    if (m_content == content)
        return;
    const bool isOther = !sharePath(m_content, content);
    const bool hasOtherPaths = m_content.paths != content.paths;
    m_content = content;
    if (isOther)
        m_paths.clear(); // it would stand below what belongs to the new one
    if (hasOtherPaths && !m_content.paths.empty())
        m_paths.setContent(pathPaint(m_pathLayer, m_content.paths));
    if (!m_region && !m_isTouched)
        aim(AimChange::abrupt);
    polish();
    update();
    emit contentChanged();
}

void TileMap::setCamera(const Camera& camera)
{
    takeInHand();
    moveTo(camera);
}

void TileMap::setIsImperial(bool isImperial)
{
    if (std::exchange(m_isImperial, isImperial) != isImperial)
        emit viewChanged();
}

void TileMap::setNameFont(const QFont& font)
{
    if (m_nameFont == font)
        return;
    m_nameFont = font;
    m_drawnFeatures = -1;
    polish();
    emit nameFontChanged();
}

void TileMap::updateStore()
{
    TileStore* const store = MapImagery::current() != nullptr ? MapImagery::current()->store() : nullptr;
    m_tiles.setStore(store);
    if (store != nullptr)
        connect(store, &TileStore::tilesChanged, this, &QQuickItem::polish);
    polish();
}

/// Shows the tiles that there are, and has those fetched that the camera will see when it rests.
void TileMap::followTiles()
{
    if (m_tiles.store() == nullptr || !hasRoom())
        return;
    MapView next = view();
    next.camera = m_motion.end(next);
    m_tiles.follow(view(), next, surroundings(view()), scale());
    if (std::exchange(m_drawnFeatures, m_tiles.featuresRevision()) != m_tiles.featuresRevision()) {
        if (m_tiles.features().empty())
            m_overlay.clear();
        else
            m_overlay.setContent(overlayPaint(m_tiles.features(), m_nameFont));
    }
    m_overlay.follow(view(), scale(), pace());
    QString attribution = attributionText(m_tiles.shownSources());
    if (attribution != m_attribution) {
        m_attribution = std::move(attribution);
        emit attributionChanged();
    }
    update();
}

ScaleBar TileMap::scaleOfMiddle() const
{
    const double metersPerPixel = metersPerWorldUnit(coordinateAt(m_camera.center).latitude) / m_camera.worldSize();
    return scaleBar(metersPerPixel, greatestScaleBar, m_isImperial ? LengthUnits::imperial : LengthUnits::metric);
}

double TileMap::scale() const
{
    return window() != nullptr ? window()->effectiveDevicePixelRatio() : 1.0;
}

ViewPace TileMap::pace() const
{
    return m_motion.isMoving() || m_fingersApart > 0.0 || m_zoomRest.isActive() ? ViewPace::zooming : ViewPace::settled;
}

void TileMap::moveTo(const Camera& camera)
{
    const Camera moved = constrained(camera);
    if (moved == m_camera)
        return;
    m_camera = moved;
    viewHasChanged();
}

void TileMap::viewHasChanged()
{
    polish();
    update();
    emit viewChanged();
}

void TileMap::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() == oldGeometry.size())
        return;
    if (!m_isTouched)
        aim(AimChange::abrupt);
    viewHasChanged();
}

void TileMap::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemVisibleHasChanged && !data.boolValue)
        m_jumpsToAim = true;
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        polish();
    QQuickItem::itemChange(change, data);
}

void TileMap::componentComplete()
{
    QQuickItem::componentComplete();
    aim(AimChange::abrupt);
}

void TileMap::updatePolish()
{
    if (!isComponentComplete())
        return;
    followAim();
    followTiles();
    m_paths.follow(view(), scale(), pace());
}

QSGNode* TileMap::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* /*data*/)
{
    if (!hasRoom()) {
        delete oldNode;
        return nullptr;
    }
    auto* node = static_cast<MapNode*>(oldNode);
    if (node == nullptr)
        node = new MapNode(window());
    const MapView shown = view();
    const PixelGrid pixels{.corner = mapToScene(QPointF()), .scale = scale()};
    const QRectF ground = boundingRect();
    node->setGround(ground, m_groundColor);
    node->setGrid(gridLines(shown), ground, pixels, m_gridColor);
    node->tiles().show(window(), m_tiles.pictures(), shown, pixels);
    m_textureCount = node->tiles().textureCount();
    const LayerPicture& overlay = m_overlay.picture();
    node->overlay().show(window(), overlay.image, m_overlay.pictureCount(),
                         pixels.moved(placeOf(overlay.frame, shown)));
    const LayerPicture& paths = m_paths.picture();
    node->paths().show(window(), paths.image, m_paths.pictureCount(), pixels.moved(placeOf(paths.frame, shown)));
    return node;
}

} // namespace ospra
