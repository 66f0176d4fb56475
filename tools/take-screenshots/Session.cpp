#include "tools/take-screenshots/Session.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QQuickItem>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <set>
#include <utility>

namespace ospra {

namespace {

constexpr int patience = 30000; // ms until a state that does not come is given up
constexpr int settling = 450;   // ms; longer than any animation

} // namespace

Session::Session(QString folder, QString suffix) : m_folder(std::move(folder)), m_suffix(std::move(suffix)) {}

bool Session::run()
{
    if (!m_app.openWindow())
        return false;
    m_app.window()->requestActivate();
    waitUntil([this] { return m_app.model().hasJumpGroups() && !m_app.model().isLoading(); });
    if (!m_app.model().hasJumpGroups()) {
        std::fputs("take-screenshots: there are no jumps in the sample folders\n", stderr);
        return false;
    }
    for (const QSize size : {QSize(1200, 700), QSize(900, 600)}) {
        m_size = size;
        m_app.window()->resize(size);
        takeScreens();
    }
    m_app.model().closeFolder();
    take(QStringLiteral("welcome"));
    return m_allWritten;
}

void Session::takeScreens()
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
    takeJumpScreens();
    takeMenus();
    openJump(firstJump([](const JumpGroup& group) { return !group.jumpDate; }));
    take(QStringLiteral("alert"));
    model.dismissError();
}

void Session::takeJumpScreens()
{
    OspraModel& model = m_app.model();
    openJump(firstJump([](const JumpGroup& group) { return group.companionEntries.size() > 1; }));
    model.chooseZoomMode(ZoomMode::freefallAndCanopy);
    take(QStringLiteral("jump"));
    const TimeRange range = model.displayRange();
    model.setHoveredSeconds(range.lo + 0.4 * (range.hi - range.lo));
    take(QStringLiteral("jump-hover"));
    model.toggleTrackVisibility(model.tracks().back().id);
    model.chooseZoomMode(ZoomMode::freefall);
    take(QStringLiteral("jump-hidden"));
    const std::set<DataSeries> enabled = model.enabledSeries();
    model.setEnabledSeries({allDataSeries.begin(), allDataSeries.end()});
    model.setEnabledDistanceSeries({allDistanceSeries.begin(), allDistanceSeries.end()});
    take(QStringLiteral("jump-all-series"));
    model.setEnabledDistanceSeries({});
    model.setEnabledSeries({});
    take(QStringLiteral("jump-no-series"));
    model.setEnabledSeries(enabled);
    openJump(firstJump([](const JumpGroup& group) { return group.jumpDate && group.companionEntries.empty(); }));
    model.clearZoom();
    take(QStringLiteral("jump-single"));
    model.setHoveredSeconds(std::nullopt);
}

void Session::takeMenus()
{
    for (const char* title : {"Folders", "Data Series"}) {
        setMenuOpen(QString::fromLatin1(title), true);
        take(QStringLiteral("menu-") +
             QString::fromLatin1(title).toLower().replace(QLatin1Char(' '), QLatin1Char('-')));
        setMenuOpen(QString::fromLatin1(title), false);
    }
}

void Session::openJump(std::size_t index)
{
    m_app.model().openGroup(m_app.model().jumpGroups()[index]);
    waitUntil([this] { return !m_app.model().isLoading(); });
}

std::size_t Session::firstJump(const std::function<bool(const JumpGroup&)>& fits)
{
    const std::vector<JumpGroup>& groups = m_app.model().jumpGroups();
    const auto group = std::ranges::find_if(groups, fits);
    return group == groups.end() ? 0 : static_cast<std::size_t>(group - groups.begin());
}

void Session::setMenuOpen(const QString& title, bool isOpen)
{
    for (QQuickItem* item : m_app.window()->findChildren<QQuickItem*>()) {
        auto* menu = item->property("menu").value<QObject*>();
        if (menu && item->property("title").toString() == title)
            QMetaObject::invokeMethod(menu, isOpen ? "open" : "close");
    }
}

void Session::waitUntil(const std::function<bool()>& isReached)
{
    QElapsedTimer timer;
    timer.start();
    while (!isReached() && timer.elapsed() < patience)
        rest(10);
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

void Session::take(const QString& name)
{
    rest(settling);
    const QString path =
        QStringLiteral("%1/%2%3-%4x%5.png")
            .arg(m_folder, name, m_suffix, QString::number(m_size.width()), QString::number(m_size.height()));
    m_allWritten = m_app.window()->grabWindow().save(path) && m_allWritten;
}

} // namespace ospra
