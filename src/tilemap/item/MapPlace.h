#pragma once

#include "platform/Coordinate.h"

#include <QObject>
#include <QQmlEngine>

#include <limits>

namespace ospra {

/// A coordinate for QML, or none. It also tells spans in degrees.
struct MapPlace {
    Q_GADGET
    QML_VALUE_TYPE(mapPlace)
    Q_PROPERTY(double latitude MEMBER latitude)
    Q_PROPERTY(double longitude MEMBER longitude)

public:
    double latitude = std::numeric_limits<double>::quiet_NaN(); ///< NaN: there is none
    double longitude = std::numeric_limits<double>::quiet_NaN();

    [[nodiscard]] Coordinate coordinate() const { return {.latitude = latitude, .longitude = longitude}; }
    friend bool operator==(const MapPlace&, const MapPlace&) = default;
};

} // namespace ospra
