#include "platform/NaturalOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace ospra {
namespace {

TEST(NaturalOrder, comparesDigitRunsByValueInEveryLocale)
{
    const std::vector<std::string> ascending{"2024-03-09", "2024-10-01", "a",        "B",   "c",   "jump 9",
                                             "jump 10",    "jump 10a",   "jump 100", "x9y", "x10y"};
    for (const char* const locale : {"", "en_US", "C", "POSIX", "de_CH"}) {
        SCOPED_TRACE(locale);
        const auto order = makeNaturalOrder(locale);
        for (std::size_t i = 0; i < ascending.size(); ++i) {
            for (std::size_t j = 0; j < ascending.size(); ++j)
                EXPECT_EQ(order->compare(ascending[i], ascending[j]), std::weak_ordering(i <=> j))
                    << ascending[i] << " | " << ascending[j];
        }
    }
}

TEST(NaturalOrder, followsTheLocaleAndTakesAnyBytes)
{
    constexpr auto less = std::weak_ordering::less;
    constexpr auto greater = std::weak_ordering::greater;
    constexpr auto equivalent = std::weak_ordering::equivalent;
    EXPECT_EQ(makeNaturalOrder("de_DE")->compare("\xC3\xA4", "z"), less);
    EXPECT_EQ(makeNaturalOrder("sv_SE")->compare("\xC3\xA4", "z"), greater);
    const auto order = makeNaturalOrder("en_US");
    EXPECT_EQ(order->compare("\xFF", "\xEF\xBF\xBD"), equivalent);
    EXPECT_EQ(order->compare("", "a"), less);
    EXPECT_EQ(order->compare("jump", "Jump"), less);
    EXPECT_EQ(order->compare(std::string(400, '8'), std::string(400, '9')), less);
}

} // namespace
} // namespace ospra
