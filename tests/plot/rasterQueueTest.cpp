#include "plot/RasterQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

namespace ospra {
namespace {

TEST(RasterQueue, drawsOnlyTheNewestOfWhatWaits)
{
    std::promise<void> begun;
    std::promise<void> release;
    std::promise<void> done;
    std::vector<int> drawn; // by the one thread, until it is done
    const auto note = [&](int number) { return [&, number](PlotRasteriser&) { drawn.push_back(number); }; };
    const int a = 0;
    const int b = 0;
    const int last = 0;
    RasterQueue queue(1);
    queue.submit(&a, [&](PlotRasteriser&) {
        begun.set_value();
        release.get_future().wait();
    });
    begun.get_future().wait();
    queue.submit(&a, note(1));
    queue.submit(&b, note(2));
    queue.submit(&a, note(3));
    queue.submit(&b, note(4));
    queue.cancel(&b);
    queue.submit(&last, [&](PlotRasteriser&) { done.set_value(); });
    release.set_value();
    done.get_future().wait();
    EXPECT_EQ(drawn, std::vector{3});
}

TEST(RasterQueue, drawsOnSeveralThreadsAndEndsWhileManyWait)
{
    std::barrier together(4); // with the test itself: passed where three are drawn at once
    std::atomic<int> drawn = 0;
    const std::vector<int> keys(1000);
    {
        RasterQueue queue(3);
        for (const int& key : keys)
            queue.submit(&key, [&](PlotRasteriser&) {
                if (++drawn <= 3)
                    together.arrive_and_wait();
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            });
        together.arrive_and_wait();
    }
    EXPECT_LT(drawn, 1000);
}

} // namespace
} // namespace ospra
