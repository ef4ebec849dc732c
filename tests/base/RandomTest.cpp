#include <set>

#include <gtest/gtest.h>

#include "base/Random.h"

namespace vellora {
namespace {

TEST(RandomTest, RepeatsItsSequenceAfterASeed) {
    Srand(7);
    const int first = Rand();
    const int second = Rand();
    Srand(7);
    EXPECT_EQ(Rand(), first);
    EXPECT_EQ(Rand(), second);
    setFixedClock(7);
    Rand();
    seedFromClock();
    EXPECT_EQ(Rand(), first);
    clearFixedClock();
}

TEST(RandomTest, CoversItsRangeEvenly) {
    Srand(1);
    int low = kRandMax;
    int high = 0;
    double sum = 0;
    constexpr int kDraws = 1'000'000;
    for (int i = 0; i < kDraws; ++i) {
        const int value = Rand();
        low = std::min(low, value);
        high = std::max(high, value);
        sum += value;
    }
    EXPECT_EQ(low, 0);
    EXPECT_EQ(high, kRandMax);
    EXPECT_NEAR(sum / kDraws, kRandMax / 2.0, 40);
}

TEST(RandomTest, DrawsBelowAnExtent) {
    Srand(3);
    const int raw = Rand();
    Srand(3);
    EXPECT_EQ(randBelow(1000), raw * 1000 >> 15);
    std::set<int> reached;
    constexpr int kWide = 40'000;  // more than the generator has steps
    for (int i = 0; i < kWide * 20; ++i) {
        const int value = randBelow(kWide);
        ASSERT_GE(value, 0);
        ASSERT_LT(value, kWide);
        reached.insert(value);
    }
    EXPECT_EQ(reached.size(), static_cast<std::size_t>(kWide));
}

}  // namespace
}  // namespace vellora
