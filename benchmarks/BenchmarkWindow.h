#pragma once

#include "workspace/OspraApp.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <ctime>
#include <memory>

namespace ospra {

/// Milliseconds of a clock: processor time of this thread or of the whole process, or time of day.
inline double milliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Runs the event loop until something is reached. Ends the program where it is waited for in vain, so that a fault is
/// seen and not a benchmark without an end.
template <typename Reached>
void waitFor(Reached reached)
{
    using namespace std::chrono_literals;
    constexpr auto patience = 60s;
    const QDeadlineTimer deadline(patience);
    QTimer alarm; // wakes the loop when nothing else does
    alarm.start(1s);
    while (!reached()) {
        if (deadline.hasExpired())
            qFatal("A benchmark has waited in vain for %lld seconds.", static_cast<long long>(patience.count()));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    }
}

/// Runs the event loop until what was begun has faded and nothing moves any more.
inline void waitForRest()
{
    constexpr qint64 longestAnimation = 400; // ms, with room
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < longestAnimation)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

/// Tells when a window has shown what it was given. Declared before whatever owns the window: the render thread counts
/// here until the window is gone.
class FrameWatch {
public:
    void watch(QQuickWindow* window)
    {
        m_window = window;
        // Both on the render thread. A frame counts from the moment at which it took over the items' state: one that
        // is still being drawn then shows what was before.
        const auto direct = Qt::DirectConnection;
        QObject::connect(window, &QQuickWindow::afterSynchronizing, window, [this] { ++m_taken; }, direct);
        QObject::connect(
            window, &QQuickWindow::frameSwapped, window,
            [this] {
                m_shown = m_taken.load();
                QMetaObject::invokeMethod(m_window, [] {}, Qt::QueuedConnection); // wakes the loop
            },
            direct);
    }

    /// Asks for a frame, and waits until it is shown.
    void waitForFrame()
    {
        const int before = m_taken; // stands still, as a frame takes over while this thread waits
        m_window->update();
        waitFor([&] { return m_shown > before; });
    }

private:
    QQuickWindow* m_window = nullptr;
    std::atomic<int> m_taken = 0;
    std::atomic<int> m_shown = 0;
};

/// A window that is measured: made at its first use, and let go at the end of main, before the application is gone.
template <typename Window>
class WindowAtFirstUse {
public:
    Window& operator()()
    {
        if (!m_window)
            m_window = std::make_unique<Window>();
        return *m_window;
    }
    void letGo() { m_window.reset(); }

private:
    std::unique_ptr<Window> m_window;
};

/// Makes a window from a document, with what its required properties name.
inline std::unique_ptr<QQuickWindow> makeWindow(QQmlEngine& engine, const char* document, const QVariantMap& properties)
{
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlComponent component(&engine);
    component.setData(document, QUrl(QStringLiteral("qrc:/window.qml")));
    return std::unique_ptr<QQuickWindow>(
        qobject_cast<QQuickWindow*>(component.createWithInitialProperties(properties)));
}

} // namespace ospra
