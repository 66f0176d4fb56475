#pragma once

#include "plot/PlotRasteriser.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace ospra {

/// Threads that draw the pictures of many plots. Of the pictures that one plot asks for while it waits, only the last
/// is drawn.
class RasterQueue {
public:
    /// Gets a rasteriser that no other thread uses at the time.
    using Job = std::function<void(PlotRasteriser& rasteriser)>;

    explicit RasterQueue(int threadCount);
    /// Drops the jobs that have not begun, and joins.
    ~RasterQueue();

    RasterQueue(const RasterQueue&) = delete;
    RasterQueue& operator=(const RasterQueue&) = delete;

    /// Replaces the job of this plot that still waits, in its place in the queue.
    void submit(const void* plot, Job job);
    /// Drops the job of this plot that still waits. One that runs goes on.
    void cancel(const void* plot);

private:
    void run(const std::stop_token& stop);

    std::mutex m_mutex;
    std::condition_variable_any m_ready;
    std::deque<std::pair<const void*, Job>> m_jobs;
    std::vector<std::jthread> m_threads; // last, so that it is joined before what it uses goes
};

} // namespace ospra
