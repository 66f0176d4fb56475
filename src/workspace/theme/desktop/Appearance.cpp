#include "workspace/theme/desktop/Appearance.h"

#include "workspace/theme/desktop/Contrast.h"
#include "workspace/theme/desktop/PortalSettings.h"
#include "workspace/theme/desktop/tabularFamily.h"

#include <QDBusConnection>
#include <QEvent>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

#include <span>
#include <type_traits>

namespace ospra {

namespace {

constexpr qreal pointsPerInch = 72.0;
constexpr qreal usualDotsPerInch = 96.0;

// A palette is dark where its text is lighter than its ground.
bool isPaletteDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::WindowText).lightnessF() > palette.color(QPalette::Window).lightnessF();
}

qreal dotsPerInch()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->logicalDotsPerInchY() : usualDotsPerInch;
}

qreal pixelSize(const QFont& font, qreal pixelsPerPoint)
{
    return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * pixelsPerPoint;
}

} // namespace

Appearance::Appearance(const QDBusConnection& bus, QObject* parent)
    : QObject(parent), m_portal(new PortalSettings(bus, this)), m_state(readState())
{
    connect(m_portal, &PortalSettings::lookChanged, this, &Appearance::update);
    qApp->installEventFilter(this);
}

Appearance::~Appearance() = default;

Appearance* Appearance::instance()
{
    static Appearance* const appearance = new Appearance(QDBusConnection::sessionBus(), qApp);
    return appearance;
}

Appearance* Appearance::create(QQmlEngine* /*engine*/, QJSEngine* /*scriptEngine*/)
{
    QJSEngine::setObjectOwnership(instance(), QJSEngine::CppOwnership);
    return instance();
}

QString Appearance::tabularFontFamily() const
{
    return tabularFamily(m_state.fontFamily);
}

void Appearance::setOverrides(const QVariantMap& overrides)
{
    if (overrides == m_overrides)
        return;
    m_overrides = overrides;
    m_state = readState();
    emit changed();
}

QColor Appearance::readableAccent(const QList<QColor>& grounds, qreal tint) const
{
    return ospra::readableAccent(m_state.accent, std::span(grounds.cbegin(), grounds.cend()), tint);
}

QColor Appearance::accentUnderWhite() const
{
    return ospra::accentUnderWhite(m_state.accent);
}

bool Appearance::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp &&
        (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::ApplicationFontChange))
        update();
    return QObject::eventFilter(watched, event);
}

Appearance::State Appearance::readState() const
{
    const auto chosen = [this](const char* key, const auto& desktops) {
        return m_overrides.value(QLatin1String(key), QVariant::fromValue(desktops))
            .template value<std::remove_cvref_t<decltype(desktops)>>();
    };
    const DesktopLook& look = m_portal->look();
    const QFont font = QGuiApplication::font();
    const qreal pointsPerPixel = pointsPerInch / dotsPerInch();

    State state;
    state.isDark = chosen("isDark", look.isDark.value_or(isPaletteDark()));
    state.isHighContrast = chosen("isHighContrast", look.isHighContrast.value_or(false));
    state.isMotionReduced = chosen("isMotionReduced", look.isMotionReduced.value_or(false));
    state.accent = chosen("accent", look.accent.value_or(QColor()));
    state.fontFamily = chosen("fontFamily", font.family());
    state.fontSize = chosen("fontSize", pixelSize(font, 1.0 / pointsPerPixel));
    state.pointsPerPixel = pointsPerPixel;
    return state;
}

void Appearance::update()
{
    State state = readState();
    if (state == m_state)
        return;
    m_state = std::move(state);
    emit changed();
}

} // namespace ospra
