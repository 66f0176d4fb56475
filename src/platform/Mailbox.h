#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace ospra {

/// Where background tasks leave work for the main thread.
class Mailbox {
public:
    using Message = std::function<void()>;

    /// @param wakeUp called from any thread when the first message arrives in an empty box; it must see to it that
    ///     the main thread calls `drain` soon
    explicit Mailbox(std::function<void()> wakeUp);
    /// What has not been drained is dropped.
    ~Mailbox();

    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;

    /// May be called from any thread.
    void post(Message message);
    /// Runs the messages that are there, in order, on the calling thread, which is the main thread.
    void drain();

private:
    std::function<void()> m_wakeUp;
    std::mutex m_mutex;
    std::vector<Message> m_messages;
};

/// A mailbox that the Qt event loop of the calling thread drains.
[[nodiscard]] std::shared_ptr<Mailbox> makeEventLoopMailbox();

} // namespace ospra
