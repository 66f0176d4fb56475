#include "platform/Uuid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <ranges>
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
    std::array<std::vector<Uuid>, 3> made;
    {
        std::vector<std::jthread> threads;
        for (std::vector<Uuid>& ids : made)
            threads.emplace_back([&ids] { std::generate_n(std::back_inserter(ids), 10'000, makeUuid); });
    }
    std::set<Uuid> distinct;
    Uuid everSet{};
    Uuid alwaysSet{.high = ~std::uint64_t{0}, .low = ~std::uint64_t{0}};
    for (const Uuid& id : made | std::views::join) {
        distinct.insert(id);
        everSet = {.high = everSet.high | id.high, .low = everSet.low | id.low};
        alwaysSet = {.high = alwaysSet.high & id.high, .low = alwaysSet.low & id.low};
    }
    EXPECT_EQ(distinct.size(), 30'000U);
    // Only the six bits of version and variant are fixed: xxxxxxxx-xxxx-4xxx, and 10 in front of the second half.
    EXPECT_EQ(everSet, (Uuid{.high = 0xFFFFFFFFFFFF4FFFu, .low = 0xBFFFFFFFFFFFFFFFu}));
    EXPECT_EQ(alwaysSet, (Uuid{.high = 0x4000u, .low = 0x8000000000000000u}));
}

} // namespace
} // namespace ospra
