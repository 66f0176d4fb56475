#pragma once

#include "workspace/theme/desktop/DesktopLook.h"

#include <QColor>
#include <QObject>
#include <QQmlEngine>
#include <QVariantMap>

class QDBusConnection;

namespace ospra {

class PortalSettings;

/// How the desktop's user wants programs to look: dark or light, contrast, motion, accent and font. Follows the
/// desktop portal, and where that says nothing the palette of the toolkit; both live.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(bool isHighContrast READ isHighContrast NOTIFY changed)
    Q_PROPERTY(bool isMotionReduced READ isMotionReduced NOTIFY changed)
    Q_PROPERTY(bool hasAccent READ hasAccent NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QString fontFamily READ fontFamily NOTIFY changed)
    Q_PROPERTY(QString tabularFontFamily READ tabularFontFamily NOTIFY changed)
    Q_PROPERTY(qreal fontSize READ fontSize NOTIFY changed)
    Q_PROPERTY(qreal pointsPerPixel READ pointsPerPixel NOTIFY changed)
    Q_PROPERTY(QVariantMap overrides READ overrides WRITE setOverrides NOTIFY changed)

public:
    /// @param bus where the desktop portal is asked
    explicit Appearance(const QDBusConnection& bus, QObject* parent = nullptr);
    ~Appearance() override;

    /// The one object of this program, which every QML engine shares. Made at the first call, on the main thread;
    /// lives as long as the application.
    [[nodiscard]] static Appearance* instance();
    static Appearance* create(QQmlEngine* engine, QJSEngine* scriptEngine);

    [[nodiscard]] bool isDark() const { return m_state.isDark; }
    [[nodiscard]] bool isHighContrast() const { return m_state.isHighContrast; }
    [[nodiscard]] bool isMotionReduced() const { return m_state.isMotionReduced; }
    [[nodiscard]] bool hasAccent() const { return m_state.accent.isValid(); }

    /// The desktop's accent colour as the user chose it; not valid if there is none.
    [[nodiscard]] QColor accent() const { return m_state.accent; }

    [[nodiscard]] QString fontFamily() const { return m_state.fontFamily; }

    /// The same typeface with digits that are all equally wide.
    [[nodiscard]] QString tabularFontFamily() const;

    /// The size of ordinary text in logical pixels, with its fraction.
    [[nodiscard]] qreal fontSize() const { return m_state.fontSize; }

    /// Points to a logical pixel. Sizes with a fraction can only be asked for in points.
    [[nodiscard]] qreal pointsPerPixel() const { return m_state.pointsPerPixel; }

    /// What is put in place of the desktop's answers, for pictures and tests: `isDark`, `isHighContrast`,
    /// `isMotionReduced` (bool), `accent` (color), `fontFamily` (string), `fontSize` (pixels). Keys left out follow
    /// the desktop.
    [[nodiscard]] QVariantMap overrides() const { return m_overrides; }
    void setOverrides(const QVariantMap& overrides);

    /// The desktop's accent as a text colour that is readable on the grounds and on its own tint on them.
    Q_INVOKABLE [[nodiscard]] QColor readableAccent(const QList<QColor>& grounds, qreal tint) const;

    /// The desktop's accent as a fill under white text.
    Q_INVOKABLE [[nodiscard]] QColor accentUnderWhite() const;

signals:
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct State {
        bool isDark = false;
        bool isHighContrast = false;
        bool isMotionReduced = false;
        QColor accent;
        QString fontFamily;
        qreal fontSize = 13.0;
        qreal pointsPerPixel = 0.75;

        bool operator==(const State&) const = default;
    };

    [[nodiscard]] State readState() const;
    void update();

    PortalSettings* m_portal;
    QVariantMap m_overrides;
    State m_state;
};

} // namespace ospra
