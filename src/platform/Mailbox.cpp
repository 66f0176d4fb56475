#include "platform/Mailbox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>

#include <utility>

namespace ospra {

Mailbox::Mailbox(std::function<void()> wakeUp) : m_wakeUp(std::move(wakeUp)) {}

/// The lock is the last word between the thread that left a message and this one.
Mailbox::~Mailbox()
{
    const std::lock_guard lock(m_mutex);
    m_messages.clear();
}

void Mailbox::post(Message message)
{
    bool wasEmpty = false;
    {
        const std::lock_guard lock(m_mutex);
        wasEmpty = m_messages.empty();
        m_messages.push_back(std::move(message));
    }
    if (wasEmpty)
        m_wakeUp();
}

void Mailbox::drain()
{
    std::vector<Message> messages;
    {
        const std::lock_guard lock(m_mutex);
        messages.swap(m_messages);
    }
    // From here on no member is touched: a message may drop the last hold on this box.
    for (Message& message : messages) {
        message();
        message = nullptr; // what it captured goes before the next one runs
    }
}

namespace {

/// Lives in the thread of the event loop and drains the box there.
class MailboxReceiver final : public QObject {
public:
    void setMailbox(std::weak_ptr<Mailbox> mailbox) { m_mailbox = std::move(mailbox); }

    /// The wake-up is an event rather than a queued functor: a functor would be written by one thread and read by
    /// another with only Qt's own lock between, which a thread sanitizer cannot see.
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        if (const std::shared_ptr<Mailbox> mailbox = m_mailbox.lock())
            mailbox->drain();
        return true;
    }

private:
    std::weak_ptr<Mailbox> m_mailbox; ///< weak, since the box owns this object
};

/// The last hold on a mailbox may be a background task's, but an object goes in the thread in which it lives.
void discard(QObject* object)
{
    if (object->thread() == QThread::currentThread())
        delete object;
    else
        object->deleteLater();
}

} // namespace

std::shared_ptr<Mailbox> makeEventLoopMailbox()
{
    const std::shared_ptr<MailboxReceiver> receiver(new MailboxReceiver, discard);
    auto mailbox = std::make_shared<Mailbox>(
        [receiver] { QCoreApplication::postEvent(receiver.get(), new QEvent(QEvent::User)); });
    receiver->setMailbox(mailbox);
    return mailbox;
}

} // namespace ospra
