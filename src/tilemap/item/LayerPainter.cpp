#include "tilemap/item/LayerPainter.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace ospra {

LayerPainter::LayerPainter(std::function<void(const LayerPicture&)> deliver)
    : m_deliver(std::move(deliver)), m_thread([this](const std::stop_token& stop) { run(stop); })
{}

LayerPainter::~LayerPainter()
{
    m_thread.request_stop();
    m_thread.join();
}

void LayerPainter::request(Paint paint, const LayerFrame& frame, int revision)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_waiting = Job{std::move(paint), frame, revision};
    }
    m_ready.notify_one();
}

void LayerPainter::customEvent(QEvent* /*event*/)
{
    std::optional<LayerPicture> picture;
    {
        const std::scoped_lock lock(m_mutex);
        picture = std::exchange(m_drawn, std::nullopt);
    }
    if (picture)
        m_deliver(*picture);
}

void LayerPainter::run(const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    while (m_ready.wait(lock, stop, [this] { return m_waiting.has_value(); }) && !stop.stop_requested()) {
        const Job job = *std::exchange(m_waiting, std::nullopt);
        lock.unlock();
        LayerPicture picture{job.paint(job.frame), job.frame, job.revision};
        lock.lock();
        m_drawn = std::move(picture);
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

} // namespace ospra
