#include "tools/take-screenshots/Session.h"

#include "tilemap/item/MapImagery.h"
#include "tilemap/item/TileMap.h"
#include "tools/take-screenshots/measureTexts.h"
#include "tools/take-screenshots/windowParts.h"
#include "workspace/theme/desktop/Contrast.h"

#include <QCoreApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QImage>
#include <QScreen>
#include <QThread>

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>
#include <utility>

namespace ospra {

namespace {

constexpr int patience = 30000; // ms until a state that does not come is given up
constexpr int settling = 450;   // ms; longer than any animation
constexpr int fading = 100;     // ms; the same where motion is unwanted
constexpr QSize usualSize(1200, 700);
constexpr QSize smallSize(900, 600);

/// Those that are taken at scale 2 too.
constexpr std::array mainPictures{"overview",        "overview-stats",   "jump-hover", "jump-canopy", "jump-single",
                                  "menu-companions", "menu-data-series", "settings",   "about",       "welcome"};
/// Those that are taken in a small window too.
constexpr std::array smallPictures{"overview", "overview-stats", "jump-hover", "jump-all-series", "menu-jump"};
/// Those in which no text stands on another ground than in the rest.
constexpr std::array repeatingPictures{"jump", "jump-hidden", "jump-all-series", "jump-imperial", "jump-map-near"};
constexpr std::array mapPictures{"jump-hover", "jump-map-near"};

bool contains(std::span<const char* const> names, const QString& name)
{
    return std::ranges::any_of(names, [&name](const char* each) { return name == QLatin1String(each); });
}

} // namespace

Session::Session(Options options) : m_options(std::move(options)) {}

bool Session::run()
{
    if (!m_app.openWindow())
        return false;
    // A pointer over the window would move the charts' cursor.
    QCursor::setPos(m_app.window()->screen()->geometry().bottomRight());
    waitUntil([this] { return m_app.model().hasJumpGroups() && !m_app.model().isLoading(); }, "jumps in the samples");
    if (!m_app.model().hasJumpGroups())
        return false;
    if (m_options.choice != Choice::bareMaps)
        waitUntil([] { return MapImagery::current()->store() != nullptr; }, "sources of the map");
    for (const QSize size : {usualSize, smallSize}) {
        m_size = size;
        m_app.window()->resize(size);
        m_app.window()->requestActivate();
        takeScreens();
    }
    m_size = usualSize;
    m_app.window()->resize(m_size);
    m_app.model().closeFolder();
    take(QStringLiteral("welcome"));
    takeUpdates(); // last, as the menu has an entry for it from then on
    return m_allDone;
}

void Session::takeScreens()
{
    takeOverview();
    takeJumpScreens();
    takeSeriesScreens();
    takeMaps();
    takeMenus();
    takeSmallWindows();
    if (!wants(QStringLiteral("alert")))
        return;
    openJump(firstJump([](const JumpGroup& group) { return !group.jumpDate; }));
    take(QStringLiteral("alert"));
    m_app.model().dismissError();
}

void Session::takeOverview()
{
    OspraModel& model = m_app.model();
    model.selectSidebarItem(SidebarSelection::overview());
    take(QStringLiteral("overview"));
    const JumpGroup& newest =
        model.jumpGroups()[firstJump([](const JumpGroup& group) { return group.jumpDate.has_value(); })];
    model.setOverviewSelectedDay(newest.jumpDate);
    take(QStringLiteral("overview-day"));
    model.setOverviewMode(OverviewMode::stats);
    take(QStringLiteral("overview-stats"));
    model.setOverviewMode(OverviewMode::heatmap);
    model.setOverviewSelectedDay(std::nullopt);
}

void Session::takeJumpScreens()
{
    OspraModel& model = m_app.model();
    openJump(firstJump([](const JumpGroup& group) { return group.jumpDate && group.companionEntries.empty(); }));
    model.clearZoom();
    take(QStringLiteral("jump-single"));
    openJump(firstJump([](const JumpGroup& group) { return group.companionEntries.size() > 1; }));
    model.chooseZoomMode(ZoomMode::freefallAndCanopy);
    take(QStringLiteral("jump"));
    hoverAt(0.4);
    take(QStringLiteral("jump-hover"));
    model.chooseZoomMode(ZoomMode::canopy);
    hoverAt(0.8);
    take(QStringLiteral("jump-canopy"));
    model.toggleTrackVisibility(model.tracks().back().id);
    model.chooseZoomMode(ZoomMode::freefall);
    hoverAt(0.4);
    take(QStringLiteral("jump-hidden"));
}

void Session::takeSeriesScreens()
{
    OspraModel& model = m_app.model();
    const std::set<DataSeries> enabled = model.enabledSeries();
    model.setEnabledSeries({allDataSeries.begin(), allDataSeries.end()});
    model.setEnabledDistanceSeries({allDistanceSeries.begin(), allDistanceSeries.end()});
    take(QStringLiteral("jump-all-series"));
    model.setEnabledDistanceSeries({});
    model.setEnabledSeries({});
    take(QStringLiteral("jump-no-series"));
    model.setEnabledSeries(enabled);
    model.setUseMetric(false);
    take(QStringLiteral("jump-imperial"));
    model.setUseMetric(true);
    model.toggleTrackVisibility(model.tracks().back().id);
}

void Session::takeMaps()
{
    if (!wants(QStringLiteral("jump-map-near")))
        return;
    m_app.model().chooseZoomMode(ZoomMode::canopy);
    hoverAt(0.9);
    rest(settling); // until the camera is there
    waitUntil([this] { return mapIsComplete(*m_app.window()); }, "a map");
    if (TileMap* const map = visibleMap(*m_app.window()))
        map->setCamera({map->camera().center, map->camera().zoom + 1.6});
    take(QStringLiteral("jump-map-near"));
}

void Session::takeMenus()
{
    m_app.model().chooseZoomMode(ZoomMode::freefallAndCanopy);
    m_app.model().setHoveredSeconds(std::nullopt);
    for (const char* title : {"Ospra", "File", "Companions", "Jump", "Folders", "Data Series"}) {
        const QString menu = QString::fromLatin1(title);
        const QString name = QStringLiteral("menu-") + menu.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
        if (!wants(name))
            continue;
        setMenuOpen(*m_app.window(), menu, true);
        take(name);
        setMenuOpen(*m_app.window(), menu, false);
        rest(settling);
    }
}

void Session::takeSmallWindows()
{
    struct Row {
        const char* function;
        const char* title;
        const char* name;
    };
    for (const auto& [function, title, name] :
         {Row{"showSettings", "Settings", "settings"}, Row{"showAbout", "About Ospra", "about"}}) {
        if (!wants(QLatin1String(name)))
            continue;
        callInWindow(*m_app.window(), function);
        const QString wanted = QString::fromLatin1(title);
        waitUntil([&wanted] { return smallWindow(wanted) != nullptr; }, title);
        if (QQuickWindow* const window = smallWindow(wanted)) {
            takeWindow(QString::fromLatin1(name), *window);
            window->close();
        }
    }
}

void Session::takeUpdates()
{
    const QString name = QStringLiteral("updates");
    if (!wants(name))
        return;
    m_updates = std::make_unique<CheckForUpdatesViewModel>(m_options.feed, QCoreApplication::applicationVersion());
    m_app.window()->setProperty("updates", QVariant::fromValue(m_updates.get()));
    m_updates->start();
    waitUntil([] { return smallWindow(QStringLiteral("Updates")) != nullptr; }, "a release");
    if (QQuickWindow* const window = smallWindow(QStringLiteral("Updates"))) {
        takeWindow(name, *window);
        window->close();
    }
}

void Session::openJump(std::size_t index)
{
    m_app.model().openGroup(m_app.model().jumpGroups()[index]);
    waitUntil([this] { return !m_app.model().isLoading(); }, "a loaded jump");
}

std::size_t Session::firstJump(const std::function<bool(const JumpGroup&)>& fits)
{
    const std::vector<JumpGroup>& groups = m_app.model().jumpGroups();
    const auto group = std::ranges::find_if(groups, fits);
    return group == groups.end() ? 0 : static_cast<std::size_t>(group - groups.begin());
}

/// Puts the cursor there in the range that the charts show, 0 to 1.
void Session::hoverAt(double share)
{
    const TimeRange range = m_app.model().displayRange();
    m_app.model().setHoveredSeconds(range.lo + share * (range.hi - range.lo));
}

void Session::waitUntil(const std::function<bool()>& isReached, const char* what)
{
    QElapsedTimer timer;
    timer.start();
    while (!isReached()) {
        if (timer.elapsed() > patience) {
            std::fprintf(stderr, "take-screenshots: waited in vain for %s\n", what);
            m_allDone = false;
            return;
        }
        rest(10);
    }
}

void Session::rest(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    } while (timer.elapsed() < milliseconds);
}

bool Session::wants(const QString& name) const
{
    if (m_size == smallSize && !contains(smallPictures, name))
        return false;
    switch (m_options.choice) {
    case Choice::all: return true;
    case Choice::main: return contains(mainPictures, name);
    case Choice::bareMaps: return m_size == usualSize && contains(mapPictures, name);
    case Choice::contrasts: return m_size == usualSize && !contains(repeatingPictures, name);
    }
    return false;
}

void Session::take(const QString& name)
{
    takeWindow(name, *m_app.window());
}

void Session::takeWindow(const QString& name, QQuickWindow& window)
{
    if (!wants(name))
        return;
    rest(20); // what has been told to the model reaches the map before it is asked
    waitUntil([this] { return mapIsComplete(*m_app.window()); }, "a map");
    rest(m_options.choice == Choice::contrasts ? fading : settling);
    if (m_options.choice == Choice::contrasts) {
        m_allDone = textsAreReadable(name, window) && m_allDone;
        return;
    }
    const QString path = QStringLiteral("%1/%2%3-%4x%5.png")
                             .arg(m_options.folder, name, m_options.suffix, QString::number(window.width()),
                                  QString::number(window.height()));
    m_allDone = window.grabWindow().save(path) && m_allDone;
}

/// Tells of each text that is not.
bool Session::textsAreReadable(const QString& name, QQuickWindow& window) const
{
    const std::vector<TextContrast> texts = measureTexts(window, window.grabWindow());
    if (texts.empty())
        std::fprintf(stderr, "%s%s: no text at all\n", qPrintable(name), qPrintable(m_options.suffix));
    bool allReadable = !texts.empty();
    for (const auto& [text, place, contrast] : texts) {
        if (contrast >= readableContrast)
            continue;
        allReadable = false;
        std::fprintf(stderr, "%s%s: \"%s\" at %d, %d has a contrast of %.2f\n", qPrintable(name),
                     qPrintable(m_options.suffix), qPrintable(text), place.x(), place.y(), contrast);
    }
    return allReadable;
}

} // namespace ospra
