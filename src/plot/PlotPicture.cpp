#include "plot/PlotPicture.h"

#include "plot/RasterQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <algorithm>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace ospra {
namespace {

/// The queue that lives as long as any plot does.
std::shared_ptr<RasterQueue> sharedQueue()
{
    static std::weak_ptr<RasterQueue> existing;
    std::shared_ptr<RasterQueue> queue = existing.lock();
    if (!queue) {
        const int cores = static_cast<int>(std::thread::hardware_concurrency());
        queue = std::make_shared<RasterQueue>(std::clamp(cores - 1, 1, 4)); // one core is left to the window
        existing = queue;
    }
    return queue;
}

PlotPicture draw(PlotRasteriser& rasteriser, const PlotContent& content, const PlotFrame& frame)
{
    PlotPicture picture{QImage(frame.columns, frame.rows, QImage::Format_ARGB32_Premultiplied), frame};
    if (picture.image.isNull())
        return picture;
    const auto stride = static_cast<std::ptrdiff_t>(picture.image.bytesPerLine() / 4);
    auto* const pixels = reinterpret_cast<std::uint32_t*>(picture.image.bits());
    rasteriser.draw(content, frame, {pixels, static_cast<std::size_t>(stride * frame.rows)}, stride);
    return picture;
}

} // namespace

/// The way back. A drawing thread leaves its picture and wakes the addressee only while it holds the mutex and finds
/// the addressee there.
struct PlotPictureSource::Receiver {
    std::mutex mutex;
    PlotPicture picture{};    ///< the latest
    std::uint64_t number = 0; ///< of its request
    std::unique_ptr<QObject> addressee;
};

/// Hands pictures over. Lives on the thread that asks for them.
class PlotPictureSource::Addressee : public QObject {
public:
    Addressee(Receiver& receiver, std::function<void(const PlotPicture&)> deliver)
        : m_receiver(receiver), m_deliver(std::move(deliver))
    {}

protected:
    void customEvent(QEvent* /*event*/) override
    {
        PlotPicture picture;
        {
            const std::scoped_lock lock(m_receiver.mutex);
            if (m_receiver.number <= m_delivered)
                return;
            m_delivered = m_receiver.number;
            picture = std::move(m_receiver.picture);
        }
        m_deliver(picture);
    }

private:
    Receiver& m_receiver;
    std::function<void(const PlotPicture&)> m_deliver;
    std::uint64_t m_delivered = 0;
};

PlotPictureSource::PlotPictureSource(std::function<void(const PlotPicture&)> deliver)
    : m_queue(sharedQueue()), m_receiver(std::make_shared<Receiver>())
{
    m_receiver->addressee = std::make_unique<Addressee>(*m_receiver, std::move(deliver));
}

PlotPictureSource::~PlotPictureSource()
{
    m_queue->cancel(this);
    const std::scoped_lock lock(m_receiver->mutex);
    m_receiver->addressee.reset(); // takes back what was posted to it
}

void PlotPictureSource::request(PlotContent content, const PlotFrame& frame)
{
    const std::uint64_t number = ++m_requests;
    m_queue->submit(this,
                    [receiver = m_receiver, content = std::move(content), frame, number](PlotRasteriser& rasteriser) {
                        PlotPicture picture = draw(rasteriser, content, frame);
                        const std::scoped_lock lock(receiver->mutex);
                        if (!receiver->addressee || number < receiver->number)
                            return;
                        receiver->picture = std::move(picture);
                        receiver->number = number;
                        QCoreApplication::postEvent(receiver->addressee.get(), new QEvent(QEvent::User));
                    });
}

} // namespace ospra
