#include "tests/tilemap/client/StoreBed.h"

#include <QCoreApplication>
#include <QElapsedTimer>

namespace ospra {

bool waitUntil(const std::function<bool()>& condition)
{
    constexpr qint64 waitAtMost = 10'000; // ms
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > waitAtMost)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

void waitFor(std::chrono::milliseconds time)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < time.count())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

StoreBed::StoreBed()
{
    options.cacheFolder = m_folder.filePath(QStringLiteral("tiles"));
    options.userAgent = "Ospra-Test/1.0";
    options.waitUnit = std::chrono::milliseconds(50);
}

MapSource StoreBed::imagery() const
{
    return {.id = "ground", .address = server.address() + "/imagery/{z}/{x}/{y}.jpg", .nativeZoom = 19};
}

TileStore& StoreBed::start(const std::vector<MapSource>& sources)
{
    m_store.reset();
    m_store = std::make_unique<TileStore>(sources, options);
    return *m_store;
}

TileState StoreBed::fetch(const TileKey& key)
{
    m_store->want({key});
    (void)waitUntil([&] { return m_store->state(key) != TileState::unknown; });
    return m_store->state(key);
}

std::string pathOf(const TileKey& key)
{
    return "/imagery/" + std::to_string(key.tile.zoom) + "/" + std::to_string(key.tile.x) + "/" +
           std::to_string(key.tile.y) + ".jpg";
}

} // namespace ospra
