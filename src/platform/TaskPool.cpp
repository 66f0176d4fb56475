#include "platform/TaskPool.h"

#include <algorithm>
#include <utility>

namespace ospra {

TaskPool::TaskPool(int threadCount)
{
    const int count = std::max(threadCount, 1);
    m_threads.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        m_threads.emplace_back([this](const std::stop_token& stop) { run(stop); });
}

TaskPool::~TaskPool()
{
    for (std::jthread& thread : m_threads)
        thread.request_stop(); // all of them first, so that they end at the same time
    std::deque<Task> dropped;
    {
        const std::lock_guard lock(m_mutex);
        dropped.swap(m_tasks); // destroyed without the lock: a task may own what posts another
    }
    m_threads.clear();
}

void TaskPool::post(Task task)
{
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_ready.notify_one();
}

void TaskPool::run(const std::stop_token& stop)
{
    while (true) {
        Task task;
        {
            std::unique_lock lock(m_mutex);
            m_ready.wait(lock, stop, [this] { return !m_tasks.empty(); });
            if (stop.stop_requested())
                return;
            task = std::move(m_tasks.front());
            m_tasks.pop_front();
        }
        task(stop);
    }
}

} // namespace ospra
