#include "tilemap/item/MapLayer.h"

#include <utility>

namespace ospra {

MapLayer::MapLayer(std::function<void()> arrived)
    : m_arrived(std::move(arrived)), m_painter([this](const LayerPicture& picture) { receive(picture); })
{}

void MapLayer::setContent(LayerPainter::Paint paint)
{
    m_paint = std::move(paint);
    m_requested.reset();
    ++m_revision;
}

void MapLayer::clear()
{
    setContent({});
    m_oldestShown = m_revision;
    m_picture = {};
}

void MapLayer::follow(const MapView& view, double scale, ViewPace pace)
{
    if (!m_paint || (m_requested && serves(*m_requested, view, scale, pace)))
        return;
    const LayerFrame frame = layerFrame(view, scale);
    if (frame.columns <= 0 || frame.rows <= 0 || frame == m_requested)
        return;
    m_requested = frame;
    m_painter.request(m_paint, frame, m_revision);
}

void MapLayer::receive(const LayerPicture& picture)
{
    if (picture.revision < m_oldestShown)
        return;
    m_picture = picture;
    ++m_pictureCount;
    m_arrived();
}

} // namespace ospra
