#include "plot/RasterQueue.h"

#include <algorithm>

namespace ospra {

RasterQueue::RasterQueue(int threadCount)
{
    for (int i = 0; i < threadCount; ++i)
        m_threads.emplace_back([this](const std::stop_token& stop) { run(stop); });
}

RasterQueue::~RasterQueue()
{
    for (std::jthread& thread : m_threads)
        thread.request_stop();
}

void RasterQueue::submit(const void* plot, Job job)
{
    {
        const std::scoped_lock lock(m_mutex);
        const auto waiting = std::ranges::find(m_jobs, plot, &std::pair<const void*, Job>::first);
        if (waiting != m_jobs.end()) {
            waiting->second = std::move(job);
            return;
        }
        m_jobs.emplace_back(plot, std::move(job));
    }
    m_ready.notify_one();
}

void RasterQueue::cancel(const void* plot)
{
    const std::scoped_lock lock(m_mutex);
    std::erase_if(m_jobs, [plot](const auto& waiting) { return waiting.first == plot; });
}

void RasterQueue::run(const std::stop_token& stop)
{
    PlotRasteriser rasteriser;
    std::unique_lock lock(m_mutex);
    while (m_ready.wait(lock, stop, [this] { return !m_jobs.empty(); }) && !stop.stop_requested()) {
        const Job job = std::move(m_jobs.front().second);
        m_jobs.pop_front();
        lock.unlock();
        job(rasteriser);
        lock.lock();
    }
}

} // namespace ospra
