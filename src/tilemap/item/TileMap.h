#pragma once

#include "tilemap/PathLayer.h"
#include "tilemap/item/CameraMotion.h"
#include "tilemap/item/ContentBounds.h"
#include "tilemap/item/DragVelocity.h"
#include "tilemap/item/MapContent.h"
#include "tilemap/item/MapLayer.h"
#include "tilemap/item/MapPlace.h"
#include "tilemap/item/MapTiles.h"
#include "tilemap/scaleBar.h"

#include <QAbstractAnimation>
#include <QBasicTimer>
#include <QColor>
#include <QElapsedTimer>
#include <QFont>
#include <QQmlEngine>
#include <QQuickItem>

#include <memory>
#include <optional>

class QNativeGestureEvent;

namespace ospra {

/// A map that knows nothing of jumps: ground, imagery, roads and names, and paths over them. The hand moves it at will;
/// the program aims it at a region or at everything there is. As long as no hand has touched it since, it keeps to its
/// aim when its size or content changes. Items at coordinates are put into it as `MapAnchor`s.
class TileMap : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ospra::MapContent content READ content WRITE setContent NOTIFY contentChanged)
    Q_PROPERTY(QColor groundColor MEMBER m_groundColor NOTIFY looksChanged)
    Q_PROPERTY(QColor gridColor MEMBER m_gridColor NOTIFY looksChanged)
    Q_PROPERTY(int cameraDuration MEMBER m_cameraDuration NOTIFY looksChanged)
    Q_PROPERTY(qreal zoom READ zoom NOTIFY viewChanged)
    Q_PROPERTY(bool isImperial READ isImperial WRITE setIsImperial NOTIFY viewChanged)
    Q_PROPERTY(qreal scaleBarWidth READ scaleBarWidth NOTIFY viewChanged)
    Q_PROPERTY(QString scaleBarText READ scaleBarText NOTIFY viewChanged)
    Q_PROPERTY(QFont nameFont READ nameFont WRITE setNameFont NOTIFY nameFontChanged)
    Q_PROPERTY(QString attribution READ attribution NOTIFY attributionChanged)
    Q_PROPERTY(int pathRasterCount READ pathRasterCount NOTIFY pathRasterCountChanged)

public:
    explicit TileMap(QQuickItem* parent = nullptr);
    ~TileMap() override;

    [[nodiscard]] MapContent content() const { return m_content; }
    void setContent(const MapContent& content);
    [[nodiscard]] qreal zoom() const { return m_camera.zoom; }
    /// A round length on the ground in the middle of the map, in feet and miles if the map is imperial.
    [[nodiscard]] bool isImperial() const { return m_isImperial; }
    void setIsImperial(bool isImperial);
    [[nodiscard]] qreal scaleBarWidth() const { return scaleOfMiddle().width; }
    [[nodiscard]] QString scaleBarText() const { return QString::fromStdString(scaleOfMiddle().text); }
    /// What the names of towns on the ground are written in.
    [[nodiscard]] QFont nameFont() const { return m_nameFont; }
    void setNameFont(const QFont& font);
    /// Styled text, with links, that says whose tiles are shown; empty where there are none.
    [[nodiscard]] QString attribution() const { return m_attribution; }
    /// How many tiles' textures there were in the last frame.
    [[nodiscard]] int textureCount() const { return m_textureCount; }
    /// How many pictures of the paths have been drawn and shown.
    [[nodiscard]] int pathRasterCount() const { return m_paths.pictureCount(); }

    [[nodiscard]] const Camera& camera() const { return m_camera; }
    /// Puts the camera somewhere at once, as a hand would.
    void setCamera(const Camera& camera);
    [[nodiscard]] MapView view() const { return {m_camera, width(), height()}; }
    [[nodiscard]] bool isMoving() const { return m_motion.isMoving(); }

    /// Aims at a region.
    /// @param spans from its southern to its northern and from its western to its eastern edge, degrees
    Q_INVOKABLE void showRegion(const ospra::MapPlace& center, const ospra::MapPlace& spans);
    /// Aims at the whole content.
    Q_INVOKABLE void frameContent();
    /// Does what a key means to a map. @return false where it means nothing
    Q_INVOKABLE bool pressKey(int key);

signals:
    void contentChanged();
    void looksChanged();
    /// Camera, size or units.
    void viewChanged();
    void nameFontChanged();
    void attributionChanged();
    void pathRasterCountChanged();
    /// A mouse button or a finger has come down.
    void touched();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void touchEvent(QTouchEvent* event) override;
    void touchUngrabEvent() override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void componentComplete() override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    /// Drives the motion of the camera, a step a frame.
    class Clock : public QAbstractAnimation {
    public:
        explicit Clock(TileMap* map) : m_map(map) {}
        [[nodiscard]] int duration() const override { return -1; }

    protected:
        void updateCurrentTime(int milliseconds) override { m_map->tick(milliseconds); }

    private:
        TileMap* m_map;
    };

    enum class AimChange { abrupt, gentle };

    [[nodiscard]] bool hasRoom() const { return width() > 0.0 && height() > 0.0; }
    [[nodiscard]] double scale() const;
    [[nodiscard]] ViewPace pace() const;
    [[nodiscard]] ScaleBar scaleOfMiddle() const;
    void moveTo(const Camera& camera);
    void viewHasChanged();
    void aim(AimChange change);
    void followAim();
    [[nodiscard]] std::optional<Camera> aimedCamera();
    [[nodiscard]] bool isNear(const Camera& camera) const;
    void followTiles();
    void updateStore();
    void startMotion();
    void tick(int milliseconds);

    void takeInHand();
    void beginDrag(QPointF position);
    void dragTo(QPointF position);
    void endDrag();
    void cancelDrag();
    void zoomSoftly(QPointF position, double levels);
    void zoomAtOnce(QPointF position, double levels);
    void pan(double dx, double dy);
    void pinch(const QTouchEvent& event);
    bool nativeGesture(const QNativeGestureEvent& event);

    MapContent m_content;
    QColor m_groundColor = Qt::darkGray;
    QColor m_gridColor = Qt::transparent;
    int m_cameraDuration = 250; // ms; 0: nothing moves by itself
    bool m_isImperial = false;

    Camera m_camera;
    ContentBounds m_bounds;
    std::optional<WorldRect> m_region; // aimed at; absent: at everything
    std::optional<AimChange> m_aimDue; // the camera has not been brought to the aim yet
    bool m_isTouched = false;          // by a hand, since it was aimed
    bool m_jumpsToAim = true;          // whatever was on screen is of no interest any more
    CameraMotion m_motion;
    Clock m_clock{this};
    int m_clockTime = 0; // ms, of the last step

    std::optional<QPointF> m_dragPosition; // of the pointer while it drags
    DragVelocity m_velocity;
    QElapsedTimer m_time;
    double m_fingersApart = 0.0; // logical px, while two pinch
    QBasicTimer m_zoomRest;      // runs while the zoom may be changed again at any moment

    MapTiles m_tiles;
    QFont m_nameFont;
    QString m_attribution;
    int m_textureCount = 0;
    int m_drawnFeatures = 0; // revision of the roads and names that the overlay shows
    MapLayer m_overlay;
    std::shared_ptr<PathLayer> m_pathLayer; // used by the thread of the layer alone
    MapLayer m_paths;
};

} // namespace ospra
