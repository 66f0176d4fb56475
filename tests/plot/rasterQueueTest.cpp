#include "plot/RasterQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <mutex>
#include <vector>

namespace ospra {
namespace {

TEST(RasterQueue, drawsOnlyTheNewestOfWhatWaits)
{
    std::promise<void> begun;
    std::promise<void> release;
    std::promise<void> done;
    std::mutex mutex;
    std::vector<int> drawn;
    const auto note = [&](int number) {
        return [&, number](PlotRasteriser&) {
            const std::scoped_lock lock(mutex);
            drawn.push_back(number);
        };
    };
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
    const std::scoped_lock lock(mutex);
    EXPECT_EQ(drawn, (std::vector{3}));
}

TEST(RasterQueue, drawsManyPlotsOnSeveralThreadsAndEndsInTheMiddle)
{
    const std::vector<double> points{0.0, 1.0, 50.0, 9.0, 100.0, 2.0};
    const PlotLine line{.x = points.data(), .y = points.data() + 1, .stride = 2, .count = 3};
    const PlotFrame frame{.columns = 100,
                          .rows = 20,
                          .plotWidth = 100.0,
                          .plotHeight = 20.0,
                          .seconds = {0.0, 100.0},
                          .values = {0.0, 10.0}};
    std::vector<int> keys(50);
    std::atomic<int> drawn = 0;
    {
        RasterQueue queue(3);
        for (int round = 0; round < 20; ++round) {
            for (const int& key : keys)
                queue.submit(&key, [&](PlotRasteriser& rasteriser) {
                    std::vector<std::uint32_t> pixels(2000);
                    rasteriser.draw({.lines = {line}}, frame, pixels, 100);
                    ++drawn;
                });
        }
        while (drawn == 0)
            std::this_thread::yield();
    }
    EXPECT_LE(drawn, 1000); // and nothing was left behind that another thread could still touch
}

} // namespace
} // namespace ospra
