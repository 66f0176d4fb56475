#include "tilemap/client/Host.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

using namespace std::chrono_literals;

const WaitClock::time_point start{1000s};
const Waits waits(1s);

TileKey request(int x)
{
    return {0, {5, x, 0}};
}

int room(Host host)
{
    int count = 0;
    for (; host.hasRoom() && count < 100; ++count)
        host.begin();
    return count;
}

TEST(Waits, grow)
{
    EXPECT_EQ(waits.beforeTry(1), 1s);
    EXPECT_EQ(waits.beforeTry(2), 4s);
    EXPECT_EQ(waits.silence(0), 30s);
    EXPECT_EQ(waits.silence(1), 60s);
    EXPECT_EQ(waits.silence(3), 240s);
    EXPECT_EQ(waits.silence(4), 300s);
    EXPECT_EQ(waits.silence(1'000'000), 300s);
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
    host.refuse(request(1));
    host.refuse(request(1)); // the same request, tried again
    host.refuse(request(2));
    EXPECT_FALSE(host.isLeftAlone());
    host.succeed();
    host.refuse(request(3));
    host.refuse(request(4));
    EXPECT_FALSE(host.isLeftAlone());
    host.refuse(request(5));
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
