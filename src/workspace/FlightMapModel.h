#pragma once

#include "core/OspraModel.h"
#include "tilemap/item/MapContent.h"
#include "tilemap/item/MapPlace.h"

#include <QAbstractListModel>
#include <QColor>
#include <QList>
#include <QQmlEngine>

#include <optional>
#include <vector>

namespace ospra {

/// What the flight map shows of the model. Its rows are the markers under the charts' cursor, one for each track that
/// is not hidden; a hover changes nothing else.
class FlightMapModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::OspraModel* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)
    Q_PROPERTY(QList<QColor> palette READ palette WRITE setPalette NOTIFY paletteChanged REQUIRED)
    Q_PROPERTY(ospra::MapContent content READ content NOTIFY contentChanged)
    Q_PROPERTY(ospra::MapPlace exitPlace READ exitPlace NOTIFY contentChanged)
    Q_PROPERTY(ospra::MapPlace landingPlace READ landingPlace NOTIFY contentChanged)
    Q_PROPERTY(ospra::MapPlace jumpRunStart READ jumpRunStart NOTIFY contentChanged)
    Q_PROPERTY(ospra::MapPlace jumpRunEnd READ jumpRunEnd NOTIFY contentChanged)
    Q_PROPERTY(qreal jumpRunBearing READ jumpRunBearing NOTIFY contentChanged)
    Q_PROPERTY(bool hasRegion READ hasRegion NOTIFY regionChanged)
    Q_PROPERTY(ospra::MapPlace regionCenter READ regionCenter NOTIFY regionChanged)
    Q_PROPERTY(ospra::MapPlace regionSpans READ regionSpans NOTIFY regionChanged)

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] OspraModel* source() const { return m_source; }
    void setSource(OspraModel* source);
    /// The colours of the names that the logic uses, in their order.
    [[nodiscard]] QList<QColor> palette() const { return m_palette; }
    void setPalette(const QList<QColor>& colors);

    /// The paths by phase, and the jump run above them.
    [[nodiscard]] MapContent content() const { return m_content; }
    /// Of the first track that is not hidden; no place where it has none.
    [[nodiscard]] MapPlace exitPlace() const { return m_exit; }
    [[nodiscard]] MapPlace landingPlace() const { return m_landing; }
    [[nodiscard]] MapPlace jumpRunStart() const { return m_jumpRunStart; }
    [[nodiscard]] MapPlace jumpRunEnd() const { return m_jumpRunEnd; }
    /// Degrees clockwise from north.
    [[nodiscard]] qreal jumpRunBearing() const { return m_jumpRunBearing; }
    /// The part of the flight that a zoom shows. Without a region everything is to be seen.
    [[nodiscard]] bool hasRegion() const;
    [[nodiscard]] MapPlace regionCenter() const;
    [[nodiscard]] MapPlace regionSpans() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void sourceChanged();
    void paletteChanged();
    void contentChanged();
    void regionChanged();
    /// The camera has to go to the region, or to everything. At any other time it is left alone.
    void cameraCalled();

private:
    enum Role { NameRole = Qt::UserRole, ColorRole, PlaceRole };

    struct Marker {
        QString name{};
        Color color = Color::white;
        MapPlace place{};
    };

    void updateContent();
    void updatePlaces(const std::optional<JumpRunLine>& jumpRun);
    void updateMarkers();
    void updateHover();
    [[nodiscard]] std::uint32_t rgb(Color color) const;

    OspraModel* m_source = nullptr;
    QList<QColor> m_palette;
    MapContent m_content;
    MapPlace m_exit;
    MapPlace m_landing;
    MapPlace m_jumpRunStart;
    MapPlace m_jumpRunEnd;
    qreal m_jumpRunBearing = 0.0;
    std::vector<Marker> m_markers;
};

} // namespace ospra
