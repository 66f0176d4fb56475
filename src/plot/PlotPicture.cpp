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

/// A finished picture on its way back.
class PictureEvent : public QEvent {
public:
    PictureEvent(PlotPicture picture, std::uint64_t number)
        : QEvent(User), m_picture(std::move(picture)), m_number(number)
    {}

    [[nodiscard]] const PlotPicture& picture() const { return m_picture; }
    /// Of the request.
    [[nodiscard]] std::uint64_t number() const { return m_number; }

private:
    PlotPicture m_picture;
    std::uint64_t m_number;
};

/// Where pictures arrive. Lives on the thread that asks for them.
class Addressee : public QObject {
public:
    explicit Addressee(std::function<void(const PlotPicture&)> deliver) : m_deliver(std::move(deliver)) {}

protected:
    void customEvent(QEvent* event) override
    {
        const auto* const arrived = static_cast<const PictureEvent*>(event);
        if (arrived->number() <= m_delivered)
            return;
        m_delivered = arrived->number();
        m_deliver(arrived->picture());
    }

private:
    std::function<void(const PlotPicture&)> m_deliver;
    std::uint64_t m_delivered = 0;
};

} // namespace

/// The way back. A drawing thread posts to the addressee only while it holds the mutex and finds it there.
struct PlotPictureSource::Receiver {
    std::mutex mutex;
    std::unique_ptr<QObject> addressee;
};

PlotPictureSource::PlotPictureSource(std::function<void(const PlotPicture&)> deliver)
    : m_queue(sharedQueue()), m_receiver(std::make_shared<Receiver>())
{
    m_receiver->addressee = std::make_unique<Addressee>(std::move(deliver));
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
                        auto event = std::make_unique<PictureEvent>(draw(rasteriser, content, frame), number);
                        const std::scoped_lock lock(receiver->mutex);
                        if (receiver->addressee)
                            QCoreApplication::postEvent(receiver->addressee.get(), event.release());
                    });
}

} // namespace ospra
