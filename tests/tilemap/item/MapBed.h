#pragma once

#include "tilemap/item/MapAnchor.h"
#include "tilemap/item/TileMap.h"

#include <QImage>
#include <QLineF>
#include <QQmlEngine>
#include <QQuickWindow>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace ospra {

/// A red path through these coordinates.
[[nodiscard]] MapPath redPath(std::string id, std::vector<Coordinate> coordinates);

/// A map of 400 x 300 in a black window, with one anchor of 20 x 10 that stands with the middle of its foot on its
/// place.
class MapBed : public testing::Test {
protected:
    void SetUp() override;

    /// A level path of 0.02 degrees round 47 north, 8 east.
    static MapContent levelContent() { return {.paths = {redPath("level", {{47.0, 7.99}, {47.0, 8.01}})}}; }

    /// Shows the level path, and waits until it is drawn and the camera rests on it.
    void showLevelPath();
    /// Lets the window draw until the camera rests and its picture is there.
    void settle();
    /// Lets the window draw for a moment.
    void pass(int milliseconds) const;
    QImage grab() { return m_window->grabWindow(); }

    /// Where a coordinate lies on the map.
    [[nodiscard]] QPointF pixelAt(Coordinate coordinate) const;
    /// How far it lies from a pixel of the map.
    [[nodiscard]] double distance(Coordinate coordinate, QPointF pixel) const
    {
        return QLineF(pixelAt(coordinate), pixel).length();
    }
    /// Zoom of the camera that shows a content of so many degrees from west to east on so many pixels.
    static double zoomFor(double degrees, double pixels);

    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    TileMap* m_map = nullptr;
    MapAnchor* m_anchor = nullptr;
};

} // namespace ospra
