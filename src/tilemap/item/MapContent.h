#pragma once

#include "tilemap/MapPath.h"

#include <QObject>
#include <QQmlEngine>

#include <vector>

namespace ospra {

/// What a map shows besides the ground: its paths, from back to front, and places that a view of everything has to hold
/// as well.
struct MapContent {
    Q_GADGET
    QML_VALUE_TYPE(mapContent)

public:
    std::vector<MapPath> paths{};
    std::vector<Coordinate> places{};

    friend bool operator==(const MapContent&, const MapContent&) = default;
};

} // namespace ospra
