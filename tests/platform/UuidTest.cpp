#include "platform/Uuid.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

namespace ospra {
namespace {

TEST(Uuid, textHasTheCanonicalForm)
{
    EXPECT_EQ(uuidString({.high = 0x0123456789ABCDEFu, .low = 0xFEDCBA9876543210u}),
              "01234567-89AB-CDEF-FEDC-BA9876543210");
}

TEST(Uuid, idsOfSeveralThreadsAreRandomVersion4AndDiffer)
{
    constexpr int idsPerThread = 10'000;
    std::vector<std::vector<Uuid>> made(3);
    {
        std::vector<std::jthread> threads;
        threads.reserve(made.size());
        for (std::vector<Uuid>& ids : made) {
            threads.emplace_back([&ids] {
                for (int i = 0; i < idsPerThread; ++i)
                    ids.push_back(makeUuid());
            });
        }
    }
    std::set<Uuid> distinct;
    Uuid everSet{};
    Uuid alwaysSet{.high = ~std::uint64_t{0}, .low = ~std::uint64_t{0}};
    for (const std::vector<Uuid>& ids : made) {
        distinct.insert(ids.begin(), ids.end());
        for (const Uuid& id : ids) {
            everSet = {.high = everSet.high | id.high, .low = everSet.low | id.low};
            alwaysSet = {.high = alwaysSet.high & id.high, .low = alwaysSet.low & id.low};
        }
    }
    EXPECT_EQ(distinct.size(), 3u * idsPerThread);
    // Only the six bits of version and variant are fixed: xxxxxxxx-xxxx-4xxx, and 10 in front of the second half.
    EXPECT_EQ(everSet, (Uuid{.high = 0xFFFFFFFFFFFF4FFFu, .low = 0xBFFFFFFFFFFFFFFFu}));
    EXPECT_EQ(alwaysSet, (Uuid{.high = 0x4000u, .low = 0x8000000000000000u}));
}

} // namespace
} // namespace ospra
