#include "workspace/shell/TerminationSignals.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace ospra {

namespace {

constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

/// A pipe: hardly anything but a write is allowed in a signal handler.
std::array<int, 2> pipeEnds{-1, -1};

extern "C" void tellOfSignal(int)
{
    const char byte = 0;
    // A full pipe has told already.
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent)
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // without it the signals end the program as they do by themselves
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::array<char, 16> bytes{};
        if (::read(pipeEnds[0], bytes.data(), bytes.size()) > 0)
            emit received();
    });
    struct sigaction action = {};
    action.sa_handler = tellOfSignal;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    for (const int signal : handledSignals) {
        struct sigaction before = {};
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) // whoever started us wanted it ignored, as nohup does
            ::sigaction(signal, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    if (!m_notifier)
        return;
    for (const int signal : handledSignals) {
        struct sigaction now = {};
        ::sigaction(signal, nullptr, &now);
        if (now.sa_handler == tellOfSignal)
            std::signal(signal, SIG_DFL);
    }
    m_notifier.reset();
    for (int& end : pipeEnds)
        ::close(std::exchange(end, -1));
}

} // namespace ospra
