#include "tilemap/client/Host.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

using namespace std::chrono_literals;

const WaitClock::time_point start{1000s};
const Waits waits(1s);

int room(Host host)
{
    int count = 0;
    for (; host.hasRoom() && count < 100; ++count)
        host.begin();
    return count;
}

TEST(Waits, growUpToFiveMinutes)
{
    EXPECT_EQ(waits.beforeTry(1), 1s);
    EXPECT_EQ(waits.beforeTry(2), 4s);
    for (const auto& [silences, wait] : {std::pair{0, 30s}, {1, 60s}, {3, 240s}, {4, 300s}, {1'000'000, 300s}})
        EXPECT_EQ(waits.silence(silences), wait) << silences;
    EXPECT_EQ(waits.asked(86'400), 300s);
    EXPECT_EQ(waits.asked(-5), 0s);
}

TEST(Host, takesMoreAtATimeOverHttp2)
{
    Host host;
    EXPECT_EQ(room(host), 4);
    host.answer(start, true);
    EXPECT_EQ(room(host), 16);
    host.answer(start, false);
    EXPECT_EQ(room(host), 4);
}

TEST(Host, isLeftAloneAfterThreeDifferentRefusals)
{
    Host host;
    const auto refuse = [&host](int x) { host.refuse({0, {5, x, 0}}); };
    refuse(1);
    refuse(1); // the same request, tried again
    refuse(2);
    EXPECT_FALSE(host.isLeftAlone());
    host.succeed();
    refuse(3);
    refuse(4);
    EXPECT_FALSE(host.isLeftAlone());
    refuse(5);
    EXPECT_TRUE(host.isLeftAlone());
    host.succeed(); // one that was on its way
    EXPECT_TRUE(host.isLeftAlone());
}

TEST(Host, fallsSilentForLongerAndLongerUntilItAnswers)
{
    Host host;
    host.fallSilent(start, waits);
    host.fallSilent(start + 1s, waits); // one more of those that were on their way
    EXPECT_TRUE(host.isSilent(start + 29s));
    EXPECT_FALSE(host.isSilent(start + 30s));
    EXPECT_EQ(room(host), 1);
    host.fallSilent(start + 40s, waits);
    EXPECT_TRUE(host.isSilent(start + 99s));
    EXPECT_FALSE(host.isSilent(start + 100s));
    host.answer(start + 101s, false);
    EXPECT_EQ(room(host), 4);
    host.fallSilent(start + 200s, waits);
    EXPECT_FALSE(host.isSilent(start + 230s));
}

} // namespace
} // namespace ospra
