#pragma once

#include "tilemap/LayerFrame.h"

#include <QImage>
#include <QObject>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace ospra {

/// A layer's picture, the frame it was drawn in and what it shows.
struct LayerPicture {
    QImage image{}; ///< premultiplied; null where there is nothing to see
    LayerFrame frame{};
    int revision = 0; ///< of the content
};

/// A thread that draws the pictures of one layer and hands them over on the thread that made it. Of the pictures asked
/// for while one is drawn, only the last is drawn next, and of those drawn meanwhile only the last is handed over.
class LayerPainter : private QObject {
public:
    /// Draws into a picture of the frame's size.
    using Paint = std::function<QImage(const LayerFrame& frame)>;

    /// @param deliver called from the event loop of the constructing thread, never after the painter is gone
    explicit LayerPainter(std::function<void(const LayerPicture&)> deliver);
    /// Waits for the picture that is being drawn.
    ~LayerPainter() override;

    void request(Paint paint, const LayerFrame& frame, int revision);

private:
    struct Job {
        Paint paint{};
        LayerFrame frame{};
        int revision = 0;
    };

    void customEvent(QEvent* event) override;
    void run(const std::stop_token& stop);

    std::function<void(const LayerPicture&)> m_deliver;
    std::mutex m_mutex; ///< of the job and the picture
    std::condition_variable_any m_ready;
    std::optional<Job> m_waiting;
    std::optional<LayerPicture> m_drawn; ///< not yet handed over
    std::jthread m_thread;               // last, so that it is joined before what it uses goes
};

} // namespace ospra
