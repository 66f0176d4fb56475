#include "EventLoop.h"
#include "platform/Mailbox.h"
#include "platform/TaskPool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>

namespace ospra {
namespace {

using testing::ElementsAre;

TEST(TaskPool, runsTasksSideBySide)
{
    std::latch allAreRunning(3);
    std::latch done(3);
    TaskPool pool(3);
    for (int i = 0; i < 3; ++i) {
        pool.post([&](const std::stop_token&) {
            allAreRunning.arrive_and_wait(); // would wait for ever if they ran one after another
            done.count_down();
        });
    }
    done.wait();
}

TEST(TaskPool, startsTasksInOrder)
{
    std::vector<int> started;
    std::latch done(100);
    TaskPool pool(1);
    for (int i = 0; i < 100; ++i) {
        pool.post([&, i](const std::stop_token&) {
            started.push_back(i);
            done.count_down();
        });
    }
    done.wait();
    EXPECT_TRUE(std::is_sorted(started.begin(), started.end()));
}

TEST(TaskPool, endsBySayingStopAndDroppingTheRest)
{
    std::latch isRunning(1);
    bool hasSeenStop = false;
    bool hasRunSecond = false;
    auto heldBySecond = std::make_shared<int>(1);
    const std::weak_ptr<int> watcher = heldBySecond;
    {
        TaskPool pool(1);
        pool.post([&](const std::stop_token& stop) {
            isRunning.count_down();
            while (!stop.stop_requested())
                std::this_thread::yield();
            hasSeenStop = true;
        });
        pool.post([&hasRunSecond, held = std::move(heldBySecond)](const std::stop_token&) { hasRunSecond = true; });
        isRunning.wait();
    }
    EXPECT_TRUE(hasSeenStop);
    EXPECT_FALSE(hasRunSecond);
    EXPECT_TRUE(watcher.expired());
}

TEST(Mailbox, wakesOncePerFillingAndKeepsTheOrder)
{
    int wakeUps = 0;
    std::vector<int> ran;
    Mailbox mailbox([&] { ++wakeUps; });
    mailbox.post([&] {
        ran.push_back(1);
        mailbox.post([&] { ran.push_back(3); });
    });
    mailbox.post([&] { ran.push_back(2); });
    EXPECT_EQ(wakeUps, 1);
    mailbox.drain();
    EXPECT_THAT(ran, ElementsAre(1, 2));
    EXPECT_EQ(wakeUps, 2);
    mailbox.drain();
    mailbox.drain();
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
    EXPECT_EQ(wakeUps, 2);
}

using EventLoopMailbox = EventLoop;

TEST_F(EventLoopMailbox, bringsResultsOfManyTasksToTheMainThread)
{
    const auto mailbox = makeEventLoopMailbox();
    const auto mainThread = std::this_thread::get_id();
    int sum = 0; // without a lock: all messages run on this thread
    {
        TaskPool pool(3);
        std::latch posted(200);
        for (int i = 0; i < 200; ++i) {
            pool.post([&, i](const std::stop_token&) {
                auto result = std::make_shared<std::vector<int>>(100, i);
                mailbox->post([&, result] {
                    EXPECT_EQ(std::this_thread::get_id(), mainThread);
                    sum += result->front();
                });
                posted.count_down();
            });
        }
        posted.wait();
    }
    EXPECT_EQ(sum, 0) << "nothing runs before control is back in the event loop";
    EXPECT_TRUE(runUntil([&] { return sum == 199 * 200 / 2; })) << sum;
}

TEST_F(EventLoopMailbox, mayGoWithAWakeUpUnderWay)
{
    bool hasRun = false;
    auto mailbox = makeEventLoopMailbox();
    mailbox->post([&] { hasRun = true; });
    mailbox.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(hasRun);

    // The last hold may be a task's, too.
    auto other = makeEventLoopMailbox();
    std::jthread([mailbox = std::move(other)]() mutable {
        mailbox->post([] {});
        mailbox.reset();
    }).join();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(EventLoopMailbox, aMessageMayDropTheLastHold)
{
    auto mailbox = makeEventLoopMailbox();
    int ran = 0;
    mailbox->post([&] {
        ++ran;
        mailbox.reset();
    });
    mailbox->post([&] { ++ran; });
    EXPECT_TRUE(runUntil([&] { return ran == 2; }));
    EXPECT_EQ(mailbox, nullptr);
}

} // namespace
} // namespace ospra
