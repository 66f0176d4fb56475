#pragma once

#include "plot/PlotContent.h"
#include "plot/PlotRasteriser.h"

#include <QImage>

#include <cstdint>
#include <functional>
#include <memory>

namespace ospra {

class RasterQueue;

/// A plot's picture, and the frame it was drawn in.
struct PlotPicture {
    QImage image; ///< premultiplied, null where the frame has no pixels
    PlotFrame frame;
};

/// Has the pictures of one plot drawn in the background and hands them over on the thread that asked. All plots share
/// the drawing threads.
class PlotPictureSource {
public:
    /// @param deliver called from the event loop of the constructing thread, never after the source is gone
    explicit PlotPictureSource(std::function<void(const PlotPicture&)> deliver);
    ~PlotPictureSource();

    PlotPictureSource(const PlotPictureSource&) = delete;
    PlotPictureSource& operator=(const PlotPictureSource&) = delete;

    /// Asks for a picture. One that was asked for before and is not begun yet is not drawn; one that is overtaken by a
    /// later is not delivered.
    void request(PlotContent content, const PlotFrame& frame);

private:
    struct Receiver;
    class Addressee;

    std::shared_ptr<RasterQueue> m_queue;
    std::shared_ptr<Receiver> m_receiver;
    std::uint64_t m_requests = 0;
};

} // namespace ospra
