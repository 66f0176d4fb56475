#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace ospra {

/// Some threads that run tasks in the order in which they were posted, several at a time.
class TaskPool {
public:
    /// A task looks at the token now and then and ends early when a stop is requested.
    using Task = std::function<void(std::stop_token)>;

    explicit TaskPool(int threadCount);
    /// Asks running tasks to stop, drops those that have not begun, and joins.
    ~TaskPool();

    TaskPool(const TaskPool&) = delete;
    TaskPool& operator=(const TaskPool&) = delete;

    /// May be called from any thread.
    void post(Task task);

private:
    void run(const std::stop_token& stop);

    std::mutex m_mutex;
    std::condition_variable_any m_ready;
    std::deque<Task> m_tasks;
    std::vector<std::jthread> m_threads; // last, so that it is joined before what it uses goes
};

} // namespace ospra
