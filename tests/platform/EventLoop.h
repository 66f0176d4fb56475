#pragma once

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <chrono>

namespace ospra {

/// For tests of what happens once control is back in the event loop.
class EventLoop : public testing::Test {
protected:
    /// Runs the event loop until the condition holds, for at most `limit`. @return whether it holds
    template <typename Condition>
    static bool runUntil(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(10))
    {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!condition() && std::chrono::steady_clock::now() < end)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return condition();
    }

private:
    int m_count = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_count, m_arguments};
};

} // namespace ospra
